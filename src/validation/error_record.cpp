#include "zelnor/validation/error_record.h"

namespace zelnor {

ErrorRecord::~ErrorRecord() = default;

}  // namespace zelnor
