#pragma once

#include "zelnor/common/process_state.h"
#include "zelnor/platform/host.h"

namespace zelnor {

/// The day that the rules take as today: the process's `SystemDate` where it is set, else the computer's
/// date.
inline Date Today() {
  const Date set = Process().SystemDate;
  return (set.IsZero() ? CurrentHost()->Now() : set).DayOnly();
}

}  // namespace zelnor
