#pragma once

/// @file
/// Operations on text. All positions and lengths count UTF-16 code units, and positions begin at 1; on text
/// that is all ASCII they cost no more than the byte operation. A cut that would fall between the two halves
/// of a surrogate pair keeps the character whole in the part that begins with it.

#include "zelnor/platform/values.h"

#include <cstddef>
#include <vector>

namespace zelnor {

/// The number of UTF-16 code units.
ZELNOR_API std::size_t Length(std::string_view text);

/// The first `count` units; the whole text when it is shorter. A negative count raises error 5.
ZELNOR_API String Left(std::string_view text, std::ptrdiff_t count);

/// The last `count` units; the whole text when it is shorter. A negative count raises error 5.
ZELNOR_API String Right(std::string_view text, std::ptrdiff_t count);

/// `count` units from position `start` (1 is the first); to the end when `count` is left out. Empty when
/// `start` lies beyond the end. A start below 1 or a negative count raises error 5.
ZELNOR_API String Mid(std::string_view text, std::ptrdiff_t start);
ZELNOR_API String Mid(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t count);

/// The position of `what` at or behind position `start`, 0 when absent. Binary comparison. An empty `what` is
/// found at `start`, unless that lies beyond the end. A start of 0 raises error 5.
ZELNOR_API std::size_t Find(std::string_view text, std::string_view what, std::size_t start = 1);

/// Every occurrence of `what` replaced by `with`, in one pass. An empty `what` changes nothing.
ZELNOR_API String Replace(std::string_view text, std::string_view what, std::string_view with);

/// Without the blanks (U+0020) at both ends. Other white space stays.
ZELNOR_API String Trim(std::string_view text);

/// A view without the white space of XML (blank, tab, line feed, carriage return) at both ends.
ZELNOR_API std::string_view TrimXmlSpace(std::string_view text);

/// Unicode's simple case mappings, character by character. Bytes that are no UTF-8 stay as they are.
ZELNOR_API String UpperCase(std::string_view text);
ZELNOR_API String LowerCase(std::string_view text);

/// Compares ignoring case.
ZELNOR_API bool EqualIgnoringCase(std::string_view a, std::string_view b);

ZELNOR_API bool StartsWith(std::string_view text, std::string_view what);
ZELNOR_API bool EndsWith(std::string_view text, std::string_view what);

/// The UTF-16 code units of the text. Bytes that are no UTF-8 give U+FFFD each.
ZELNOR_API std::u16string ToUtf16(std::string_view text);

/// UTF-8 from UTF-16 code units. A lone surrogate gives U+FFFD.
ZELNOR_API String FromUtf16(std::u16string_view units);

/// Bytes in Windows-1252; a character outside that page becomes "?", and the five undefined bytes stand for
/// the control characters of the same number.
ZELNOR_API std::string ToAnsi(std::string_view text);

/// Text from bytes in Windows-1252.
ZELNOR_API String FromAnsi(std::string_view bytes);

/// Whether the bytes are well-formed UTF-8.
ZELNOR_API bool IsUtf8(std::string_view bytes);

}  // namespace zelnor
