#pragma once

#include "zelnor/platform/conversions.h"

namespace zelnor {

/// Seconds of wait where the gateway names none, or 99 and more.
inline constexpr Long kStandardInterval = 10;

/// How many seconds to wait before a poll (the first is 1), by the interval that the gateway told: -1 for
/// none at all. The more often it has polled, the longer it waits.
inline Long SecondsToPoll(Long told_interval, Long poll) {
  const bool standard = told_interval == 0 || told_interval >= 99;
  const Long interval = standard ? kStandardInterval : told_interval == -1 ? 0 : told_interval;
  if (poll <= 5) return interval;
  if (poll <= 12) return ToLong(static_cast<double>(interval) * 1.5);
  return poll <= 20 ? interval * 2 : interval * 3;
}

}  // namespace zelnor
