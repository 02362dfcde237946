// What the validator leaves behind on the records; its rules are in tests/rules/.

#include "zelnor/validation/vlsCompanyValidator.h"

#include "zelnor/documents/clsContact.h"
#include "zelnor/documents/clsEmailType.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsNameType.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/documents/clsTelephoneType.h"

#include "support/recording_host.h"
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

class CompanyValidatorTest : public testing::Test {
 protected:
  CompanyValidatorTest() {
    submission->SetSubmissionType(eRTISUBMISSIONTYPE::IsEYU);
    submission->Header()->PeriodEndDate(Date::FromParts(2026, 4, 5));
    submission->EYU()->TaxYear("25-26");
    References().OfficeNo("961");
    References().PayeRef("BW42719");
    References().AORef("961PY00427198");
    submission->Header()->SetDocIRMark(nullptr);  // no rule looks at the mark, and so none marks it
  }

  clsEmployerReferences& References() const { return *submission->EYU()->Employer_References(); }
  clsContact& Contact() const { return *submission->Header()->PrincipalContact(); }

  WithRecordingHost host;
  Ref<clsSubmission> submission = std::make_shared<clsSubmission>();
  vlsCompanyValidator validator;
};

TEST_F(CompanyValidatorTest, MarksWhatPassed) {
  Contact().CreateContactName("Mrs", "Philippa", "Garside");
  EXPECT_TRUE(validator.ValidateCompany(submission));
  EXPECT_TRUE(submission->Validated());
  EXPECT_TRUE(submission->Header()->Validated());
  EXPECT_TRUE(Contact().Validated());
  EXPECT_TRUE(References().Validated());
}

TEST_F(CompanyValidatorTest, MarksEachMemberWithItsOwnResult) {
  Contact().CreateContactName("Mrs", "Philippa", "Garside");
  Contact().CreateEmail("payroll@bramblewick-looms.example");
  Contact().CreateEmail("");
  Contact().CreateEmail("payroll");
  Contact().CreateTelephone("0113 496 0712");
  EXPECT_FALSE(validator.ValidateCompany(submission));
  EXPECT_TRUE(Contact().ContactName()->Validated());
  EXPECT_TRUE(Contact().EmailAddresses()->Item(1)->Validated());
  EXPECT_TRUE(Contact().EmailAddresses()->Item(2)->Validated());
  EXPECT_FALSE(Contact().EmailAddresses()->Item(3)->Validated());
  EXPECT_TRUE(Contact().Telephone()->Item(1)->Validated());
  EXPECT_FALSE(Contact().Validated());
  EXPECT_FALSE(submission->Header()->Validated());
  EXPECT_FALSE(submission->Validated());
}

TEST_F(CompanyValidatorTest, ChecksNothingOfADocumentMarkedAsChecked) {
  ASSERT_TRUE(validator.ValidateCompany(submission));
  References().ECON("no number");  // which leaves the mark
  EXPECT_TRUE(validator.ValidateCompany(submission));
  EXPECT_TRUE(validator.IsValid());
}

TEST_F(CompanyValidatorTest, ChangeIsCheckedAgain) {
  ASSERT_TRUE(validator.ValidateCompany(submission));
  References().OfficeNo("000");
  EXPECT_FALSE(validator.ValidateCompany(submission));
  EXPECT_EQ(validator.ErrorCount(), 1);
  References().OfficeNo("961");
  EXPECT_TRUE(validator.ValidateCompany(submission));
  EXPECT_EQ(validator.ErrorCount(), 0);
}

TEST_F(CompanyValidatorTest, TellsWhetherThereIsAnECON) {
  EXPECT_FALSE(validator.IsEconPresent());
  References().ECON("E3900000M");
  EXPECT_TRUE(validator.ValidateCompany(submission));
  EXPECT_TRUE(validator.IsEconPresent());
  EXPECT_TRUE(
      validator.ValidateEmployerRefs(submission->EYU()->Employer_References(), eRTISUBMISSIONTYPE::IsEYU));
  EXPECT_TRUE(validator.IsEconPresent());
  References().ECON("");
  EXPECT_TRUE(validator.ValidateECON(submission->EYU()->Employer_References()));
  EXPECT_FALSE(validator.IsEconPresent());
}

TEST_F(CompanyValidatorTest, RulesCalledAloneAddToTheRecords) {
  References().OfficeNo("");
  References().PayeRef("");
  validator.ValidateHMRCOfficeNumber(submission->EYU()->Employer_References());
  validator.ValidateEmployerPAYERef(submission->EYU()->Employer_References());
  EXPECT_EQ(validator.ErrorCount(), 2);
}

}  // namespace
}  // namespace zelnor::test
