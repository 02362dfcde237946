#pragma once

/// @file
/// Regular expressions in linear time.

#include "zelnor/platform/values.h"

#include <memory>

namespace zelnor {

/// A compiled pattern with the syntax of ECMAScript's character classes, counted repeats, `\s` and
/// alternation. Patterns are not anchored unless they carry their own anchors; `$` means the very end of the
/// text. Pattern and text are UTF-8, counts are in characters, `\s` is any white space of Unicode, and bytes
/// that are no UTF-8 match nothing. Compiling takes far longer than a test: keep the object. Copies share the
/// compiled pattern, also between threads.
class ZELNOR_API Regex {
 public:
  /// Raises error 5 for a pattern that can't be compiled, or only with more than 8 MB of memory.
  explicit Regex(std::string_view pattern, bool ignore_case = false);

  /// True when the pattern matches anywhere in the text.
  bool Test(std::string_view text) const;

 private:
  struct Compiled;
  std::shared_ptr<const Compiled> compiled_;
};

}  // namespace zelnor
