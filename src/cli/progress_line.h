#pragma once

#include "zelnor/platform/values.h"

#include <cstddef>

namespace zelnor::cli {

/// One line on the terminal's standard error that is written over; nothing where nobody looks on.
class ProgressLine {
 public:
  ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ~ProgressLine() { End(); }

  /// Shows a text in place of the one before, cut to the terminal's width; a percentage above 0 stands behind
  /// it whole.
  void Show(const String& text, Long percent = 0);

  /// Takes the line away.
  void End();

 private:
  bool on_terminal_;
  std::size_t shown_ = 0;
};

}  // namespace zelnor::cli
