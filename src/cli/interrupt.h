#pragma once

/// @file
/// Signals that ask the program to stop. A command ends in good order first; another signal, two seconds
/// later, ends it at once.

#include <cstdio>
#include <optional>
#include <string>

namespace zelnor::cli {

/// Has the first SIGINT, SIGTERM or SIGHUP remembered.
void RememberSignals();

/// While it lives a signal ends the program at once, as while it waits for input and has done nothing yet.
class SignalsEndAtOnce {
 public:
  SignalsEndAtOnce();
  ~SignalsEndAtOnce();
  SignalsEndAtOnce(const SignalsEndAtOnce&) = delete;
  SignalsEndAtOnce& operator=(const SignalsEndAtOnce&) = delete;
};

/// A line that a person types at an open terminal, with its end; nothing when a signal or the end of input
/// came instead.
std::optional<std::string> TypedLine(std::FILE* terminal);

/// What the first signal writes to standard error, where the end may take a while; nothing for nullptr.
void NoticeOfInterrupt(const char* text);

/// The signal that was caught, 0 for none.
int CaughtSignal();

/// Takes the signal as obeyed, so that the program ends with an exit status of its own.
void ObeySignal();

/// Ends the program by the signal that was caught, if it was not obeyed.
void EndBySignal();

}  // namespace zelnor::cli
