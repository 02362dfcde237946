// The rules of other families that the walk over employments calls; none of them is there yet.

#include "zelnor/validation/vlsEmployeeValidator.h"

namespace zelnor {

bool vlsEmployeeValidator::ValidateFiguresOf(const Ref<clsEmployee>& /*objEmployee*/,
                                             const Ref<clsEmployment>& /*objEmployment*/,
                                             eRTISUBMISSIONTYPE /*eniType*/, const String& /*strErrKey*/) {
  return true;
}

bool vlsEmployeeValidator::ValidateNIOf(const Ref<clsEmployee>& /*objEmployee*/,
                                        const Ref<clsEmployment>& /*objEmployment*/,
                                        eRTISUBMISSIONTYPE /*eniType*/, const String& /*strErrKey*/) {
  return true;
}

bool vlsEmployeeValidator::ValidateDirectorOf(const Ref<clsEmployee>& /*objEmployee*/,
                                              const Ref<clsEmployment>& /*objEmployment*/,
                                              eRTISUBMISSIONTYPE /*eniType*/, const String& /*strErrKey*/) {
  return true;
}

bool vlsEmployeeValidator::ValidateSecondmentOf(const Ref<clsEmployee>& /*objEmployee*/,
                                                const Ref<clsEmployment>& /*objEmployment*/,
                                                const String& /*strErrKey*/) {
  return true;
}

bool vlsEmployeeValidator::ValidateTrivialCommutationOf(const Ref<clsEmployee>& /*objEmployee*/,
                                                        const Ref<clsEmployment>& /*objEmployment*/,
                                                        const String& /*strErrKey*/) {
  return true;
}

bool vlsEmployeeValidator::ValidateBenefitsOf(const Ref<clsEmployee>& /*objEmployee*/,
                                              const Ref<clsEmployment>& /*objEmployment*/,
                                              const String& /*strErrKey*/) {
  return true;
}

}  // namespace zelnor
