#pragma once

/// @file
/// The values that all controllers of the process share.

#include "zelnor/platform/values.h"

namespace zelnor {

/// One value each for the whole process.
struct ProcessState {
  Date SystemDate;  ///< when not zero, the date that rules and envelope take as today
  Long SystemDebugLevel =
      0;  ///< 1 when the setting `SystemDebug` is on; then duplicate NI letters are looked for
  Long RememberedIssueResponse = -1;  ///< the remembered answer to a duplicate NI letter, -1 for none
};

/// The process's values.
ZELNOR_API ProcessState& Process();

}  // namespace zelnor
