#pragma once

/// @file
/// Conversions between text and values, always by the customs of the United Kingdom whatever the process's
/// locale says: decimal point ".", group comma, currency sign "£", day before month.
///
/// Text to number takes blanks and tabs around it; one sign in front or behind, or round brackets for a
/// negative; an optional "£"; group commas anywhere before the decimal point; an exponent E or D; and the
/// prefixes `&H` and `&O`, which stand without sign, commas or "£". Empty text or anything else raises error
/// 13, a number out of range error 6.

#include "zelnor/platform/values.h"

namespace zelnor {

ZELNOR_API double ToDouble(std::string_view text);

/// Rounds halves to even at four decimals.
ZELNOR_API Currency ToCurrency(std::string_view text);

/// Rounds halves to even.
ZELNOR_API Integer ToInteger(std::string_view text);
ZELNOR_API Integer ToInteger(double value);

/// Rounds halves to even.
ZELNOR_API Long ToLong(std::string_view text);
ZELNOR_API Long ToLong(double value);

/// "True", "False", "yes" and "no" in any case, or a number (not zero is True); anything else raises
/// error 13.
ZELNOR_API bool ToBoolean(std::string_view text);

/// True exactly where ToDouble succeeds.
ZELNOR_API bool IsNumeric(std::string_view text);

/// The longest numeric prefix (sign, digits, decimal point, exponent; or `&H` and `&O`), with blanks, tabs
/// and line feeds skipped; 0 when there is none. Never raises an error: a number out of range gives the
/// largest there is.
ZELNOR_API double LeadingNumber(std::string_view text);

/// `yyyy-mm-dd`; `d/m/yyyy` (also with "-" or "."; day and month change places only where the first reading
/// is no date); `d mmm yyyy`, `d mmmm yyyy`, `mmm d, yyyy`; each may be followed by a blank and `h:nn` or
/// `h:nn:ss`, with or without AM or PM; or a time alone. Two-digit years 00 to 29 are 2000 to 2029, 30 to 99
/// are 1930 to 1999; months are named in English, in any case. Blanks around the text are skipped. Anything
/// else raises error 13.
ZELNOR_API Date ToDate(std::string_view text);

/// True exactly where ToDate succeeds.
ZELNOR_API bool IsDate(std::string_view text);

/// "True" or "False".
ZELNOR_API String ToText(bool value);

/// Plain decimal.
ZELNOR_API String ToText(Integer value);
ZELNOR_API String ToText(Long value);

/// Plain decimal with at most 15 significant digits, no trailing zeros, no group separator. Magnitudes of
/// 1E15 and above are written with an exponent, as are those too small for 15 decimals.
ZELNOR_API String ToText(double value);

/// Plain decimal with all digits of the amount, no trailing zeros, no group separator.
ZELNOR_API String ToText(Currency value);

/// `dd/mm/yyyy`, with a time part `dd/mm/yyyy hh:nn:ss`.
ZELNOR_API String ToText(Date value);

}  // namespace zelnor
