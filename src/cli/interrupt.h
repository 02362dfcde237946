#pragma once

/// @file
/// Signals that ask the program to stop. A command ends in good order first, so that the settings that it
/// changed are put back.

namespace zelnor::cli {

/// Has SIGINT, SIGTERM and SIGHUP remembered.
void RememberSignals();

/// The signal that was caught, 0 for none.
int CaughtSignal();

/// Takes the signal as obeyed, so that the program ends with an exit status of its own.
void ObeySignal();

/// Ends the program by the signal that was caught, if it was not obeyed.
void EndBySignal();

}  // namespace zelnor::cli
