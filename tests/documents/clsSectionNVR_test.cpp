#include "zelnor/documents/clsSectionNVR.h"

#include "zelnor/documents/clsEmployerReferences.h"

#include <functional>

#include "support/payroll.h"
#include "support/recording_host.h"
#include "support/records.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::AddEmployment;
using test::ChildNames;
using test::ChildText;
using test::MakeNew;
using test::NewEmployee;
using test::ReadInto;
using test::Root;
using test::WithRecordingHost;
using test::Written;
using testing::ElementsAre;

/// A collection of so many new employees.
CollectionRef<clsEmployee> Employees(int count) {
  auto employees = MakeCollection<clsEmployee>();
  for (int i = 0; i < count; ++i) employees->Add(NewEmployee());
  return employees;
}

/// What the body raises, as "number source: description".
String Raised(const std::function<void()>& body) {
  try {
    body();
  } catch (const RuntimeError& error) {
    return std::to_string(error.Number()) + " " + error.Source() + ": " + error.Description();
  }
  return "nothing";
}

const String kTooMany = "1511 Add Employee: Maximum Employees (99) reached!";

TEST(clsSectionNVR, HasItsConstants) {
  const clsSectionNVR nvr;
  EXPECT_EQ(nvr.RootElementName(), "NINOverificationRequest");
  EXPECT_EQ(nvr.Class(), "HMRC-PAYE-RTI-NVR");
  EXPECT_EQ(nvr.DefaultSchema(), "\\xsd\\NINOverificationRequest-v1-2.xsd");
}

TEST(clsSectionNVR, TakesNinetyNineEmployeesOneByOne) {
  WithRecordingHost host;
  clsSectionNVR nvr;
  for (int i = 0; i < 99; ++i) nvr.AddEmployee(NewEmployee());
  EXPECT_EQ(nvr.EmployeeCount(), 99);
  EXPECT_EQ(Raised([&] { nvr.AddEmployee(NewEmployee()); }), kTooMany);
  EXPECT_EQ(nvr.EmployeeCount(), 99);
  EXPECT_TRUE(host->messages.empty());
}

TEST(clsSectionNVR, TakesARangeWhollyOrNotAtAll) {
  WithRecordingHost host;
  clsSectionNVR nvr;
  EXPECT_EQ(Raised([&] { nvr.AddEmployeeRange(Employees(100)); }), kTooMany);
  EXPECT_EQ(nvr.EmployeeCount(), 0);
  nvr.AddEmployeeRange(Employees(50));
  EXPECT_EQ(Raised([&] { nvr.AddEmployeeRange(Employees(50)); }), kTooMany);
  EXPECT_EQ(nvr.EmployeeCount(), 50);
  nvr.AddEmployeeRange(Employees(49));
  EXPECT_EQ(nvr.EmployeeCount(), 99);
  EXPECT_EQ(Raised([&] { nvr.AddEmployeeRange(Employees(1)); }), kTooMany);
  EXPECT_TRUE(host->messages.empty());
}

TEST(clsSectionNVR, AddsARangeInOrderItsOwnEmployeesToo) {
  clsSectionNVR nvr;
  const CollectionRef<clsEmployee> range = Employees(2);
  nvr.AddEmployeeRange(range);
  nvr.AddEmployeeRange(nvr.Employees());
  ASSERT_EQ(nvr.EmployeeCount(), 4);
  EXPECT_EQ(nvr.Employees()->Item(1), range->Item(1));
  EXPECT_EQ(nvr.Employees()->Item(2), range->Item(2));
  EXPECT_EQ(nvr.Employees()->Item(4), range->Item(2));
}

TEST(clsSectionNVR, ReportsWhatIsNoEmployeeAndNoRange) {
  WithRecordingHost host;
  clsSectionNVR nvr;
  nvr.AddEmployee(nullptr);
  nvr.AddEmployeeRange(nullptr);
  EXPECT_EQ(nvr.EmployeeCount(), 0);
  ASSERT_EQ(host->messages.size(), 2U);
  EXPECT_TRUE(
      host->messages[0].text.starts_with("Error in ZELNOR.dll::clsSectionNVR: Sub AddEmployee: Error 91 - "));
  EXPECT_TRUE(host->messages[1].text.starts_with(
      "Error in ZELNOR.dll::clsSectionNVR: Sub AddEmployeeRange: Error 91 - "));
}

TEST(clsSectionNVR, WritesReferencesAndEmployees) {
  clsSectionNVR nvr;
  nvr.Employer_References()->OfficeNo("123");
  nvr.AddEmployee(NewEmployee("AB123456C"));
  nvr.AddEmployee(NewEmployee("AB123456D"));
  const XmlNode written = nvr.ToXML(Root("<Parent/>"));
  EXPECT_EQ(written.NodeName(), "NINOverificationRequest");
  EXPECT_THAT(ChildNames(written), ElementsAre("EmpRefs", "Employee", "Employee"));
  EXPECT_EQ(ChildText(written.FindChild("EmpRefs"), "OfficeNo"), "123");
  EXPECT_EQ(ChildText(written.FindChild("Employee").FindChild("EmployeeDetails"), "NINO"), "AB123456C");
  EXPECT_EQ(ChildText(written.LastChild().FindChild("EmployeeDetails"), "NINO"), "AB123456D");
}

TEST(clsSectionNVR, WritesThePayIdOfAnEmploymentAlone) {
  clsSectionNVR nvr;
  const Ref<clsEmployee> employee = NewEmployee();
  employee->EmployeeDetails()->PassportNo("123456789");
  nvr.AddEmployee(employee);
  clsEmployment& employment = AddEmployment(*employee, 7);
  MakeNew(employment);
  employment.IrrEmp(true);
  employment.OccPenInd(true);
  test::AddNI(employment, 1, 1);
  const XmlNode written = nvr.ToXML(Root("<Parent/>")).FindChild("Employee");
  EXPECT_THAT(ChildNames(written), ElementsAre("EmployeeDetails", "Employment"));
  EXPECT_FALSE(written.FindChild("EmployeeDetails").FindChild("PassportNumber"));
  EXPECT_EQ(written.FindChild("Employment").Xml(), "<Employment><PayId>P7</PayId></Employment>");
}

TEST(clsSectionNVR, WritesNinetyNineEmployeesAtMost) {
  WithRecordingHost host;
  clsSectionNVR nvr;
  nvr.Create(std::make_shared<clsEmployerReferences>(), Employees(120));
  EXPECT_EQ(nvr.EmployeeCount(), 120);
  EXPECT_EQ(ChildNames(nvr.ToXML(Root("<Parent/>"))).size(), 100U);
  EXPECT_TRUE(host->messages.empty());
}

TEST(clsSectionNVR, ReplacesTheEmployeesOfTheElementThere) {
  clsSectionNVR nvr;
  nvr.AddEmployee(NewEmployee());
  const XmlNode root = Root("<Parent/>");
  nvr.ToXML(root);
  EXPECT_THAT(ChildNames(nvr.ToXML(root)), ElementsAre("EmpRefs", "Employee"));
  EXPECT_EQ(ChildNames(root).size(), 1U);
}

TEST(clsSectionNVR, WritesEmployeesInTheNamespaceOfTheSection) {
  clsSectionNVR nvr;
  const Ref<clsEmployee> employee = NewEmployee();
  AddEmployment(*employee);
  nvr.AddEmployee(employee);
  const XmlNode envelope = XmlDocument().Node().AppendElement("IRenvelope", "urn:nvr");
  const std::function<void(const XmlNode&)> check = [&](const XmlNode& node) {
    if (!node.IsElement()) return;
    EXPECT_EQ(node.NamespaceURI(), "urn:nvr") << node.BaseName();
    for (const XmlNode& child : node.ChildNodes()) check(child);
  };
  check(nvr.ToXML(envelope));
}

TEST(clsSectionNVR, ReadsEveryEmployee) {
  String text = "<NINOverificationRequest><EmpRefs><OfficeNo>123</OfficeNo></EmpRefs><Unknown/>";
  for (int i = 1; i <= 100; ++i) {
    text += "<Employee><EmployeeDetails><NINO>" + std::to_string(i) + "</NINO></EmployeeDetails></Employee>";
  }
  clsSectionNVR nvr;
  nvr.AddEmployee(NewEmployee());
  ASSERT_TRUE(ReadInto(nvr, text + "</NINOverificationRequest>"));
  EXPECT_EQ(nvr.Employer_References()->OfficeNo(), "123");
  ASSERT_EQ(nvr.EmployeeCount(), 100);
  EXPECT_EQ(nvr.Employees()->Item(1)->EmployeeDetails()->NINO(), "1");
  EXPECT_EQ(nvr.Employees()->Item(100)->EmployeeDetails()->NINO(), "100");
  ASSERT_TRUE(ReadInto(nvr, "<NINOverificationRequest/>"));
  EXPECT_EQ(nvr.EmployeeCount(), 0);
  EXPECT_EQ(nvr.Employer_References()->OfficeNo(), "");
}

TEST(clsSectionNVR, RefusesOtherNamesAndDeclarations) {
  clsSectionNVR nvr;
  EXPECT_FALSE(ReadInto(nvr, "<NinoVerificationRequest><Employee/></NinoVerificationRequest>"));
  const String text = "<NINOverificationRequest><Employee/></NINOverificationRequest>";
  EXPECT_FALSE(nvr.ParseFromXML("<?xml version=\"1.0\"?>" + text));
  EXPECT_FALSE(nvr.ParseFromXML("<NINOverificationRequest>"));
  EXPECT_EQ(nvr.EmployeeCount(), 0);
  EXPECT_TRUE(nvr.ParseFromXML(text));
  EXPECT_EQ(nvr.EmployeeCount(), 1);
}

TEST(clsSectionNVR, CountsEmployeesWithAndWithoutNINO) {
  clsSectionNVR nvr;
  nvr.AddEmployee(NewEmployee("AB123456C"));
  nvr.AddEmployee(NewEmployee(""));
  nvr.AddEmployee(NewEmployee(""));
  Long total = 10;
  Long with = 20;
  Long without = 30;
  nvr.GetCounts(total, with, without);
  EXPECT_EQ(total, 13);
  EXPECT_EQ(with, 21);
  EXPECT_EQ(without, 32);
}

TEST(clsSectionNVR, GivesItselfAsTextAndDocument) {
  clsSectionNVR nvr;
  nvr.AddEmployee(NewEmployee());
  EXPECT_EQ(nvr.XML(), Written(nvr));
  const XmlDocument document = nvr.Document();
  ASSERT_TRUE(document);
  EXPECT_EQ(document.DocumentElement().NodeName(), "NINOverificationRequest");
  EXPECT_EQ(document.Xml(), nvr.XML());
}

TEST(clsSectionNVR, CreateStoresItsArguments) {
  const auto references = std::make_shared<clsEmployerReferences>();
  const CollectionRef<clsEmployee> employees = Employees(0);
  clsSectionNVR nvr;
  nvr.Validated(true);
  nvr.Create(references, employees);
  EXPECT_EQ(nvr.Employer_References(), references);
  EXPECT_EQ(nvr.Employees(), employees);
  references->Validated(true);
  EXPECT_FALSE(nvr.Validated());
  nvr.Create(nullptr, nullptr);
  EXPECT_EQ(nvr.EmployeeCount(), 0);
  EXPECT_TRUE(nvr.Employees());
  EXPECT_TRUE(nvr.Employer_References());
}

TEST(clsSectionNVR, IsValidatedWithReferencesAndEveryEmployee) {
  clsSectionNVR nvr;
  nvr.Validated(true);
  EXPECT_FALSE(nvr.Validated());
  nvr.Employer_References()->Validated(true);
  EXPECT_TRUE(nvr.Validated());
  nvr.AddEmployee(NewEmployee());
  EXPECT_FALSE(nvr.Validated());
  const auto references = std::make_shared<clsEmployerReferences>();
  references->Validated(true);
  nvr.Employer_References(references);
  EXPECT_FALSE(references->Validated());
}

TEST(clsSectionNVR, KeepsUseValidation) {
  clsSectionNVR nvr;
  EXPECT_FALSE(nvr.UseValidation());
  nvr.UseValidation(true);
  EXPECT_TRUE(nvr.UseValidation());
}

}  // namespace
}  // namespace zelnor
