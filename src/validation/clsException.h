#pragma once

#include "zelnor/validation/error_record.h"

namespace zelnor {

/// The record of a failed rule of the envelope, the employer's data or an Employer Payment Summary, and of a
/// schema error.
class ZELNOR_API clsException : public ErrorRecord {
 public:
  clsException() : ErrorRecord("clsException") {}
};

}  // namespace zelnor
