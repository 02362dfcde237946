#include "zelnor/validation/error_record.h"

namespace zelnor {

ErrorRecord::~ErrorRecord() = default;

void ErrorRecord::Create(String strSource, String strCode, String strTitle, String strDescription,
                         String strFieldName, String strFieldValue, Integer enmExStatus,
                         CollectionRef<ErrorRecord> colInnerExceptions) {
  source_ = std::move(strSource);
  code_ = std::move(strCode);
  title_ = std::move(strTitle);
  description_ = std::move(strDescription);
  field_name_ = std::move(strFieldName);
  field_value_ = std::move(strFieldValue);
  status_ = enmExStatus;
  if (colInnerExceptions) inner_exceptions_ = std::move(colInnerExceptions);
}

void ErrorRecord::AddInnerException(const Ref<ErrorRecord>& excInnerException) {
  try {
    if (!inner_exceptions_) inner_exceptions_ = MakeCollection<ErrorRecord>();
    inner_exceptions_->Add(excInnerException, Required(excInnerException).Source());
  } catch (...) {
    ReportError(CurrentError(), class_name_, "Sub AddInnerException");
    throw;
  }
}

String SeverityText(Integer status) {
  switch (status) {
    case 0:
      return "Information";
    case 1:
      return "Minor";
    case 2:
      return "Warning";
    default:
      return "Critical";
  }
}

}  // namespace zelnor
