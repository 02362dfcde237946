// The marks that the walk over employments leaves; what the rules say is in tests/rules/.

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsPayIdChgd.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/documents/clsStarter.h"
#include "zelnor/validation/clsEmployeeException.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

#include "support/recording_host.h"
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

constexpr auto kFPS = eRTISUBMISSIONTYPE::IsFPS;
constexpr auto kEYU = eRTISUBMISSIONTYPE::IsEYU;

class EmploymentMarks : public testing::Test {
 protected:
  EmploymentMarks() {
    host->now = Date::FromParts(2025, 10, 1);
    job->PayID("K-0817");
    payment->PayFrequency(PAY_FREQUENCY::CalendarMonthly);
    payment->HoursWorked(HOURS_WORKED::ThirtyOrMore);
    payment->PayDate(Date::FromParts(2025, 9, 30));
    payment->MonthNo("6");
    payment->PeriodsCovered(1);
    payment->TaxCode()->TaxCode("1257L");
  }

  bool Validate(eRTISUBMISSIONTYPE type) { return validator.ValidateEmployment(employee, type, "12_A1"); }

  WithRecordingHost host;
  Ref<clsEmployee> employee = std::make_shared<clsEmployee>();
  Ref<clsEmployment> job = employee->AddEmployment();
  Ref<clsPayment> payment = job->Payment();
  vlsEmployeeValidator validator;
};

TEST_F(EmploymentMarks, AreSetOnEmploymentPaymentAndTaxCodeThatPass) {
  ASSERT_TRUE(Validate(kFPS));
  EXPECT_TRUE(payment->TaxCode()->Validated());
  EXPECT_TRUE(payment->Validated());
  EXPECT_TRUE(job->IsValidated(kEYU));
}

TEST_F(EmploymentMarks, StayOffWhereATaxCodeFails) {
  payment->TaxCode()->TaxCode("W1");
  ASSERT_FALSE(Validate(kFPS));
  EXPECT_FALSE(payment->TaxCode()->Validated());
  EXPECT_FALSE(payment->Validated());
  EXPECT_FALSE(job->IsValidated(kEYU));
}

TEST_F(EmploymentMarks, StayOffThePaymentWhereOnlyAnAmountFails) {
  payment->SMPYTD(Currency(-1));
  ASSERT_FALSE(Validate(kFPS));
  EXPECT_TRUE(payment->TaxCode()->Validated());
  EXPECT_FALSE(payment->Validated());
}

TEST_F(EmploymentMarks, AreSetOnTheChangedPayrollIDByItsOwnResult) {
  job->PayIDChange()->Create(true, " K-1");
  EXPECT_FALSE(Validate(kFPS));
  EXPECT_FALSE(job->PayIDChange()->Validated());

  job->PayIDChange()->Create(true, "K-1");
  EXPECT_TRUE(Validate(kFPS));
  EXPECT_TRUE(job->PayIDChange()->Validated());
}

TEST_F(EmploymentMarks, AreSetOnTheStarterByItsOwnResult) {
  EXPECT_FALSE(job->Starter()->StudentLoan());
  EXPECT_FALSE(Validate(kFPS));
  EXPECT_FALSE(job->Starter()->Validated());

  job->Starter()->StudentLoan(true);
  EXPECT_TRUE(Validate(kFPS));
  EXPECT_TRUE(job->Starter()->Validated());
}

TEST_F(EmploymentMarks, RecordsNameTheEmployee) {
  payment->MonthNo("13");
  ASSERT_FALSE(Validate(kFPS));
  const auto record = std::dynamic_pointer_cast<clsEmployeeException>(validator.Errors()->Item(1));
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->Employee(), employee);

  employee->Employment()->Add(nullptr);
  Validate(kFPS);
  const auto broken_off =
      std::dynamic_pointer_cast<clsEmployeeException>(validator.Errors()->Item("12_A1_Employment"));
  ASSERT_NE(broken_off, nullptr);
  EXPECT_EQ(broken_off->Employee(), employee);
}

TEST_F(EmploymentMarks, RulesLookAtNoAddressAndMakeNone) {
  job->Starter()->StudentLoan(true);
  job->Starter()->StartDate(Date::FromParts(2025, 9, 1));
  EXPECT_FALSE(validator.ValidateStarterDate(employee, job));
  EXPECT_FALSE(employee->EmployeeDetails()->HasAddress());
}

// The third failure of a Source is a processing error, here as in any rule.
TEST_F(EmploymentMarks, AnEmployeeWithoutEmploymentsFailsThriceUnderOneSource) {
  const auto nobody = std::make_shared<clsEmployee>();
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(validator.ValidateEmployment(nobody, kFPS, "12_A1"));
  ASSERT_EQ(validator.ErrorCount(), 1);
  const Ref<ErrorRecord> first = validator.Errors()->Item(1);
  EXPECT_EQ(first->Code(), "ERR_EMPLOYMENT");
  ASSERT_EQ(first->InnerExceptions()->Count(), 2);
  EXPECT_EQ(first->InnerExceptions()->Item(1)->Code(), "ERR_EMPLOYMENT");
  EXPECT_EQ(first->InnerExceptions()->Item(2)->Code(), "FAIL_EMPLOYMENT");
  EXPECT_EQ(first->InnerExceptions()->Item(2)->Description(), "At least one Employment record is required.");
  EXPECT_EQ(host->messages.size(), 1U);
}

}  // namespace
}  // namespace zelnor::test
