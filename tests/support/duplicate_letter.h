#pragma once

/// @file
/// The conversation on a second NI row of one letter, for whoever has a host that asks a person.

#include "zelnor/common/process_state.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsNILettersAndValues.h"

namespace zelnor::test {

/// An employment that has one row, of letter A with 100.00 at the LEL, is given more of the same letter. The
/// check is on and no answer remembered at its start; afterwards the process is as it was.
class DuplicateLetter {
 public:
  DuplicateLetter() {
    Process().SystemDebugLevel = 1;
    Process().RememberedIssueResponse = -1;
    employee_->EmployeeDetails()->Contact()->Surname("Example");
    employee_->EmployeeDetails()->Contact()->Forename("Ada");
    job_.Parent(employee_);
    job_.PayID("K-1");
    AddRow(100);
  }
  DuplicateLetter(const DuplicateLetter&) = delete;
  DuplicateLetter& operator=(const DuplicateLetter&) = delete;
  ~DuplicateLetter() { Process() = before_; }

  /// Adds a row of letter A with so many pounds at the LEL; raises the question from the second on.
  void AddRow(int at_lel) {
    job_.AddNILettersAndVals("A", Currency(), Currency(), Currency(at_lel), Currency(), Currency(),
                             Currency(), Currency(), Currency(), Currency(), Currency());
  }

  /// The rows' amounts at the LEL: "100.00 250.00".
  String Rows() {
    String rows;
    for (const Ref<clsNILettersAndValues>& row : *job_.NILettersAndValues()) {
      rows += (rows.empty() ? "" : " ") + Format(row->AtLEL(), "0.00");
    }
    return rows;
  }

 private:
  ProcessState before_ = Process();
  Ref<clsEmployee> employee_ = std::make_shared<clsEmployee>();
  clsEmployment job_;
};

}  // namespace zelnor::test
