#include "zelnor/platform/formats.h"

#include "zelnor/platform/calendar.h"
#include "zelnor/platform/decimal.h"
#include "zelnor/platform/failure.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zelnor {
namespace {

// ---- Numbers

/// What a pattern of zeros, "#", "," and "." asks for.
struct NumberPattern {
  std::string_view before;  // stands in front of the number
  std::string_view after;   // stands behind it
  std::size_t least_whole = 0;
  std::size_t least_decimals = 0;
  std::size_t most_decimals = 0;
  bool point = false;
  bool grouped = false;
};

NumberPattern Read(std::string_view pattern) {
  constexpr std::string_view kPlaces = "0#,.";
  NumberPattern result;
  const std::size_t first = pattern.find_first_of(kPlaces);
  if (first == std::string_view::npos) ThrowInvalidArgument();
  const std::size_t end = std::min(pattern.find_first_not_of(kPlaces, first), pattern.size());
  result.before = pattern.substr(0, first);
  result.after = pattern.substr(end);
  for (const char c : pattern.substr(first, end - first)) {
    if (c == '.') {
      if (result.point) ThrowInvalidArgument();
      result.point = true;
    } else if (c == ',') {
      if (result.point) ThrowInvalidArgument();
      result.grouped = true;
    } else if (result.point) {
      ++result.most_decimals;
      if (c == '0') result.least_decimals = result.most_decimals;
    } else if (c == '0' || result.least_whole > 0) {
      ++result.least_whole;
    }
  }
  return result;
}

/// The digits of a decimal rounded half away from zero at a count of decimals: the whole part without leading
/// zeros and exactly that many decimals.
struct RoundedDigits {
  std::string whole;
  std::string decimals;

  bool IsZero() const { return whole.empty() && decimals.find_first_not_of('0') == std::string::npos; }
};

RoundedDigits RoundAway(const Decimal& number, std::size_t decimals) {
  const auto digit_at = [&](std::int64_t place) {  // place 0 is the first digit behind the point
    const std::int64_t index = place + number.point;
    const bool inside = index >= 0 && index < static_cast<std::int64_t>(number.digits.size());
    return inside ? number.digits[static_cast<std::size_t>(index)] : '0';
  };
  // One place in front of the number takes a carry.
  std::string digits = "0";
  const auto last = static_cast<std::int64_t>(decimals);
  for (std::int64_t place = std::min<std::int64_t>(-number.point, 0); place < last; ++place) {
    digits.push_back(digit_at(place));
  }
  if (digit_at(last) >= '5') {
    std::size_t at = digits.size() - 1;
    while (digits[at] == '9') digits[at--] = '0';
    ++digits[at];
  }
  const std::size_t whole_size = digits.size() - decimals;
  const std::size_t leading = std::min(digits.find_first_not_of('0'), whole_size);
  return {digits.substr(leading, whole_size - leading), digits.substr(whole_size)};
}

String FormatDecimal(const Decimal& number, std::string_view pattern) {
  const NumberPattern wanted = Read(pattern);
  RoundedDigits rounded = RoundAway(number, wanted.most_decimals);
  String text;
  if (number.negative && !rounded.IsZero()) text.push_back('-');
  text.append(wanted.before);

  if (rounded.whole.size() < wanted.least_whole) {
    rounded.whole.insert(0, wanted.least_whole - rounded.whole.size(), '0');
  }
  for (std::size_t i = 0; i < rounded.whole.size(); ++i) {
    const std::size_t left = rounded.whole.size() - i;
    if (wanted.grouped && i > 0 && left % 3 == 0) text.push_back(',');
    text.push_back(rounded.whole[i]);
  }

  while (rounded.decimals.size() > wanted.least_decimals && rounded.decimals.back() == '0') {
    rounded.decimals.pop_back();
  }
  if (wanted.point) text.append(".").append(rounded.decimals);
  return text.append(wanted.after);
}

std::uint64_t Magnitude(std::int64_t value) {
  const auto bits = static_cast<std::uint64_t>(value);
  return value < 0 ? std::uint64_t{0} - bits : bits;
}

/// A whole number of units, of which ten to the power of `decimals` make one.
Decimal FromUnits(std::int64_t units, int decimals) {
  Decimal number;
  number.negative = units < 0;
  number.digits = std::to_string(Magnitude(units));
  number.point = static_cast<std::int64_t>(number.digits.size()) - decimals;
  return number;
}

// ---- Dates

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Appends a number that is never negative with at least that many digits.
void AppendNumber(String& text, int number, std::size_t least_digits) {
  std::array<char, 12> digits;
  const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
  const auto count = static_cast<std::size_t>(end - digits.begin());
  if (count < least_digits) text.append(least_digits - count, '0');
  text.append(digits.data(), count);
}

void PutDigits(char* at, int number, int count) {
  for (int i = count - 1; i >= 0; --i) {
    at[i] = static_cast<char>('0' + number % 10);
    number /= 10;
  }
}

constexpr std::array<std::string_view, 12> kMonthNames = {"January",   "February", "March",    "April",
                                                          "May",       "June",     "July",     "August",
                                                          "September", "October",  "November", "December"};

/// "yyyy-mm-dd", in which documents carry every date.
String IsoDay(const DateParts& parts) {
  String text = "0000-00-00";
  PutDigits(text.data(), parts.year, 4);
  PutDigits(text.data() + 5, parts.month, 2);
  PutDigits(text.data() + 8, parts.day, 2);
  return text;
}

}  // namespace

String FormatMoney(Currency value) {
  constexpr std::uint64_t kUnitsOfPenny = 100;
  std::uint64_t pence = (Magnitude(value.Units()) + kUnitsOfPenny / 2) / kUnitsOfPenny;
  std::array<char, 24> buffer;
  char* const end = buffer.end();
  char* at = end;
  int places = 0;
  const bool negative = value.Units() < 0 && pence != 0;
  while (pence != 0 || places < 3) {
    if (places == 2) *--at = '.';
    *--at = static_cast<char>('0' + pence % 10);
    pence /= 10;
    ++places;
  }
  if (negative) *--at = '-';
  return {at, static_cast<std::size_t>(end - at)};
}

String Format(Currency value, std::string_view pattern) {
  if (pattern == "#0.00" || pattern == "0.00") return FormatMoney(value);
  return FormatDecimal(FromUnits(value.Units(), 4), pattern);
}

String Format(double value, std::string_view pattern) { return FormatDecimal(DecimalOf15(value), pattern); }

String Format(std::int64_t value, std::string_view pattern) {
  return FormatDecimal(FromUnits(value, 0), pattern);
}

String Format(Date value, std::string_view pattern) {
  const DateParts parts = PartsOf(value);
  if (pattern == "yyyy-mm-dd") return IsoDay(parts);

  String text;
  bool behind_hours = false;
  for (std::size_t at = 0; at < pattern.size();) {
    const char letter = LowerAscii(pattern[at]);
    const auto run = [&](std::size_t count) {
      for (std::size_t i = 1; i < count; ++i) {
        if (at + i >= pattern.size() || LowerAscii(pattern[at + i]) != letter) return false;
      }
      return true;
    };
    const std::size_t pair = run(2) ? 2 : 1;
    switch (letter) {
      case 'y':
        if (run(4)) {
          AppendNumber(text, parts.year, 4);
          at += 4;
        } else if (run(2)) {
          AppendNumber(text, parts.year % 100, 2);
          at += 2;
        } else {
          text.push_back(pattern[at++]);
        }
        behind_hours = false;
        continue;
      case 'm':
        if (run(4)) {
          text += kMonthNames[static_cast<std::size_t>(parts.month) - 1];
          at += 4;
          behind_hours = false;
          continue;
        }
        AppendNumber(text, behind_hours ? parts.minute : parts.month, pair);
        break;
      case 'd':
        AppendNumber(text, parts.day, pair);
        break;
      case 'h':
        AppendNumber(text, parts.hour, pair);
        break;
      case 'n':
        AppendNumber(text, parts.minute, pair);
        break;
      case 's':
        AppendNumber(text, parts.second, pair);
        break;
      default:
        text.push_back(pattern[at++]);
        continue;
    }
    behind_hours = letter == 'h';
    at += pair;
  }
  return text;
}

}  // namespace zelnor
