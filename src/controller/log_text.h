#pragma once

/// @file
/// What the controller's log lines are made of.

#include "zelnor/platform/formats.h"
#include "zelnor/platform/host.h"

namespace zelnor {

/// The present moment, as the lines show it.
inline String LogMoment() { return Format(CurrentHost()->Now(), "Dd/Mm/yyyy Hh:Nn:Ss"); }

/// A number of milliseconds, as the lines show it.
inline String LogCount(std::int64_t number) { return Format(number, "#,##0"); }

/// The tick that times a run.
inline std::int64_t LogTick() { return CurrentHost()->Tick(); }

}  // namespace zelnor
