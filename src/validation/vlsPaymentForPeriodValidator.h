#pragma once

#include "zelnor/validation/validator.h"

namespace zelnor {

class clsSectionEPS;

/// The rules of an Employer Payment Summary. This version has none yet, and finds every summary valid.
class ZELNOR_API vlsPaymentForPeriodValidator : public Validator {
 public:
  vlsPaymentForPeriodValidator()
      : Validator({"vlsPaymentForPeriodValidator", "PaymentForPeriodValidationErrors", "Payment For Period",
                   false}) {}

  /// Whether the summary passes.
  bool ValidateEPS(clsSectionEPS& /*objEPS*/) { return IsValid(); }
};

}  // namespace zelnor
