#include "zelnor/platform/decimal.h"

#include "zelnor/platform/failure.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace zelnor {
namespace {

/// Takes apart a number in scientific notation, such as "-1.25e+02".
Decimal FromScientific(std::string_view text) {
  Decimal result;
  if (text.starts_with('-')) {
    result.negative = true;
    text.remove_prefix(1);
  }
  const std::size_t exponent_at = text.find('e');
  for (const char c : text.substr(0, exponent_at)) {
    if (c != '.') result.digits.push_back(c);
  }
  std::string_view exponent = text.substr(exponent_at + 1);
  if (exponent.starts_with('+')) exponent.remove_prefix(1);
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), result.point);
  ++result.point;
  return result;
}

}  // namespace

std::int64_t Decimal::Scaled(int decimals) const {
  const std::size_t first = digits.find_first_not_of('0');
  if (first == std::string::npos) return 0;
  // The count of significant digits in front of the place where the number is cut.
  const std::int64_t kept = point + decimals - static_cast<std::int64_t>(first);
  if (kept < 0) return 0;
  constexpr std::int64_t kMostDigits = 19;
  if (kept > kMostDigits) ThrowOverflow();

  const std::string_view significant = std::string_view(digits).substr(first);
  const auto whole = static_cast<std::size_t>(kept);
  std::uint64_t result = 0;
  for (std::size_t i = 0; i < whole; ++i) {
    const char digit = i < significant.size() ? significant[i] : '0';
    result = result * 10 + static_cast<std::uint64_t>(digit - '0');  // 19 digits fit
  }
  if (whole < significant.size() && significant[whole] >= '5') {
    const bool above_half =
        significant[whole] > '5' || significant.find_first_not_of('0', whole + 1) != std::string_view::npos;
    if (above_half || result % 2 == 1) ++result;
  }
  constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  if (result > kLargest + (negative ? 1 : 0)) ThrowOverflow();
  if (!negative) return static_cast<std::int64_t>(result);
  return result > kLargest ? std::numeric_limits<std::int64_t>::min() : -static_cast<std::int64_t>(result);
}

double Decimal::Nearest() const {
  const std::size_t first = digits.find_first_not_of('0');
  if (first == std::string::npos) return 0.0;
  const std::int64_t magnitude = point - static_cast<std::int64_t>(first);
  constexpr std::int64_t kLargest = 309;    // 1E309 is above every floating number
  constexpr std::int64_t kSmallest = -323;  // 1E-324 rounds to zero
  if (magnitude > kLargest) ThrowOverflow();
  if (magnitude < kSmallest) return 0.0;

  std::string text = "0.";
  text.append(digits, first);
  text.push_back('e');
  text.append(std::to_string(magnitude));
  double value = 0.0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (read.ec == std::errc::result_out_of_range) {
    if (magnitude > 0) ThrowOverflow();
    return 0.0;
  }
  if (std::isinf(value)) ThrowOverflow();
  return negative ? 0.0 - value : value;
}

Decimal DecimalOf(double value) {
  if (!std::isfinite(value)) ThrowOverflow();
  std::array<char, 40> buffer;
  const auto end = std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::scientific).ptr;
  return FromScientific({buffer.data(), static_cast<std::size_t>(end - buffer.data())});
}

Decimal DecimalOf15(double value) {
  if (!std::isfinite(value)) ThrowOverflow();
  std::array<char, 40> buffer;
  const auto end = std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::scientific, 14).ptr;
  return FromScientific({buffer.data(), static_cast<std::size_t>(end - buffer.data())});
}

}  // namespace zelnor
