#pragma once

/// @file
/// The program's host.

#include "zelnor/platform/terminal_host.h"

#include <set>

namespace zelnor::cli {

/// Asks on the terminal where there is one, and says everything once: a fault of the settings or the log
/// would come up again with each of their uses.
class ProgramHost : public TerminalHost {
 public:
  Long MessageBox(const String& text, Long style, const String& title) override {
    if (said_.size() >= kMost || !said_.insert(text).second) return 1;
    return TerminalHost::MessageBox(text, style, title);
  }

 private:
  static constexpr std::size_t kMost = 1000;
  std::set<String> said_;
};

}  // namespace zelnor::cli
