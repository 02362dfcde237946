#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/validation/validator.h"

#include <string_view>
#include <utility>

namespace zelnor {

class clsEmployee;

/// The rules of the employees. This version has none yet, and finds every employee valid.
class ZELNOR_API vlsEmployeeValidator : public Validator {
 public:
  vlsEmployeeValidator()
      : Validator({"vlsEmployeeValidator", "EmployeeValidationErrors", "Employee", false}) {}

  /// Whether all employees pass. The tax year is empty for documents without one.
  bool ValidateEmployees(const CollectionRef<clsEmployee>& colEmployees, eRTISUBMISSIONTYPE /*eniType*/,
                         const String& /*strCurrentTaxYear*/) {
    employees_checked_ = colEmployees ? colEmployees->Count() : 0;
    return IsValid();
  }

  /// The numbers of employees that the last run looked at, and of those that passed and failed.
  ///@{
  Long EmployeesChecked() const { return employees_checked_; }
  Long ValidEmployees() const { return employees_checked_; }
  Long InvalidEmployees() const { return 0; }
  ///@}

 private:
  /// Runs a rule on a field of an employee, whom its records then name; see Validator::Check.
  template <class Body>
  bool CheckOf(const Ref<clsEmployee>& objEmployee, const Rule& rule, std::string_view prefix, Body&& body,
               bool blnRaiseErrors = true) {
    concerned_ = objEmployee;
    return Check(rule, prefix, std::forward<Body>(body), blnRaiseErrors);
  }

  Ref<ErrorRecord> NewRecord() const override;
  Concerned ConcernedBy(const ErrorRecord& record) const override;

  Ref<clsEmployee> concerned_;
  Long employees_checked_ = 0;
};

}  // namespace zelnor
