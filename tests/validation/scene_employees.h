#pragma once

/// @file
/// The employees of a case's document, for the operations of the employees' rules.

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionNVR.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

#include "validation/rule_scene.h"

namespace zelnor::test {

inline CollectionRef<clsEmployee> EmployeesOf(const Scene& scene) {
  clsSubmission& submission = *scene.submission;
  if (submission.FPS()) return submission.FPS()->Employees();
  if (submission.EYU()) return submission.EYU()->Employees();
  if (submission.NVR()) return submission.NVR()->Employees();
  return submission.EAS()->Employees();
}

inline Ref<clsEmployee> FirstEmployee(const Scene& scene) { return EmployeesOf(scene)->Item(1); }

inline Ref<clsEmployment> FirstEmployment(const Scene& scene) {
  return FirstEmployee(scene)->Employment()->Item(1);
}

/// Tells the validator the tax year of the case, which it keeps from a walk over any employees, or none.
inline void TellTaxYear(vlsEmployeeValidator& validator, const Scene& scene) {
  validator.ValidateEmployees(nullptr, scene.submission->SubmissionType(),
                              scene.Argument<String>("tax_year", ""));
}

}  // namespace zelnor::test
