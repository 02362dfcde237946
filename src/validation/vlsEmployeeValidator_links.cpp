#include "zelnor/validation/vlsEmployeeValidator.h"

namespace zelnor {

// This version has no rules of the employments yet.
bool vlsEmployeeValidator::ValidateEmployments(const Ref<clsEmployee>& /*objEmployee*/,
                                               eRTISUBMISSIONTYPE /*eniType*/, const String& /*key*/) {
  return true;
}

}  // namespace zelnor
