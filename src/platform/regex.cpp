#include "zelnor/platform/regex.h"

#include "zelnor/platform/failure.h"
#include "zelnor/platform/text.h"

#include <re2/re2.h>

namespace zelnor {
namespace {

/// The members of `\s` as the patterns mean it: the matcher's own `\s` knows neither the vertical tab nor any
/// space outside ASCII.
constexpr std::string_view kSpaces =
    R"(\t\n\v\f\r \x{A0}\x{1680}\x{2000}-\x{200A}\x{2028}\x{2029}\x{202F}\x{205F}\x{3000}\x{FEFF})";

/// The memory that one compiled pattern may take, and its matcher's cache likewise.
constexpr std::int64_t kMaxMemory = 8 << 20;

/// The pattern with `\s` and `\S` written out.
std::string WithSpacesWrittenOut(std::string_view pattern) {
  std::string result;
  result.reserve(pattern.size());
  bool in_class = false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char c = pattern[i];
    if (c == '\\' && i + 1 < pattern.size()) {
      const char escaped = pattern[++i];
      if (escaped == 's' && in_class) {
        result.append(kSpaces);
      } else if (escaped == 's') {
        result.append("[").append(kSpaces).append("]");
      } else if (escaped == 'S' && !in_class) {
        result.append("[^").append(kSpaces).append("]");
      } else {
        result.push_back(c);
        result.push_back(escaped);
      }
      continue;
    }
    if (c == '[') in_class = true;
    if (c == ']') in_class = false;
    result.push_back(c);
  }
  return result;
}

RE2::Options OptionsFor(bool ignore_case) {
  RE2::Options options;
  options.set_encoding(RE2::Options::EncodingUTF8);
  options.set_case_sensitive(!ignore_case);
  options.set_max_mem(kMaxMemory);
  options.set_never_capture(true);
  options.set_log_errors(false);
  return options;
}

}  // namespace

struct Regex::Compiled {
  Compiled(std::string_view pattern, bool ignoring_case)
      : matcher(WithSpacesWrittenOut(pattern), OptionsFor(ignoring_case)), ignore_case(ignoring_case) {}

  RE2 matcher;
  bool ignore_case;
};

Regex::Regex(std::string_view pattern, bool ignore_case)
    : compiled_(std::make_shared<const Compiled>(pattern, ignore_case)) {
  if (!compiled_->matcher.ok()) ThrowInvalidArgument();
}

// The matcher takes the long s and the sign of Kelvin for letters of the alphabet in another case; the
// patterns don't.
bool Regex::Test(std::string_view text) const {
  if (compiled_->ignore_case) {
    constexpr std::string_view kLongS = "\u017F";
    constexpr std::string_view kKelvin = "\u212A";
    if (text.find(kLongS) != std::string_view::npos || text.find(kKelvin) != std::string_view::npos) {
      const String neither = Replace(Replace(text, kLongS, "\uFFFD"), kKelvin, "\uFFFD");
      return RE2::PartialMatch(neither, compiled_->matcher);
    }
  }
  return RE2::PartialMatch(re2::StringPiece(text.data(), text.size()), compiled_->matcher);
}

}  // namespace zelnor
