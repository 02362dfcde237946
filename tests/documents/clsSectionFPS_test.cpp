#include "zelnor/documents/clsSectionFPS.h"

#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsFinalSubmission.h"

#include "support/payroll.h"
#include "support/recording_host.h"
#include "support/records.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::AddPaid;
using test::ChildNames;
using test::ChildText;
using test::NewEmployee;
using test::ReadInto;
using test::Root;
using test::WithRecordingHost;
using test::Written;
using testing::ElementsAre;

TEST(clsSectionFPS, HasItsConstants) {
  const clsSectionFPS fps;
  EXPECT_EQ(fps.RootElementName(), "FullPaymentSubmission");
  EXPECT_EQ(fps.Class(), "HMRC-PAYE-RTI-FPS");
  EXPECT_EQ(fps.DefaultSchema(), "\\xsd\\FullPaymentSubmission-2026-v1-0.xsd");
}

TEST(clsSectionFPS, WritesItsElementsInOrder) {
  clsSectionFPS fps;
  fps.Employer_References()->OfficeNo("123");
  fps.TaxYear("25-26");
  AddPaid(fps);
  AddPaid(fps);
  fps.Final_Submission()->FinalForYear(true);
  const XmlNode written = fps.ToXML(Root("<Parent/>"));
  EXPECT_EQ(written.NodeName(), "FullPaymentSubmission");
  EXPECT_THAT(ChildNames(written),
              ElementsAre("EmpRefs", "RelatedTaxYear", "Employee", "Employee", "FinalSubmission"));
  EXPECT_EQ(ChildText(written.FindChild("EmpRefs"), "OfficeNo"), "123");
  EXPECT_EQ(ChildText(written, "RelatedTaxYear"), "25-26");
  EXPECT_EQ(ChildText(written.FindChild("FinalSubmission"), "ForYear"), "yes");
}

TEST(clsSectionFPS, WritesReferencesAndTaxYearEvenWhenEmpty) {
  clsSectionFPS fps;
  EXPECT_THAT(ChildNames(fps.ToXML(Root("<Parent/>"))), ElementsAre("EmpRefs", "RelatedTaxYear"));
}

TEST(clsSectionFPS, ReadingTheFinalSubmissionMakesItAndItsElement) {
  clsSectionFPS fps;
  EXPECT_FALSE(fps.HasFinalSubmission());
  EXPECT_FALSE(fps.ToXML(Root("<Parent/>")).FindChild("FinalSubmission"));
  EXPECT_TRUE(fps.Final_Submission());
  EXPECT_TRUE(fps.HasFinalSubmission());
  const XmlNode root = Root("<Parent/>");
  EXPECT_EQ(fps.ToXML(root).FindChild("FinalSubmission").Xml(), "<FinalSubmission></FinalSubmission>");
  fps.KillFinalSubmissionInfo();
  EXPECT_FALSE(fps.HasFinalSubmission());
  EXPECT_FALSE(fps.ToXML(root).FindChild("FinalSubmission"));
}

TEST(clsSectionFPS, CreateStoresItsArguments) {
  const auto references = std::make_shared<clsEmployerReferences>();
  const auto employees = MakeCollection<clsEmployee>();
  employees->Add(NewEmployee());
  const auto final_submission = std::make_shared<clsFinalSubmission>();
  clsSectionFPS fps;
  fps.Validated(true);
  fps.Create(references, "25-26", employees, true, final_submission);
  EXPECT_EQ(fps.Employer_References(), references);
  EXPECT_EQ(fps.TaxYear(), "25-26");
  EXPECT_EQ(fps.Employees(), employees);
  EXPECT_TRUE(fps.UseCompression());
  EXPECT_EQ(fps.Final_Submission(), final_submission);
  fps.Create(references, "24-25", nullptr);
  EXPECT_FALSE(fps.UseCompression());
  EXPECT_FALSE(fps.HasFinalSubmission());
  EXPECT_EQ(fps.EmployeeCount(), 0);
  references->Validated(true);
  EXPECT_FALSE(fps.Validated());
}

TEST(clsSectionFPS, IsValidatedWithItsFinalSubmission) {
  clsSectionFPS fps;
  fps.Validated(true);
  fps.Employer_References()->Validated(true);
  EXPECT_TRUE(fps.Validated());
  const auto final_submission = std::make_shared<clsFinalSubmission>();
  final_submission->Validated(true);
  fps.Final_Submission(final_submission);
  EXPECT_FALSE(final_submission->Validated());
  EXPECT_FALSE(fps.Validated());
  final_submission->Validated(true);
  EXPECT_TRUE(fps.Validated());
  fps.TaxYear("");
  EXPECT_FALSE(fps.Validated());
  fps.Validated(true);
  fps.SetRelatedTaxYear("");
  EXPECT_FALSE(fps.Validated());
}

TEST(clsSectionFPS, ReadsItsElements) {
  clsSectionFPS fps;
  ASSERT_TRUE(ReadInto(fps,
                       "<FullPaymentSubmission><FinalSubmission><ForYear>yes</ForYear></FinalSubmission>"
                       "<Employee><EmployeeDetails><NINO>AB123456C</NINO></EmployeeDetails></Employee>"
                       "<RelatedTaxYear>25-26</RelatedTaxYear><EmpRefs><OfficeNo>123</OfficeNo></EmpRefs>"
                       "</FullPaymentSubmission>"));
  EXPECT_EQ(fps.Employer_References()->OfficeNo(), "123");
  EXPECT_EQ(fps.TaxYear(), "25-26");
  EXPECT_EQ(fps.EmployeeCount(), 1);
  ASSERT_TRUE(fps.HasFinalSubmission());
  EXPECT_TRUE(fps.Final_Submission()->FinalForYear());
}

TEST(clsSectionFPS, ReadingDropsTheFinalSubmissionAndKeepsTheTaxYear) {
  clsSectionFPS fps;
  fps.TaxYear("25-26");
  fps.Final_Submission();
  fps.PeriodIdentifier(1);
  fps.MonthIdentifier(2);
  fps.WeekIdentifier(3);
  ASSERT_TRUE(ReadInto(fps, "<FullPaymentSubmission/>"));
  EXPECT_FALSE(fps.HasFinalSubmission());
  EXPECT_EQ(fps.TaxYear(), "25-26");
  EXPECT_EQ(fps.PeriodIdentifier(), 1);
  EXPECT_EQ(fps.MonthIdentifier(), 2);
  EXPECT_EQ(fps.WeekIdentifier(), 3);
}

TEST(clsSectionFPS, NeverWritesItsIdentifiers) {
  clsSectionFPS fps;
  const String before = Written(fps);
  fps.PeriodIdentifier(1);
  fps.MonthIdentifier(2);
  fps.WeekIdentifier(3);
  fps.UseValidation(true);
  EXPECT_EQ(Written(fps), before);
}

TEST(clsSectionFPS, ReportsAnEmployeeThatIsNone) {
  WithRecordingHost host;
  clsSectionFPS fps;
  fps.AddEmployee(nullptr);
  EXPECT_EQ(fps.EmployeeCount(), 0);
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsSectionFPS: Sub AddEmployee: Error 91 - Object variable or With block "
            "variable "
            "not set");
}

TEST(clsSectionFPS, ReadingAgainWhatWasReadAndWrittenChangesNothing) {
  clsSectionFPS first;
  first.TaxYear("25-26");
  AddPaid(first);
  first.Final_Submission()->SchemeCeased(true);
  clsSectionFPS second;
  ASSERT_TRUE(ReadInto(second, Written(first)));
  const String once = Written(second);
  clsSectionFPS third;
  ASSERT_TRUE(ReadInto(third, once));
  EXPECT_EQ(Written(third), once);
}

TEST(clsSectionFPS, AnyTextOfTheTaxYearComesBack) {
  for (const String& text : test::TextsThatComeBack()) {
    clsSectionFPS first;
    first.TaxYear(text);
    clsSectionFPS second;
    ASSERT_TRUE(ReadInto(second, Written(first)));
    EXPECT_EQ(second.TaxYear(), text);
  }
}

}  // namespace
}  // namespace zelnor
