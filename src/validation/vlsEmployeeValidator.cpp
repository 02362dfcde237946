#include "zelnor/validation/vlsEmployeeValidator.h"

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployeeNameType.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/validation/clsEmployeeException.h"

namespace zelnor {

Ref<ErrorRecord> vlsEmployeeValidator::NewRecord() const {
  auto record = std::make_shared<clsEmployeeException>();
  record->Employee(concerned_);
  return record;
}

// "N/A" all over for the record of a walk that broke off, which names nobody.
Validator::Concerned vlsEmployeeValidator::ConcernedBy(const ErrorRecord& record) const {
  const auto* of_employee = dynamic_cast<const clsEmployeeException*>(&record);
  if (of_employee == nullptr || !of_employee->Employee()) return {};
  clsEmployee& employee = *of_employee->Employee();
  const Ref<clsEmployeeNameType> name = Required(employee.EmployeeDetails()).Contact();
  return {employee.EmployeeKey(), ToText(employee.CompanyId()), ToText(employee.EmployeeId()),
          Required(name).Surname() + ", " + name->Initials(), employee.EmployeeCode()};
}

}  // namespace zelnor
