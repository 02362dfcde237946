#pragma once

/// @file
/// Numbers and dates by pattern. Decimals are rounded half away from zero; "-" stands in front of a negative
/// amount, and not where the rounded amount is zero.

#include "zelnor/platform/values.h"

namespace zelnor {

/// "#0.00": money as documents carry it. At least one digit, two decimals, no group separator.
ZELNOR_API String FormatMoney(Currency value);

/// A number by one of the patterns of zeros, "#", "," and ".": "#0.00", "#,##0", "0.00", "0", "00" and their
/// like. Text in front of the pattern and behind it stands for itself. A floating number is rounded on its 15
/// significant digits. Raises error 5 for a pattern without a place for a digit.
ZELNOR_API String Format(Currency value, std::string_view pattern);
ZELNOR_API String Format(double value, std::string_view pattern);
ZELNOR_API String Format(std::int64_t value, std::string_view pattern);
inline String Format(int value, std::string_view pattern) { return Format(std::int64_t{value}, pattern); }

/// A date by a pattern of `yyyy`, `yy`, `mmmm` (the name), `mm`, `m`, `dd`, `d`, `hh`, `h`, `nn`, `n`, `ss`
/// and `s` in any case; `mm` right behind the hours is minutes; all other characters stand for themselves.
ZELNOR_API String Format(Date value, std::string_view pattern);

}  // namespace zelnor
