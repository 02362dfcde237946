#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/validation/validator.h"

namespace zelnor {

class clsEmployee;

/// The rules of the employees. This version has none yet, and finds every employee valid.
class ZELNOR_API vlsEmployeeValidator : public Validator {
 public:
  vlsEmployeeValidator() : Validator("EmployeeValidationErrors") {}

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
  Long employees_checked_ = 0;
};

}  // namespace zelnor
