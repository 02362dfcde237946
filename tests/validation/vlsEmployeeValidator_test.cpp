// The walk over the employees: its counters, events, limit and marks; what the rules say is in tests/rules/.

#include "zelnor/validation/vlsEmployeeValidator.h"

#include "zelnor/common/process_state.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeAddress.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployeeNameType.h"
#include "zelnor/documents/clsEmployeePartnerDetails.h"
#include "zelnor/validation/clsEmployeeException.h"

#include "support/recording_host.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using enum eRTISUBMISSIONTYPE;

class EmployeeWalk : public testing::Test {
 protected:
  EmployeeWalk() {
    host->now = Date::FromParts(2025, 10, 1);
    validator.events.ProgressChanged.connect([this] { progress.push_back(validator.Progress()); });
    validator.events.MaxErrorsHit.connect(
        [this] { checked_at_limit.push_back(validator.EmployeesChecked()); });
  }
  ~EmployeeWalk() override { Process() = {}; }

  /// Adds an employee, who passes unless the surname is empty.
  Ref<clsEmployee> Add(const String& surname) {
    auto employee = std::make_shared<clsEmployee>();
    employee->EmployeeId(employees->Count() + 1);
    employee->EmployeeCode("C" + ToText(employees->Count() + 1));
    employee->EmployeeDetails()->NINO("AA104217A");
    employee->EmployeeDetails()->DateOfBirth(Date::FromParts(1990, 2, 3));
    employee->EmployeeDetails()->Contact()->Forename("Imogen");
    employee->EmployeeDetails()->Contact()->Surname(surname);
    employees->Add(employee);
    return employee;
  }

  bool Validate() { return validator.ValidateEmployees(employees, IsNVR, ""); }

  WithRecordingHost host;
  CollectionRef<clsEmployee> employees = MakeCollection<clsEmployee>();
  vlsEmployeeValidator validator;
  std::vector<Long> progress;
  std::vector<Long> checked_at_limit;
};

TEST_F(EmployeeWalk, CountsThoseWhoPassAndThoseWhoFail) {
  Add("Ash");
  Add("");
  Add("Birch");
  EXPECT_FALSE(Validate());
  EXPECT_EQ(validator.EmployeesChecked(), 3);
  EXPECT_EQ(validator.ValidEmployees(), 2);
  EXPECT_EQ(validator.InvalidEmployees(), 1);
  EXPECT_THAT(progress, ElementsAre(33, 67, 100));
  EXPECT_THAT(checked_at_limit, IsEmpty());
  ASSERT_EQ(validator.ErrorCount(), 1);
  const auto record = std::dynamic_pointer_cast<clsEmployeeException>(validator.Errors()->Item(1));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->Source(), "2_C2_Surname");
  EXPECT_EQ(record->Employee(), employees->Item(2));
}

TEST_F(EmployeeWalk, AnswersTrueForNoEmployees) {
  EXPECT_TRUE(Validate());
  EXPECT_EQ(validator.Progress(), 0);
  EXPECT_THAT(progress, IsEmpty());
}

TEST_F(EmployeeWalk, LeavesTheProgressAloneWithoutACollection) {
  Add("Ash");
  ASSERT_TRUE(Validate());
  EXPECT_FALSE(validator.ValidateEmployees(nullptr, IsNVR, ""));
  EXPECT_EQ(validator.EmployeesChecked(), 0);
  EXPECT_EQ(validator.Progress(), 100);
  EXPECT_EQ(validator.ErrorCount(), 0);
}

TEST_F(EmployeeWalk, StopsBeforeTheEmployeeWithWhomTheLimitIsReached) {
  for (const char* surname : {"", "Ash", "", "", "Birch"}) Add(surname);
  validator.MaxErrors(2);
  EXPECT_FALSE(Validate());
  EXPECT_EQ(validator.EmployeesChecked(), 3);
  EXPECT_EQ(validator.InvalidEmployees(), 2);
  EXPECT_THAT(checked_at_limit, ElementsAre(3));
  EXPECT_THAT(progress, ElementsAre(20, 40, 60));
  EXPECT_FALSE(validator.MaxErrorsHit());
}

TEST_F(EmployeeWalk, DoesNotTellOfALimitThatTheLastEmployeeReaches) {
  Add("");
  validator.MaxErrors(1);
  EXPECT_FALSE(Validate());
  EXPECT_THAT(checked_at_limit, IsEmpty());
}

TEST_F(EmployeeWalk, PassesOverEmployeesThatAreChecked) {
  Add("Ash");
  const Ref<clsEmployee> failed = Add("");
  ASSERT_FALSE(Validate());
  progress.clear();
  EXPECT_FALSE(Validate());
  EXPECT_EQ(validator.EmployeesChecked(), 1);
  EXPECT_EQ(validator.InvalidEmployees(), 1);
  EXPECT_THAT(progress, ElementsAre(0, 50));

  failed->EmployeeDetails()->Contact()->Surname("Cedar");
  progress.clear();
  EXPECT_TRUE(Validate());
  EXPECT_EQ(validator.EmployeesChecked(), 1);
  progress.clear();
  EXPECT_TRUE(Validate());
  EXPECT_EQ(validator.EmployeesChecked(), 0);
  EXPECT_THAT(progress, ElementsAre(0, 0));
}

TEST_F(EmployeeWalk, MarksWhatItHasChecked) {
  const Ref<clsEmployee> employee = Add("Ash");
  clsEmployeeDetails& details = *employee->EmployeeDetails();
  details.Address()->Create("1 High Street", "Bramblewick", "", "", "LS1 4ZQ", "");
  ASSERT_TRUE(Validate());
  EXPECT_TRUE(details.Contact()->Validated());
  EXPECT_TRUE(details.Address()->Validated());
  EXPECT_TRUE(details.Validated());
  EXPECT_TRUE(employee->Validated());
}

TEST_F(EmployeeWalk, CompletesANINOWithoutASuffix) {
  const Ref<clsEmployee> employee = Add("Ash");
  employee->EmployeeDetails()->NINO("AA104217");
  ASSERT_TRUE(Validate());
  EXPECT_EQ(employee->EmployeeDetails()->NINO(), "AA104217 ");
}

TEST_F(EmployeeWalk, CompletesAPartnersNINO) {
  const Ref<clsEmployee> employee = Add("Ash");
  employee->EmployeeDetails()->PartnerDetails()->NINO("AB204318");
  EXPECT_TRUE(validator.ValidatePartnerNINO(employee));
  EXPECT_EQ(employee->EmployeeDetails()->PartnerDetails()->NINO(), "AB204318 ");
}

TEST_F(EmployeeWalk, TellsInXmlWhomARecordConcerns) {
  const Ref<clsEmployee> employee = Add("");
  employee->CompanyId(7);
  ASSERT_FALSE(Validate());
  const XmlNode root = validator.GetAsXML();
  EXPECT_EQ(root.BaseName(), "EmployeeValidationErrors");
  EXPECT_EQ(root.SelectSingleNode("Error/ErrorType").Text(), "Employee");
  EXPECT_EQ(root.SelectSingleNode("Error/Employee").Text(), employee->EmployeeKey());
  EXPECT_EQ(root.SelectSingleNode("Error/CompanyId").Text(), "7");
  EXPECT_EQ(root.SelectSingleNode("Error/EmployeeId").Text(), "1");
  EXPECT_EQ(root.SelectSingleNode("Error/EmployeeName").Text(),
            ", " + employee->EmployeeDetails()->Contact()->Initials());
  EXPECT_EQ(root.SelectSingleNode("Error/EmployeeCode").Text(), "C1");
}

TEST_F(EmployeeWalk, NeverAsksForAnECON) { EXPECT_FALSE(validator.ECONRequired()); }

TEST_F(EmployeeWalk, LooksForEachCharacterOfATextInAnyCase) {
  EXPECT_TRUE(validator.ValidateString("", ""));
  EXPECT_TRUE(validator.ValidateString("", "abc"));
  EXPECT_TRUE(validator.ValidateString("Cab", "abc"));
  EXPECT_TRUE(validator.ValidateString("cab", "ABC"));
  EXPECT_FALSE(validator.ValidateString("cab ", "ABC"));
  EXPECT_FALSE(validator.ValidateString("a", ""));
}

}  // namespace
}  // namespace zelnor::test
