#include "zelnor/platform/text.h"

#include "zelnor/platform/failure.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include <utf8proc.h>

namespace zelnor {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// One character of a text and the number of bytes that it takes.
struct Decoded {
  char32_t character;
  std::size_t bytes;
  bool valid;
};

bool IsAsciiByte(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

/// The index of the first byte at or behind `from` that is not ASCII, or the size of the text.
std::size_t SkipAscii(std::string_view text, std::size_t from) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080U;
  while (from + sizeof(std::uint64_t) <= text.size()) {
    std::uint64_t block;
    std::memcpy(&block, text.data() + from, sizeof block);
    if ((block & kHighBits) != 0) break;
    from += sizeof block;
  }
  while (from < text.size() && IsAsciiByte(text[from])) ++from;
  return from;
}

bool IsAscii(std::string_view text) { return SkipAscii(text, 0) == text.size(); }

/// The character that begins at `at`. A byte that begins no well-formed character stands for U+FFFD by
/// itself.
Decoded Decode(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t offset) { return static_cast<unsigned char>(text[at + offset]); };
  const Decoded broken{kReplacement, 1, false};
  const unsigned char lead = byte(0);
  if (lead < 0x80) return {lead, 1, true};

  std::size_t size = 0;
  char32_t character = 0;
  char32_t smallest = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    size = 2, character = lead & 0x1FU, smallest = 0x80;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    size = 3, character = lead & 0x0FU, smallest = 0x800;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    size = 4, character = lead & 0x07U, smallest = 0x10000;
  } else {
    return broken;
  }
  if (at + size > text.size()) return broken;
  for (std::size_t offset = 1; offset < size; ++offset) {
    if ((byte(offset) & 0xC0U) != 0x80U) return broken;
    character = (character << 6U) | (byte(offset) & 0x3FU);
  }
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (character < smallest || character > 0x10FFFF || surrogate) return broken;
  return {character, size, true};
}

std::size_t UnitsOf(char32_t character) { return character >= 0x10000 ? 2 : 1; }

void AppendUtf8(String& to, char32_t character) {
  const auto put = [&](char32_t byte) { to.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xC0U | (character >> 6U));
    put(0x80U | (character & 0x3FU));
  } else if (character < 0x10000) {
    put(0xE0U | (character >> 12U));
    put(0x80U | ((character >> 6U) & 0x3FU));
    put(0x80U | (character & 0x3FU));
  } else {
    put(0xF0U | (character >> 18U));
    put(0x80U | ((character >> 12U) & 0x3FU));
    put(0x80U | ((character >> 6U) & 0x3FU));
    put(0x80U | (character & 0x3FU));
  }
}

/// The byte index of the boundary that lies `units` code units behind `from`; one that would fall inside a
/// character lies behind it, and one beyond the end is the end.
std::size_t Advance(std::string_view text, std::size_t from, std::size_t units) {
  std::size_t at = from;
  while (units > 0 && at < text.size()) {
    const std::string_view within = text.substr(0, at + std::min(units, text.size() - at));
    const std::size_t run = SkipAscii(within, at) - at;
    at += run;
    units -= run;
    if (units == 0 || at == text.size()) break;
    const Decoded next = Decode(text, at);
    at += next.bytes;
    units -= std::min(units, UnitsOf(next.character));
  }
  return at;
}

char UpperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

char32_t UpperCharacter(char32_t character) {
  constexpr char32_t kSharpS = 0xDF;  // has no simple mapping, but the case library gives it a capital letter
  if (character == kSharpS) return character;
  return static_cast<char32_t>(utf8proc_toupper(static_cast<utf8proc_int32_t>(character)));
}

char32_t LowerCharacter(char32_t character) {
  return static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(character)));
}

/// Maps ASCII characters with one function and all others with another; bytes that are no UTF-8 stay as they
/// are.
template <class AsciiMap, class CharacterMap>
String Mapped(std::string_view text, AsciiMap ascii_map, CharacterMap character_map) {
  String result;
  result.reserve(text.size());
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t run_end = SkipAscii(text, at);
    const std::size_t filled = result.size();
    result.append(text, at, run_end - at);
    std::transform(result.begin() + static_cast<std::ptrdiff_t>(filled), result.end(),
                   result.begin() + static_cast<std::ptrdiff_t>(filled), ascii_map);
    at = run_end;
    if (at == text.size()) break;
    const Decoded next = Decode(text, at);
    if (next.valid) {
      AppendUtf8(result, character_map(next.character));
    } else {
      result.push_back(text[at]);
    }
    at += next.bytes;
  }
  return result;
}

/// The characters of Windows-1252 from 0x80 to 0x9F.
constexpr std::array<char16_t, 32> kAnsiHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char AnsiByte(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(static_cast<unsigned char>(character));
  }
  const auto* const found = std::find(kAnsiHigh.begin(), kAnsiHigh.end(), character);
  if (found == kAnsiHigh.end()) return '?';
  return static_cast<char>(static_cast<unsigned char>(0x80 + (found - kAnsiHigh.begin())));
}

}  // namespace

std::size_t Length(std::string_view text) {
  std::size_t at = SkipAscii(text, 0);
  std::size_t units = at;
  while (at < text.size()) {
    const Decoded next = Decode(text, at);
    units += UnitsOf(next.character);
    at += next.bytes;
    const std::size_t run_end = SkipAscii(text, at);
    units += run_end - at;
    at = run_end;
  }
  return units;
}

String Left(std::string_view text, std::ptrdiff_t count) {
  if (count < 0) ThrowInvalidArgument();
  return String(text.substr(0, Advance(text, 0, static_cast<std::size_t>(count))));
}

String Right(std::string_view text, std::ptrdiff_t count) {
  if (count < 0) ThrowInvalidArgument();
  const auto wanted = static_cast<std::size_t>(count);
  if (wanted >= text.size()) return String(text);  // a text never has more units than bytes
  const std::string_view tail = text.substr(text.size() - wanted);
  if (IsAscii(tail)) return String(tail);
  const std::size_t length = Length(text);
  if (wanted >= length) return String(text);
  return String(text.substr(Advance(text, 0, length - wanted)));
}

String Mid(std::string_view text, std::ptrdiff_t start) {
  if (start < 1) ThrowInvalidArgument();
  return String(text.substr(Advance(text, 0, static_cast<std::size_t>(start) - 1)));
}

String Mid(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t count) {
  if (start < 1 || count < 0) ThrowInvalidArgument();
  const auto before = static_cast<std::size_t>(start) - 1;
  const std::size_t first = Advance(text, 0, before);
  const auto wanted = static_cast<std::size_t>(count);
  // Behind other characters than ASCII the start may have moved to the end of a surrogate pair, so the end is
  // counted from the front as well.
  const std::size_t last = first == before ? Advance(text, first, wanted) : Advance(text, 0, before + wanted);
  return String(text.substr(first, last - first));
}

std::size_t Find(std::string_view text, std::string_view what, std::size_t start) {
  if (start < 1) ThrowInvalidArgument();
  const std::size_t from = Advance(text, 0, start - 1);
  if (from >= text.size()) return 0;
  const std::size_t found = text.find(what, from);
  if (found == std::string_view::npos) return 0;
  return Length(text.substr(0, found)) + 1;
}

String Replace(std::string_view text, std::string_view what, std::string_view with) {
  std::size_t found = what.empty() ? std::string_view::npos : text.find(what);
  if (found == std::string_view::npos) return String(text);
  String result;
  result.reserve(text.size());
  std::size_t at = 0;
  while (found != std::string_view::npos) {
    result.append(text, at, found - at);
    result.append(with);
    at = found + what.size();
    found = text.find(what, at);
  }
  result.append(text, at, text.size() - at);
  return result;
}

String Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const std::size_t last = text.find_last_not_of(' ');
  return String(text.substr(first, last - first + 1));
}

std::string_view TrimXmlSpace(std::string_view text) {
  constexpr std::string_view kSpace = " \t\n\r";
  const std::size_t first = text.find_first_not_of(kSpace);
  if (first == std::string_view::npos) return {};
  const std::size_t last = text.find_last_not_of(kSpace);
  return text.substr(first, last - first + 1);
}

String UpperCase(std::string_view text) { return Mapped(text, UpperAscii, UpperCharacter); }

String LowerCase(std::string_view text) { return Mapped(text, LowerAscii, LowerCharacter); }

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  const std::size_t shared = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < shared; ++i) {
    // A character's case forms may differ in size, so from the first one outside ASCII all of the rest is
    // mapped.
    if (!IsAsciiByte(a[i]) || !IsAsciiByte(b[i])) return LowerCase(a.substr(i)) == LowerCase(b.substr(i));
    if (LowerAscii(a[i]) != LowerAscii(b[i])) return false;
  }
  return a.size() == b.size();
}

bool StartsWith(std::string_view text, std::string_view what) { return text.starts_with(what); }

bool EndsWith(std::string_view text, std::string_view what) { return text.ends_with(what); }

std::u16string ToUtf16(std::string_view text) {
  std::u16string units;
  units.reserve(text.size());
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t run_end = SkipAscii(text, at);
    units.append(text.begin() + at, text.begin() + run_end);
    at = run_end;
    if (at == text.size()) break;
    const Decoded next = Decode(text, at);
    if (next.character >= 0x10000) {
      units.push_back(static_cast<char16_t>(0xD800 + ((next.character - 0x10000) >> 10U)));
      units.push_back(static_cast<char16_t>(0xDC00 + ((next.character - 0x10000) & 0x3FFU)));
    } else {
      units.push_back(static_cast<char16_t>(next.character));
    }
    at += next.bytes;
  }
  return units;
}

String FromUtf16(std::u16string_view units) {
  const auto is_high = [](char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; };
  const auto is_low = [](char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; };
  String text;
  text.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    char32_t character = units[i];
    if (is_high(units[i]) && i + 1 < units.size() && is_low(units[i + 1])) {
      character = 0x10000U + ((character - 0xD800U) << 10U) + (units[i + 1] - 0xDC00U);
      ++i;
    } else if (is_high(units[i]) || is_low(units[i])) {
      character = kReplacement;
    }
    AppendUtf8(text, character);
  }
  return text;
}

std::string ToAnsi(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t run_end = SkipAscii(text, at);
    bytes.append(text, at, run_end - at);
    at = run_end;
    if (at == text.size()) break;
    const Decoded next = Decode(text, at);
    bytes.push_back(AnsiByte(next.character));
    at += next.bytes;
  }
  return bytes;
}

String FromAnsi(std::string_view bytes) {
  String text;
  text.reserve(bytes.size());
  std::size_t at = 0;
  while (at < bytes.size()) {
    const std::size_t run_end = SkipAscii(bytes, at);
    text.append(bytes, at, run_end - at);
    at = run_end;
    if (at == bytes.size()) break;
    const auto byte = static_cast<unsigned char>(bytes[at]);
    AppendUtf8(text, byte < 0xA0 ? char32_t{kAnsiHigh[byte - 0x80U]} : char32_t{byte});
    ++at;
  }
  return text;
}

bool IsUtf8(std::string_view bytes) {
  std::size_t at = SkipAscii(bytes, 0);
  while (at < bytes.size()) {
    const Decoded next = Decode(bytes, at);
    if (!next.valid) return false;
    at = SkipAscii(bytes, at + next.bytes);
  }
  return true;
}

}  // namespace zelnor
