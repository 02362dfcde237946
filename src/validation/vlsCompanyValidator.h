#pragma once

#include "zelnor/validation/validator.h"

namespace zelnor {

class clsSubmission;

/// The rules of the employer's data. This version has none yet, and finds every document valid.
class ZELNOR_API vlsCompanyValidator : public Validator {
 public:
  vlsCompanyValidator() : Validator("CompanyValidationErrors") {}

  /// Whether the employer's data pass.
  bool ValidateCompany(clsSubmission& /*objsubmission*/) { return IsValid(); }
};

}  // namespace zelnor
