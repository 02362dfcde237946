#pragma once

/// @file
/// How a loop waits: it gives the application its turn and then rests, so that a waiting program uses next to
/// no processor time and still takes note of a cancel at once.

#include "zelnor/platform/host.h"

namespace zelnor {

/// How long a waiting loop rests between two turns, in milliseconds.
inline constexpr std::int64_t kRest = 10;

/// One turn of a waiting loop.
inline void YieldAndRest() {
  const std::shared_ptr<Host> host = CurrentHost();
  host->Yield();
  host->Sleep(kRest);
}

}  // namespace zelnor
