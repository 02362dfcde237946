#include "zelnor/documents/clsSectionEAS.h"

#include "zelnor/documents/clsEmployerReferences.h"

#include "support/payroll.h"
#include "support/recording_host.h"
#include "support/records.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::AddEmployment;
using test::AddPaid;
using test::ChildNames;
using test::ChildText;
using test::MakeLeaver;
using test::MakeNew;
using test::NewEmployee;
using test::ReadInto;
using test::Root;
using test::WithRecordingHost;
using test::Written;
using testing::ElementsAre;

TEST(clsSectionEAS, HasItsConstants) {
  const clsSectionEAS eas;
  EXPECT_EQ(eas.RootElementName(), "EmployerAlignmentSubmission");
  EXPECT_EQ(eas.Class(), "HMRC-PAYE-RTI-EAS");
  EXPECT_EQ(eas.DefaultSchema(), "\\xsd\\EmployerAlignmentSubmission-v3-3.xsd");
}

TEST(clsSectionEAS, IsOnePartWithoutIdentifierUnlessToldOtherwise) {
  clsSectionEAS eas;
  EXPECT_EQ(eas.NumberOfParts(), 1);
  EXPECT_EQ(eas.UniquePartID(), "");
  const XmlNode written = eas.ToXML(Root("<Parent/>"));
  EXPECT_EQ(written.NodeName(), "EmployerAlignmentSubmission");
  EXPECT_THAT(ChildNames(written), ElementsAre("EmpRefs", "NumberOfParts"));
  EXPECT_EQ(ChildText(written, "NumberOfParts"), "1");
}

TEST(clsSectionEAS, WritesItsElementsInOrder) {
  clsSectionEAS eas;
  eas.NumberOfParts(3);
  eas.UniquePartID("EAS-1");
  AddPaid(eas);
  const XmlNode root = Root("<Parent/>");
  const XmlNode written = eas.ToXML(root);
  EXPECT_THAT(ChildNames(written), ElementsAre("EmpRefs", "NumberOfParts", "UniquePartID", "Employee"));
  EXPECT_EQ(ChildText(written, "NumberOfParts"), "3");
  EXPECT_EQ(ChildText(written, "UniquePartID"), "EAS-1");
  eas.UniquePartID("");
  EXPECT_THAT(ChildNames(eas.ToXML(root)), ElementsAre("EmpRefs", "NumberOfParts", "Employee"));
}

TEST(clsSectionEAS, ReadsItsElements) {
  clsSectionEAS eas;
  ASSERT_TRUE(
      ReadInto(eas,
               "<EmployerAlignmentSubmission><Employee/><UniquePartID>EAS-1</UniquePartID>"
               "<NumberOfParts>2</NumberOfParts><EmpRefs><OfficeNo>123</OfficeNo></EmpRefs><RelatedTaxYear/>"
               "</EmployerAlignmentSubmission>"));
  EXPECT_EQ(eas.NumberOfParts(), 2);
  EXPECT_EQ(eas.UniquePartID(), "EAS-1");
  EXPECT_EQ(eas.Employer_References()->OfficeNo(), "123");
  EXPECT_EQ(eas.EmployeeCount(), 1);
  ASSERT_TRUE(ReadInto(eas, "<EmployerAlignmentSubmission/>"));
  EXPECT_EQ(eas.NumberOfParts(), 1);
  EXPECT_EQ(eas.UniquePartID(), "");
}

TEST(clsSectionEAS, ReportsANumberOfPartsThatIsNone) {
  WithRecordingHost host;
  clsSectionEAS eas;
  EXPECT_FALSE(
      ReadInto(eas,
               "<EmployerAlignmentSubmission><NumberOfParts>two</NumberOfParts><UniquePartID>x</UniquePartID>"
               "</EmployerAlignmentSubmission>"));
  EXPECT_EQ(eas.UniquePartID(), "");
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsSectionEAS: Function CreateFromXML: Error 13 - Type mismatch");
}

TEST(clsSectionEAS, CreateStoresItsArguments) {
  const auto references = std::make_shared<clsEmployerReferences>();
  const auto employees = MakeCollection<clsEmployee>();
  clsSectionEAS eas;
  eas.Validated(true);
  eas.Create(references, employees, true);
  EXPECT_EQ(eas.Employer_References(), references);
  EXPECT_EQ(eas.Employees(), employees);
  EXPECT_TRUE(eas.UseCompression());
  eas.Create(references, employees);
  EXPECT_FALSE(eas.UseCompression());
  references->Validated(true);
  EXPECT_FALSE(eas.Validated());
}

TEST(clsSectionEAS, CountsEmploymentsByStatus) {
  clsSectionEAS eas;
  const Ref<clsEmployee> employee = NewEmployee();
  eas.AddEmployee(employee);
  for (int i = 0; i < 6; ++i) {
    clsEmployment& employment = AddEmployment(*employee);
    if (i >= 1) MakeNew(employment);
    if (i >= 3) MakeLeaver(employment);
  }
  eas.AddEmployee(NewEmployee());
  Long total = 0;
  Long fresh = 10;
  Long current = 20;
  Long leavers = 30;
  eas.GetCounts(total, fresh, current, leavers);
  EXPECT_EQ(total, 2);
  EXPECT_EQ(fresh, 12);
  EXPECT_EQ(current, 21);
  EXPECT_EQ(leavers, 33);
}

TEST(clsSectionEAS, ReportsAnEmployeeThatIsNone) {
  WithRecordingHost host;
  clsSectionEAS eas;
  eas.AddEmployee(nullptr);
  EXPECT_EQ(eas.EmployeeCount(), 0);
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_TRUE(
      host->messages[0].text.starts_with("Error in ZELNOR.dll::clsSectionEAS: Sub AddEmployee: Error 91 - "));
}

TEST(clsSectionEAS, AChangeClearsValidatedAndAnEqualValueDoesNot) {
  clsSectionEAS eas;
  eas.Employer_References()->Validated(true);
  eas.Validated(true);
  eas.NumberOfParts(1);
  eas.UniquePartID("");
  EXPECT_TRUE(eas.Validated());
  eas.NumberOfParts(2);
  EXPECT_FALSE(eas.Validated());
  eas.Validated(true);
  eas.UniquePartID("x");
  EXPECT_FALSE(eas.Validated());
}

TEST(clsSectionEAS, AnyTextOfTheIdentifierComesBack) {
  for (const String& text : test::TextsThatComeBack()) {
    clsSectionEAS first;
    first.UniquePartID(text);
    clsSectionEAS second;
    ASSERT_TRUE(ReadInto(second, Written(first)));
    EXPECT_EQ(second.UniquePartID(), text);
  }
}

}  // namespace
}  // namespace zelnor
