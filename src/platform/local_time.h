#pragma once

/// @file
/// The system's clock values as dates of the local calendar.

#include "zelnor/platform/values.h"

#include <ctime>

namespace zelnor {

/// A moment as the local date and time of day, with as much of the nanoseconds as a Date can hold. Raises
/// error 75 for a moment that no calendar can tell.
ZELNOR_INTERNAL Date LocalDate(const std::timespec& moment);

}  // namespace zelnor
