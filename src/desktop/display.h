#pragma once

/// @file
/// The connection to the screen. Apart from the window, since the screen's own headers take many names.

namespace zelnor {

/// Opens the screen for the windows, unless it is open. False where there is none: to be asked before
/// anything is drawn or measured, which would otherwise end the process.
bool OpenDisplay();

}  // namespace zelnor
