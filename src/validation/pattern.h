#pragma once

/// @file
/// The patterns of the rules.

#include "zelnor/platform/regex.h"

#include <array>
#include <mutex>
#include <optional>

namespace zelnor {

/// A pattern of a rule, compiled when it is first needed and kept. Patterns are constants at file level:
///
/// @code
/// const Pattern kDigits("^[0-9]{10}$");
/// @endcode
class Pattern {
 public:
  explicit Pattern(String text) : text_(std::move(text)) {}
  Pattern(const Pattern&) = delete;
  Pattern& operator=(const Pattern&) = delete;

  /// Whether the pattern matches anywhere in the text. Raises error 5 for a pattern that is none.
  bool Test(std::string_view text, bool ignore_case = false) const {
    Compiled& compiled = compiled_[ignore_case ? 1 : 0];
    std::call_once(compiled.once, [&] { compiled.regex.emplace(text_, ignore_case); });
    return compiled.regex->Test(text);
  }

  /// The pattern itself, for one that is made of others.
  const String& Text() const { return text_; }

 private:
  struct Compiled {
    std::once_flag once;
    std::optional<Regex> regex;
  };

  String text_;
  mutable std::array<Compiled, 2> compiled_;
};

}  // namespace zelnor
