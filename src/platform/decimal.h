#pragma once

/// @file
/// Numbers as decimal digits, for conversions and formats that must round on the digits a person sees. Not
/// for applications.

#include "zelnor/platform/values.h"

#include <cstdint>

namespace zelnor {

/// A number as 0.DIGITS times ten to the power of `point`.
struct Decimal {
  bool negative = false;
  std::string digits;  ///< "0" to "9" only; zeros at both ends are allowed, and no digits at all mean zero
  std::int64_t point = 0;

  /// The number times ten to the power of `decimals` as a whole number, halves rounded to even. Raises error
  /// 6 when it doesn't fit.
  std::int64_t Scaled(int decimals) const;

  /// The nearest floating number; never minus zero. Raises error 6 when it is too large.
  double Nearest() const;
};

/// The shortest decimal that means this floating number. Raises error 6 for an infinity or no number.
Decimal DecimalOf(double value);

/// The decimal of this floating number in at most 15 significant digits. Raises error 6 likewise.
Decimal DecimalOf15(double value);

}  // namespace zelnor
