#include "zelnor/documents/clsSectionEYU.h"

#include "zelnor/documents/clsEmployerReferences.h"

#include "support/payroll.h"
#include "support/records.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::AddNI;
using test::AddPaid;
using test::ChildNames;
using test::ChildText;
using test::NewEmployee;
using test::ReadInto;
using test::Root;
using test::Written;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

TEST(clsSectionEYU, HasItsConstants) {
  const clsSectionEYU eyu;
  EXPECT_EQ(eyu.RootElementName(), "EarlierYearUpdate");
  EXPECT_EQ(eyu.Class(), "HMRC-PAYE-RTI-EYU");
  EXPECT_EQ(eyu.DefaultSchema(), "\\xsd\\EarlierYearUpdate-2020-v1-0.xsd");
}

TEST(clsSectionEYU, WritesItsElementsInOrder) {
  clsSectionEYU eyu;
  eyu.Employer_References()->OfficeNo("123");
  eyu.TaxYear("19-20");
  AddPaid(eyu);
  AddPaid(eyu);
  const XmlNode written = eyu.ToXML(Root("<Parent/>"));
  EXPECT_EQ(written.NodeName(), "EarlierYearUpdate");
  EXPECT_THAT(ChildNames(written), ElementsAre("EmpRefs", "RelatedTaxYear", "Employee", "Employee"));
  EXPECT_EQ(ChildText(written.FindChild("EmpRefs"), "OfficeNo"), "123");
  EXPECT_EQ(ChildText(written, "RelatedTaxYear"), "19-20");
}

TEST(clsSectionEYU, WritesReferencesAndTaxYearEvenWhenEmpty) {
  clsSectionEYU eyu;
  EXPECT_THAT(ChildNames(eyu.ToXML(Root("<Parent/>"))), ElementsAre("EmpRefs", "RelatedTaxYear"));
}

TEST(clsSectionEYU, ReadsItsElementsAndNoFinalSubmission) {
  clsSectionEYU eyu;
  ASSERT_TRUE(ReadInto(eyu,
                       "<EarlierYearUpdate><RelatedTaxYear>19-20</RelatedTaxYear><FinalSubmission/>"
                       "<QuestionsAndDeclarations/><Employee/><EmpRefs><OfficeNo>123</OfficeNo></EmpRefs>"
                       "</EarlierYearUpdate>"));
  EXPECT_EQ(eyu.TaxYear(), "19-20");
  EXPECT_EQ(eyu.Employer_References()->OfficeNo(), "123");
  EXPECT_EQ(eyu.EmployeeCount(), 1);
  EXPECT_THAT(ChildNames(eyu.ToXML(Root("<Parent/>"))), ElementsAre("EmpRefs", "RelatedTaxYear", "Employee"));
}

TEST(clsSectionEYU, ReadingKeepsTaxYearAndIdentifier) {
  clsSectionEYU eyu;
  eyu.TaxYear("19-20");
  eyu.PeriodIdentifier(4);
  ASSERT_TRUE(ReadInto(eyu, "<EarlierYearUpdate/>"));
  EXPECT_EQ(eyu.TaxYear(), "19-20");
  EXPECT_EQ(eyu.PeriodIdentifier(), 4);
}

TEST(clsSectionEYU, AddsANewEmployeeWhenNoneIsGiven) {
  clsSectionEYU eyu;
  const Ref<clsEmployee> made = eyu.AddEmployee();
  ASSERT_TRUE(made);
  const Ref<clsEmployee> given = NewEmployee();
  EXPECT_EQ(eyu.AddEmployee(given), given);
  ASSERT_EQ(eyu.EmployeeCount(), 2);
  EXPECT_EQ(eyu.Employees()->Item(1), made);
  EXPECT_EQ(eyu.Employees()->Item(2), given);
}

TEST(clsSectionEYU, CreateStoresItsArguments) {
  const auto references = std::make_shared<clsEmployerReferences>();
  const auto employees = MakeCollection<clsEmployee>();
  clsSectionEYU eyu;
  eyu.Validated(true);
  eyu.Create(references, "19-20", employees, true);
  EXPECT_EQ(eyu.Employer_References(), references);
  EXPECT_EQ(eyu.TaxYear(), "19-20");
  EXPECT_EQ(eyu.Employees(), employees);
  EXPECT_TRUE(eyu.UseCompression());
  eyu.Create(references, "18-19", employees);
  EXPECT_FALSE(eyu.UseCompression());
  references->Validated(true);
  EXPECT_FALSE(eyu.Validated());
}

TEST(clsSectionEYU, WritesNationalInsuranceInItsOwnSpelling) {
  clsSectionEYU eyu;
  AddNI(AddPaid(eyu), 10, -5)->NICRefund(true);
  const XmlNode employment = eyu.ToXML(Root("<Parent/>")).FindChild("Employee").FindChild("Employment");
  ASSERT_TRUE(employment);
  const XmlNode row = employment.FindChild("NIlettersAndValues");
  ASSERT_TRUE(row);
  EXPECT_THAT(ChildNames(row), ElementsAre("NIletter", "GrossEarningsForNICs", "AtLEL", "LELtoPT", "PTtoUEL",
                                           "TotalEmpNIC", "EmpeeContribns", "NICRefund"));
  EXPECT_EQ(ChildText(row, "TotalEmpNIC"), "10.00");
  EXPECT_EQ(ChildText(row, "EmpeeContribns"), "-5.00");
  EXPECT_EQ(ChildText(row, "NICRefund"), "yes");
  EXPECT_THAT(Written(eyu), Not(HasSubstr("InPd")));
}

TEST(clsSectionEYU, LeavesOutThePaymentDetailsOfTheYear) {
  clsSectionEYU eyu;
  AddPaid(eyu);
  const String text = Written(eyu);
  EXPECT_THAT(text, HasSubstr("<PayId>P0</PayId>"));
  EXPECT_THAT(text, Not(HasSubstr("PayFreq")));
  EXPECT_THAT(text, Not(HasSubstr("FiguresToDate")));
}

}  // namespace
}  // namespace zelnor
