#pragma once

#include "zelnor/validation/validator.h"

namespace zelnor {

class clsGovTalkMessage;

/// The rules of the envelope. This version has none yet, and finds every envelope valid.
class ZELNOR_API vlsFileValidator : public Validator {
 public:
  vlsFileValidator() : Validator({"vlsFileValidator", "FileValidationErrors", "File", false}) {}

  /// Whether the envelope passes.
  bool ValidateFile(clsGovTalkMessage& /*objsubmission*/) { return IsValid(); }
};

}  // namespace zelnor
