// The operations on text, held against the plain operations on its code units.

#include "zelnor/platform/failure.h"
#include "zelnor/platform/regex.h"
#include "zelnor/platform/text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "require.h"

namespace {

using namespace zelnor;

bool IsLowHalf(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// The cut at `position`, moved behind the surrogate pair that it would halve.
std::size_t WholeCut(const std::u16string& units, std::size_t position) {
  position = std::min(position, units.size());
  const bool halves = position > 0 && position < units.size() && IsLowHalf(units[position]);
  return halves ? position + 1 : position;
}

void CheckCuts(const String& text, const std::u16string& units, std::size_t at, std::size_t count) {
  const std::size_t first = WholeCut(units, at);
  const std::size_t last = std::max(first, WholeCut(units, at + count));
  const auto position = static_cast<std::ptrdiff_t>(at);
  const auto length = static_cast<std::ptrdiff_t>(count);
  REQUIRE(ToUtf16(Left(text, position)) == units.substr(0, first));
  REQUIRE(ToUtf16(Mid(text, position + 1)) == units.substr(first));
  REQUIRE(ToUtf16(Mid(text, position + 1, length)) == units.substr(first, last - first));
  const std::size_t tail = units.size() - std::min(count, units.size());
  REQUIRE(ToUtf16(Right(text, length)) == units.substr(WholeCut(units, tail)));
}

void CheckSearch(const String& text, const std::u16string& units, const String& what, std::size_t start) {
  const std::size_t from = WholeCut(units, start);
  const std::size_t expected = from < units.size() ? units.find(ToUtf16(what), from) : std::u16string::npos;
  REQUIRE(Find(text, what, start + 1) == (expected == std::u16string::npos ? 0 : expected + 1));
  const String without = Replace(text, what, "");
  REQUIRE(without.size() <= text.size());
  REQUIRE(Replace(text, what, what) == text);
}

void CheckAnyBytes(std::string_view bytes) {
  REQUIRE(ToUtf16(bytes).size() == Length(bytes));
  REQUIRE(Left(bytes, static_cast<std::ptrdiff_t>(Length(bytes))) == bytes);
  REQUIRE(IsUtf8(FromUtf16(ToUtf16(bytes))));
  REQUIRE(IsUtf8(bytes) == (FromUtf16(ToUtf16(bytes)) == bytes));
  REQUIRE(ToAnsi(FromAnsi(bytes)) == bytes);
  REQUIRE(IsUtf8(FromAnsi(bytes)));
  REQUIRE(ToAnsi(bytes).size() <= bytes.size());
  REQUIRE(LowerCase(LowerCase(bytes)) == LowerCase(bytes));
  REQUIRE(EqualIgnoringCase(bytes, LowerCase(bytes)));
  const String trimmed = Trim(bytes);
  REQUIRE(trimmed.empty() || (trimmed.front() != ' ' && trimmed.back() != ' '));
  REQUIRE(Trim(trimmed) == trimmed);
}

void CheckPattern(std::string_view pattern, std::string_view text) {
  try {
    const Regex regex(pattern);
    REQUIRE(regex.Test(text) == regex.Test(text));
  } catch (const RuntimeError& error) {
    REQUIRE(error.Number() == 5);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3) return 0;
  const std::size_t at = data[0] % 32;
  const std::size_t count = data[1] % 32;
  const std::string_view bytes(reinterpret_cast<const char*>(data + 2), size - 2);
  CheckAnyBytes(bytes);
  CheckPattern(bytes.substr(0, std::min(bytes.size(), at * 2)), bytes);

  const String text = FromUtf16(ToUtf16(bytes));  // well-formed, with U+FFFD for all else
  const std::u16string units = ToUtf16(text);
  CheckCuts(text, units, at, count);
  CheckSearch(text, units, Mid(text, static_cast<std::ptrdiff_t>(count) + 1, 2), at);
  return 0;
}
