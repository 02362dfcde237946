#pragma once

#include "zelnor/validation/error_record.h"

namespace zelnor {

/// A record of the same form as clsException, for applications; no validator makes one.
class ZELNOR_API clsCompanyException : public ErrorRecord {
 public:
  clsCompanyException() : ErrorRecord("clsCompanyException") {}
};

}  // namespace zelnor
