#pragma once

/// @file
/// The rule of an e-mail address, which the principal contact and the sender of an envelope share.

#include "zelnor/validation/validator.h"

namespace zelnor {

/// Tests the found value as an e-mail address, and returns whether it passed; an empty one passes.
ZELNOR_INTERNAL bool CheckEmailAddress(Finding& found);

}  // namespace zelnor
