#pragma once

#include "zelnor/validation/validator.h"

namespace zelnor {

class clsSectionIRHeader;
class clsSubmission;

/// The rules of the employer's data.
class ZELNOR_API vlsCompanyValidator : public Validator {
 public:
  vlsCompanyValidator() : Validator({"vlsCompanyValidator", "CompanyValidationErrors", "Company", true}) {}

  /// Whether the employer's data pass.
  bool ValidateCompany(clsSubmission& /*objsubmission*/) { return IsValid(); }

  /// The surname of the principal contact: present, of at most 35 characters and of allowed ones (E5.1).
  bool ValidateContactSurname(const Ref<clsSectionIRHeader>& objIRHeader, const String& strErrKey = {});
};

}  // namespace zelnor
