#include "zelnor/platform/conversions.h"
#include "zelnor/platform/decimal.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace zelnor {
namespace {

constexpr std::string_view kPound = "\u00A3";

/// Exponents are held within this bound, far beyond what any number can carry.
constexpr std::int64_t kMaxExponent = 1'000'000'000'000;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlankOrTab(char c) { return c == ' ' || c == '\t'; }
bool IsSign(char c) { return c == '+' || c == '-'; }
bool IsExponentLetter(char c) { return c == 'e' || c == 'E' || c == 'd' || c == 'D'; }

std::string_view WithoutOuterBlanks(std::string_view text) {
  while (!text.empty() && IsBlankOrTab(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlankOrTab(text.back())) text.remove_suffix(1);
  return text;
}

/// Takes the prefix off the text, where it is there.
bool Take(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

/// Takes the digits in front off the text and appends them, dropping group commas where these are allowed.
void TakeDigits(std::string_view& text, bool with_commas, std::string& digits) {
  while (!text.empty() && (IsDigit(text.front()) || (with_commas && text.front() == ','))) {
    if (text.front() != ',') digits.push_back(text.front());
    text.remove_prefix(1);
  }
}

/// Takes an exponent off the text: its letter, an optional sign and digits. Takes nothing and returns 0 where
/// one of them is missing.
std::int64_t TakeExponent(std::string_view& text) {
  if (text.empty() || !IsExponentLetter(text.front())) return 0;
  std::string_view rest = text.substr(1);
  const bool negative = rest.starts_with('-');
  if (!rest.empty() && IsSign(rest.front())) rest.remove_prefix(1);
  if (rest.empty() || !IsDigit(rest.front())) return 0;
  std::int64_t exponent = 0;
  while (!rest.empty() && IsDigit(rest.front())) {
    if (exponent < kMaxExponent) exponent = exponent * 10 + (rest.front() - '0');
    rest.remove_prefix(1);
  }
  text = rest;
  return negative ? -exponent : exponent;
}

/// Takes digits, a decimal point with more digits and an exponent off the text. False, with the text in no
/// certain state, where there is no digit.
bool TakeUnsigned(std::string_view& text, bool with_commas, Decimal& number) {
  TakeDigits(text, with_commas, number.digits);
  number.point = static_cast<std::int64_t>(number.digits.size());
  if (Take(text, ".")) TakeDigits(text, false, number.digits);
  if (number.digits.empty()) return false;
  number.point += TakeExponent(text);
  return true;
}

/// The digit's value in bases up to 16, or -1.
int DigitValue(char c, int base) {
  int value = -1;
  if (IsDigit(c)) value = c - '0';
  if (c >= 'a' && c <= 'f') value = c - 'a' + 10;
  if (c >= 'A' && c <= 'F') value = c - 'A' + 10;
  return value < base ? value : -1;
}

/// The base that the prefix `&H` or `&O` names, which is taken off the text; 0 where there is none.
int TakeBase(std::string_view& text) {
  if (Take(text, "&H") || Take(text, "&h")) return 16;
  if (Take(text, "&O") || Take(text, "&o")) return 8;
  return 0;
}

/// Takes the digits of that base off the text. Raises error 6 above 64 bits.
std::uint64_t TakeBased(std::string_view& text, int base) {
  std::uint64_t value = 0;
  const auto factor = static_cast<std::uint64_t>(base);
  while (!text.empty() && DigitValue(text.front(), base) >= 0) {
    if (value > std::numeric_limits<std::uint64_t>::max() / factor) ThrowOverflow();
    value = value * factor + static_cast<std::uint64_t>(DigitValue(text.front(), base));
    text.remove_prefix(1);
  }
  return value;
}

Decimal DecimalOfWhole(std::uint64_t value) {
  Decimal number;
  number.digits = std::to_string(value);
  number.point = static_cast<std::int64_t>(number.digits.size());
  return number;
}

/// The number that a text means. False where it means none.
bool Parse(std::string_view text, Decimal& number) {
  text = WithoutOuterBlanks(text);

  if (const int base = TakeBase(text); base != 0) {
    const bool empty = text.empty();
    number = DecimalOfWhole(TakeBased(text, base));
    return !empty && text.empty();
  }

  bool pound = Take(text, kPound);
  bool signed_already = false;
  bool in_brackets = false;
  if (!text.empty() && IsSign(text.front())) {
    signed_already = true;
    number.negative = text.front() == '-';
    text.remove_prefix(1);
  } else if (Take(text, "(")) {
    in_brackets = true;
    number.negative = true;
  }
  if (!pound) Take(text, kPound);

  if (!TakeUnsigned(text, true, number)) return false;

  if (in_brackets) return text == ")";
  if (!signed_already && text.size() == 1 && IsSign(text.front())) {
    number.negative = text.front() == '-';
    text.remove_prefix(1);
  }
  return text.empty();
}

Decimal ParseOrThrow(std::string_view text) {
  Decimal number;
  if (!Parse(text, number)) ThrowTypeMismatch();
  return number;
}

/// Reads texts such as "-123.45", which are nearly all of the amounts in a document: at most 14 digits in
/// front of the point and at most four behind. Any other text is left to the full conversion.
bool PlainAmount(std::string_view text, std::int64_t& units) {
  constexpr std::size_t kMostWhole = 14;
  constexpr std::size_t kDecimals = 4;
  const bool negative = text.starts_with('-');
  std::size_t at = negative ? 1 : 0;
  const std::size_t first = at;
  std::int64_t value = 0;
  while (at < text.size() && IsDigit(text[at]) && at - first <= kMostWhole)
    value = value * 10 + (text[at++] - '0');
  if (at == first || at - first > kMostWhole) return false;
  std::size_t decimals = 0;
  if (at < text.size() && text[at] == '.') {
    ++at;
    while (at < text.size() && IsDigit(text[at]) && decimals < kDecimals) {
      value = value * 10 + (text[at++] - '0');
      ++decimals;
    }
  }
  if (at != text.size()) return false;
  for (; decimals < kDecimals; ++decimals) value *= 10;
  units = negative ? -value : value;
  return true;
}

template <class Whole>
Whole Narrowed(std::int64_t value) {
  if (value < std::numeric_limits<Whole>::min() || value > std::numeric_limits<Whole>::max()) ThrowOverflow();
  return static_cast<Whole>(value);
}

template <class Whole>
Whole Rounded(double value) {
  const double rounded = std::nearbyint(value);
  const bool fits =
      rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max();
  if (!fits) ThrowOverflow();
  return static_cast<Whole>(rounded);
}

}  // namespace

double ToDouble(std::string_view text) { return ParseOrThrow(text).Nearest(); }

Currency ToCurrency(std::string_view text) {
  std::int64_t units = 0;
  if (PlainAmount(text, units)) return Currency::FromUnits(units);
  return Currency::FromUnits(ParseOrThrow(text).Scaled(4));
}

Integer ToInteger(std::string_view text) { return Narrowed<Integer>(ParseOrThrow(text).Scaled(0)); }
Integer ToInteger(double value) { return Rounded<Integer>(value); }

Long ToLong(std::string_view text) { return Narrowed<Long>(ParseOrThrow(text).Scaled(0)); }
Long ToLong(double value) { return Rounded<Long>(value); }

bool ToBoolean(std::string_view text) {
  if (EqualIgnoringCase(text, "true") || EqualIgnoringCase(text, "yes")) return true;
  if (EqualIgnoringCase(text, "false") || EqualIgnoringCase(text, "no")) return false;
  return ToDouble(text) != 0.0;
}

bool IsNumeric(std::string_view text) {
  try {
    Decimal number;
    if (!Parse(text, number)) return false;
    number.Nearest();
    return true;
  } catch (const RuntimeError&) {
    return false;  // a number, but beyond the range of Double
  }
}

double LeadingNumber(std::string_view text) {
  std::string packed;
  for (const char c : text) {
    if (IsBlankOrTab(c) || c == '\n') continue;
    const bool may_belong = IsDigit(c) || IsSign(c) || c == '.' || c == '&' || DigitValue(c, 16) >= 0 ||
                            c == 'H' || c == 'h' || c == 'O' || c == 'o';
    if (!may_belong) break;
    packed.push_back(c);
  }

  std::string_view rest = packed;
  Decimal number;
  try {
    if (const int base = TakeBase(rest); base != 0) return DecimalOfWhole(TakeBased(rest, base)).Nearest();
    number.negative = rest.starts_with('-');
    if (!rest.empty() && IsSign(rest.front())) rest.remove_prefix(1);
    return TakeUnsigned(rest, false, number) ? number.Nearest() : 0.0;
  } catch (const RuntimeError&) {
    // Too large for a Double: the nearest that there is.
    return number.negative ? std::numeric_limits<double>::lowest() : std::numeric_limits<double>::max();
  }
}

String ToText(bool value) { return value ? "True" : "False"; }

String ToText(Integer value) { return std::to_string(value); }

String ToText(Long value) { return std::to_string(value); }

String ToText(double value) {
  constexpr std::int64_t kMostPlaces = 15;
  Decimal number = DecimalOf15(value);
  number.digits.erase(number.digits.find_last_not_of('0') + 1);
  if (number.digits.empty()) return "0";
  const auto count = static_cast<std::int64_t>(number.digits.size());

  String text = number.negative ? "-" : "";
  if (number.point > kMostPlaces || count - number.point > kMostPlaces) {
    text.append(number.digits, 0, 1);
    if (count > 1) text.append(".").append(number.digits, 1);
    const std::int64_t exponent = number.point - 1;
    text.append(exponent < 0 ? "E-" : "E+");
    if (std::abs(exponent) < 10) text.push_back('0');
    return text + std::to_string(std::abs(exponent));
  }
  if (number.point <= 0) {
    text.append("0.").append(static_cast<std::size_t>(-number.point), '0');
    return text + number.digits;
  }
  const auto whole = static_cast<std::size_t>(number.point);
  if (number.digits.size() <= whole) return text + number.digits.append(whole - number.digits.size(), '0');
  return text.append(number.digits, 0, whole).append(".").append(number.digits, whole);
}

String ToText(Currency value) {
  const bool negative = value.Units() < 0;
  const auto units = static_cast<std::uint64_t>(value.Units());
  const std::uint64_t magnitude = negative ? std::uint64_t{0} - units : units;
  String text = negative ? "-" : "";
  text.append(std::to_string(magnitude / 10000));
  std::uint64_t decimals = magnitude % 10000;
  if (decimals == 0) return text;
  text.push_back('.');
  for (std::uint64_t place = 1000; decimals != 0; place /= 10) {
    text.push_back(static_cast<char>('0' + decimals / place));
    decimals %= place;
  }
  return text;
}

}  // namespace zelnor
