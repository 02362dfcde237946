#pragma once

/// @file
/// The dialog on a terminal.
///
/// @code
/// if (zelnor::TerminalHost::IsOnTerminal()) zelnor::SetHost(std::make_shared<zelnor::TerminalHost>());
/// @endcode

#include "zelnor/platform/host.h"

#include <mutex>

namespace zelnor {

/// A host that asks the dialog's question on the terminal; all else is as with the DefaultHost.
///
/// The question is written as plain text, and nothing of it is told by colour alone. A button's letter in
/// brackets presses it at once, the arrows and Tab move the mark `> <`, Enter presses the marked button, and
/// the space bar ticks the check box. On a terminal that can't move its cursor (`TERM` empty or "dumb"), or
/// is too narrow for the buttons, the letter is typed and sent off with Enter, and "x" ticks the check box.
/// Escape, Ctrl-D and the end of input answer "cancel" (2), as does Ctrl-C, which then interrupts the program
/// as ever.
class ZELNOR_API TerminalHost : public DefaultHost {
 public:
  /// Reads from one open file and writes to the other; standard input and standard error at first. They are
  /// never closed.
  explicit TerminalHost(int input = 0, int output = 2);

  /// Whether standard input and standard error are a terminal, so that somebody can be asked.
  static bool IsOnTerminal();

  /// Asks, and keeps the message as the DefaultHost does. Where one of the two files is no terminal, the
  /// DefaultHost answers. Questions of several threads are asked one after the other.
  DialogAnswer ShowDialog(const DialogRequest& request) override;

 private:
  int input_;
  int output_;
  std::mutex asking_;
};

}  // namespace zelnor
