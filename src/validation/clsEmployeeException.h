#pragma once

#include "zelnor/validation/error_record.h"

namespace zelnor {

class clsEmployee;

/// The record of a failed rule of an employee. The records of vlsEmployeeValidator::Errors are of this class:
///
/// @code
/// for (const Ref<ErrorRecord>& error : *validator.Errors()) {
///   const auto of_employee = std::dynamic_pointer_cast<clsEmployeeException>(error);
///   std::cout << of_employee->Employee()->EmployeeCode() << ": " << error->Description() << "\n";
/// }
/// @endcode
class ZELNOR_API clsEmployeeException : public ErrorRecord {
 public:
  clsEmployeeException() : ErrorRecord("clsEmployeeException") {}

  /// Fills all fields. Without a collection the inner exceptions stay as they are.
  ///
  /// @param objEmployee whom the failure concerns; no object where it concerns none in particular
  void Create(Ref<clsEmployee> objEmployee, String strSource, String strCode, String strTitle,
              String strDescription, String strFieldName, String strFieldValue, Integer enmExStatus,
              CollectionRef<ErrorRecord> colInnerExceptions = nullptr) {
    employee_ = std::move(objEmployee);
    ErrorRecord::Create(std::move(strSource), std::move(strCode), std::move(strTitle),
                        std::move(strDescription), std::move(strFieldName), std::move(strFieldValue),
                        enmExStatus, std::move(colInnerExceptions));
  }

  /// Whom the failure concerns; no object where it concerns none in particular.
  ///@{
  const Ref<clsEmployee>& Employee() const { return employee_; }
  void Employee(Ref<clsEmployee> value) { employee_ = std::move(value); }
  ///@}

 private:
  Ref<clsEmployee> employee_;
};

}  // namespace zelnor
