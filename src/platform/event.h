#pragma once

/// @file
/// Events: raised on the caller's thread, one handler after the other, in the order in which they were
/// connected.

#include <sigc++/sigc++.h>

namespace zelnor {

/// An event with these arguments. Connect a handler with `connect`, raise the event by calling it.
///
/// @code
/// rti.events.ControllerStatus.connect([](const String& stage, const String& detail, Long percent) { ... });
/// @endcode
template <class... Args>
using Event = sigc::signal<void(Args...)>;

}  // namespace zelnor
