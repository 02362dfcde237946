#pragma once

/// @file
/// Employees with payments for the tests of sections.

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsNILettersAndValues.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/documents/clsStarter.h"

namespace zelnor::test {

/// An employee without employments.
inline Ref<clsEmployee> NewEmployee(const String& nino = "AB123456C") {
  auto employee = std::make_shared<clsEmployee>();
  employee->EmployeeDetails()->NINO(nino);
  return employee;
}

/// A new employment of an employee, with an empty payment of this period.
inline clsEmployment& AddEmployment(clsEmployee& employee, Long app_period_no = 0) {
  auto employment = std::make_shared<clsEmployment>();
  employment->PayID("P" + std::to_string(app_period_no));
  employment->Payment()->AppPeriodNo(app_period_no);
  employee.AddEmployment(employment);
  return *employment;
}

/// Adds an employee with one employment to a section, and returns that employment.
template <class Section>
clsEmployment& AddPaid(Section& section, Long app_period_no = 0) {
  const Ref<clsEmployee> employee = NewEmployee();
  section.AddEmployee(employee);
  return AddEmployment(*employee, app_period_no);
}

/// Adds a row of National Insurance with the employer's and the employee's contributions.
inline Ref<clsNILettersAndValues> AddNI(clsEmployment& employment, Currency employers, Currency employees) {
  auto row = std::make_shared<clsNILettersAndValues>();
  row->NILetter("A");
  row->TotalEmpNIC(employers);
  row->EmpeeContribns(employees);
  employment.AddNILettersAndValues(row);
  return row;
}

/// Makes an employment one of a new employee.
inline void MakeNew(clsEmployment& employment) { employment.Starter(std::make_shared<clsStarter>()); }

/// Makes an employment one of a leaver.
inline void MakeLeaver(clsEmployment& employment) { employment.LeavingDate(Date::FromParts(2025, 6, 30)); }

}  // namespace zelnor::test
