#pragma once

#include "zelnor/common/process_state.h"
#include "zelnor/platform/host.h"

namespace zelnor {

/// The moment that rules with a margin of days take as today: the process's `SystemDate` without its time
/// where it is set, else the computer's date and time.
inline Date TodayNow() {
  const Date set = Process().SystemDate;
  return set.IsZero() ? CurrentHost()->Now() : set.DayOnly();
}

/// The day that the rules take as today: the process's `SystemDate` where it is set, else the computer's
/// date.
inline Date Today() { return TodayNow().DayOnly(); }

}  // namespace zelnor
