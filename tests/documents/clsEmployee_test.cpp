// The employee and its employments.

#include "zelnor/documents/clsEmployee.h"

#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsFiguresToDate.h"
#include "zelnor/documents/clsNILettersAndValues.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/documents/clsStarter.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

namespace {

const String kTooMany =
    "Error in ZELNOR.dll::clsEmployee: Function AddEmployment: Error 6001 - Maximum Employments exceeded!";

CollectionRef<clsEmployment> Employments(int count) {
  CollectionRef<clsEmployment> employments = MakeCollection<clsEmployment>();
  for (int i = 0; i < count; ++i) employments->Add(std::make_shared<clsEmployment>());
  return employments;
}

RuntimeError ErrorOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const RuntimeError& error) {
    return error;
  }
  return RuntimeError(0);
}

// An employee with a member of the collection that holds no object.
std::shared_ptr<clsEmployee> EmployeeWithAGap() {
  auto employee = std::make_shared<clsEmployee>();
  employee->Employment()->Add(nullptr);
  return employee;
}

String NamesOfChildren(const XmlNode& node) {
  String names;
  for (const XmlNode& child : node.ChildNodes()) names.append(child.BaseName()).append(" ");
  return names;
}

}  // namespace

TEST(clsEmployee, AppendsANewElementWithDetailsAndEmploymentsInOrder) {
  const auto employee = std::make_shared<clsEmployee>();
  employee->EmployeeDetails()->NINO("AB123456C");
  employee->AddEmployment()->PayID("K-1");
  employee->AddEmployment()->PayID("K-2");
  const XmlNode section =
      Root("<NINOverificationRequest xmlns='urn:x'><Employee/></NINOverificationRequest>");
  const XmlNode written = employee->ToXML(section);
  EXPECT_EQ(written, section.LastChild());
  EXPECT_EQ(NamesOfChildren(section), "Employee Employee ");
  EXPECT_EQ(written.NamespaceURI(), "urn:x");
  EXPECT_EQ(written.Xml(),
            "<Employee xmlns=\"urn:x\"><EmployeeDetails><NINO>AB123456C</NINO>"
            "<Name><Fore></Fore><Initials></Initials><Sur></Sur></Name><Gender>M</Gender></EmployeeDetails>"
            "<Employment><PayId>K-1</PayId></Employment><Employment><PayId>K-2</PayId></Employment>"
            "</Employee>");
}

TEST(clsEmployee, HandsTheGenderToItsEmployments) {
  const auto employee = std::make_shared<clsEmployee>();
  employee->AddEmployment();
  const auto has_maternity_pay = [&] {
    const XmlNode written = employee->ToXML(Root("<FullPaymentSubmission/>"));
    return static_cast<bool>(written.FindChild("Employment").FindChild("Payment").FindChild("SMPYTD"));
  };
  EXPECT_FALSE(has_maternity_pay());
  employee->EmployeeDetails()->Gender(EMPLOYEE_GENDER::f);
  EXPECT_TRUE(has_maternity_pay());
}

TEST(clsEmployee, BecomesTheParentOfItsDetailsWhenWritten) {
  const auto employee = std::make_shared<clsEmployee>();
  employee->AddEmployment()->IsNonIndividual(true);
  EXPECT_EQ(employee->EmployeeDetails()->Parent(), nullptr);
  const XmlNode written = employee->ToXML(Root("<EarlierYearUpdate/>"));
  EXPECT_EQ(employee->EmployeeDetails()->Parent(), employee);
  EXPECT_TRUE(written.FindChild("EmployeeDetails").FindChild("BirthDate"));
}

TEST(clsEmployee, ReadsDetailsAndEmployments) {
  const auto employee = std::make_shared<clsEmployee>();
  employee->EmployeeDetails()->NINO("old");
  employee->AddEmployment();
  employee->Department("D");
  employee->CompanyId(7);
  EXPECT_TRUE(
      employee->ParseFromXML("<Employee><Employment><PayId>K-1</PayId></Employment>"
                             "<EmployeeDetails><NINO>AB123456C</NINO></EmployeeDetails>"
                             "<Employment><PayId>K-2</PayId></Employment></Employee>"));
  EXPECT_EQ(employee->EmployeeDetails()->NINO(), "AB123456C");
  ASSERT_EQ(employee->Employment()->Count(), 2);
  EXPECT_EQ(employee->GetEmployment(1)->PayID(), "K-1");
  EXPECT_EQ(employee->GetEmployment(2)->PayID(), "K-2");
  EXPECT_EQ(employee->EmployeeCode(), "K-2");
  EXPECT_EQ(employee->EmployeeId(), 2);
  EXPECT_EQ(employee->Department(), "D");
  EXPECT_EQ(employee->CompanyId(), 7);
}

TEST(clsEmployee, ReadingClearsWhatTheNodeLacks) {
  const auto employee = std::make_shared<clsEmployee>();
  employee->EmployeeDetails()->NINO("old");
  employee->AddEmployment();
  EXPECT_TRUE(employee->CreateFromXML(Root("<Employee/>")));
  EXPECT_EQ(employee->EmployeeDetails()->NINO(), "");
  EXPECT_EQ(employee->Employment()->Count(), 0);
  EXPECT_FALSE(employee->ParseFromXML("<Employment/>"));
  EXPECT_FALSE(employee->ParseFromXML("<?xml version='1.0'?><Employee/>"));
  EXPECT_FALSE(employee->CreateFromXML(Root("<Employment/>")));
  EXPECT_EQ(employee->RootElementName(), "Employee");
}

TEST(clsEmployee, ItsOwnFieldsLeaveValidated) {
  clsEmployee employee;
  employee.EmployeeDetails()->Contact()->Validated(true);
  employee.EmployeeDetails()->Validated(true);
  employee.EmployeeId(3);
  employee.EmployeeCode("C");
  employee.Department("D");
  employee.CompanyId(4);
  EXPECT_EQ(employee.EmployeeId(), 3);
  EXPECT_EQ(employee.EmployeeCode(), "C");
  EXPECT_EQ(employee.Department(), "D");
  EXPECT_EQ(employee.CompanyId(), 4);
  EXPECT_TRUE(employee.Validated());
}

TEST(clsEmployee, IsValidatedWithDetailsAndEmployments) {
  const auto employee = std::make_shared<clsEmployee>();
  const Ref<clsEmployment> employment = employee->AddEmployment();
  EXPECT_FALSE(employee->Validated());
  employee->EmployeeDetails()->Contact()->Validated(true);
  employee->EmployeeDetails()->Validated(true);
  EXPECT_FALSE(employee->Validated());
  EXPECT_FALSE(employee->IsValidated());
  employment->Validated(true);
  employment->Payment()->Validated(true);
  employment->Payment()->TaxCode()->Validated(true);
  EXPECT_TRUE(employee->IsValidated());
  EXPECT_TRUE(employee->IsValidated(eRTISUBMISSIONTYPE::IsEAS));
  EXPECT_FALSE(employee->IsValidated(eRTISUBMISSIONTYPE::IsFPS));
  EXPECT_FALSE(employee->Validated());
  employment->FiguresToDate()->Validated(true);
  EXPECT_TRUE(employee->IsValidated(eRTISUBMISSIONTYPE::IsFPS));
  EXPECT_TRUE(employee->Validated());
  employee->EmployeeDetails()->Contact()->Surname("Q");
  EXPECT_FALSE(employee->IsValidated());
}

TEST(clsEmployee, IsValidatedWithNothingInIt) {
  clsEmployee employee;
  employee.Create(nullptr, nullptr);
  EXPECT_TRUE(employee.Validated());
  EXPECT_TRUE(employee.IsValidated(eRTISUBMISSIONTYPE::IsFPS));
}

TEST(clsEmployee, MarkingReachesDetailsAndEmployments) {
  const auto employee = std::make_shared<clsEmployee>();
  employee->AddEmployment();
  employee->EmployeeDetails()->Contact(nullptr);
  employee->GetEmployment(1)->Create("", nullptr, nullptr);
  employee->Validated(true);
  EXPECT_TRUE(employee->Validated());
  employee->Validated(false);
  EXPECT_FALSE(employee->EmployeeDetails()->Validated());
  EXPECT_FALSE(employee->GetEmployment(1)->Validated());
}

TEST(clsEmployee, StoresDetailsAndClearsTheirFlag) {
  const auto details = std::make_shared<clsEmployeeDetails>();
  details->Contact(nullptr);
  details->Validated(true);
  clsEmployee employee;
  employee.EmployeeDetails(details);
  EXPECT_EQ(employee.EmployeeDetails(), details);
  EXPECT_FALSE(details->Validated());
  employee.EmployeeDetails(nullptr);
  EXPECT_NE(employee.EmployeeDetails(), nullptr);
}

TEST(clsEmployee, IsKnownByNINOElseByNameAndBirthDate) {
  clsEmployee employee;
  employee.EmployeeDetails()->CreateContact("Ms", "Petra", "Oakshott");
  employee.EmployeeDetails()->DateOfBirth(Date::FromParts(1984, 2, 29));
  EXPECT_EQ(employee.EmployeeKey(), "Petra_Oakshott_19840229");
  employee.EmployeeDetails()->NINO("AB123456C");
  EXPECT_EQ(employee.EmployeeKey(), "AB123456C");
}

TEST(clsEmployee, AddsEmploymentsAndBecomesTheirParent) {
  const auto employee = std::make_shared<clsEmployee>();
  const auto given = std::make_shared<clsEmployment>();
  given->Create("K", nullptr, nullptr);
  given->Validated(true);
  EXPECT_EQ(employee->AddEmployment(given), given);
  EXPECT_FALSE(given->Validated());
  EXPECT_EQ(given->Parent(), employee);
  const Ref<clsEmployment> made = employee->AddEmployment();
  EXPECT_EQ(made->Parent(), employee);
  EXPECT_EQ(employee->GetEmployment(2), made);
}

TEST(clsEmployee, WarnsOfTheFifteenthAddedEmployment) {
  const WithRecordingHost host;
  const auto employee = std::make_shared<clsEmployee>();
  for (int i = 1; i <= 14; ++i) EXPECT_NE(employee->AddEmployment(), nullptr);
  EXPECT_TRUE(host->messages.empty());
  EXPECT_EQ(employee->AddEmployment(), nullptr);
  EXPECT_EQ(employee->Employment()->Count(), 15);
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text, kTooMany);
  EXPECT_EQ(employee->AddEmployment(), nullptr);
  EXPECT_EQ(employee->Employment()->Count(), 16);
  EXPECT_EQ(host->messages.size(), 2U);
}

TEST(clsEmployee, TakesFifteenAssignedEmployments) {
  const auto employee = std::make_shared<clsEmployee>();
  const CollectionRef<clsEmployment> fifteen = Employments(15);
  employee->Employment(fifteen);
  EXPECT_EQ(employee->Employment(), fifteen);
  for (const Ref<clsEmployment>& each : *fifteen) EXPECT_EQ(each->Parent(), employee);
}

TEST(clsEmployee, RaisesForSixteenAssignedEmployments) {
  const WithRecordingHost host;
  const auto employee = std::make_shared<clsEmployee>();
  const CollectionRef<clsEmployment> sixteen = Employments(16);
  const RuntimeError error = ErrorOf([&] { employee->Employment(sixteen); });
  EXPECT_EQ(error.Number(), 6001);
  EXPECT_EQ(error.Source(), "[ZELNOR.dll::clsEmployee]: EmploymentAddEmployment");
  EXPECT_EQ(error.Description(), "Maximum Employments exceeded!");
  EXPECT_EQ(employee->Employment(), sixteen);
  EXPECT_EQ(sixteen->Item(16)->Parent(), employee);
  EXPECT_TRUE(host->messages.empty());
}

TEST(clsEmployee, RaisesForNoCollectionOfEmployments) {
  clsEmployee employee;
  const RuntimeError error = ErrorOf([&] { employee.Employment(nullptr); });
  EXPECT_EQ(error.Number(), 91);
  EXPECT_EQ(error.Source(), "[ZELNOR.dll::clsEmployee]: EmploymentZELNOR");
  EXPECT_EQ(employee.Employment()->Count(), 0);
}

TEST(clsEmployee, ReportsAPositionWithoutEmployment) {
  const WithRecordingHost host;
  clsEmployee employee;
  employee.Employment()->Add(std::make_shared<clsEmployment>());
  EXPECT_NE(employee.GetEmployment(1), nullptr);
  EXPECT_EQ(employee.GetEmployment(0), nullptr);
  EXPECT_EQ(employee.GetEmployment(2), nullptr);
  ASSERT_EQ(host->messages.size(), 2U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsEmployee: Function GetEmployment: Error 9 - Subscript out of range");
}

TEST(clsEmployee, FindsTheFirstEmploymentOfAPayrollIdInAnyCase) {
  const auto employee = std::make_shared<clsEmployee>();
  employee->AddEmployment()->PayID("other");
  const Ref<clsEmployment> first = employee->AddEmployment();
  first->PayID("Kb-1");
  employee->AddEmployment()->PayID("KB-1");
  EXPECT_EQ(employee->GetEmploymentByPayID("kB-1"), first);
  EXPECT_EQ(employee->GetEmploymentByPayID("KB-2"), nullptr);
}

TEST(clsEmployee, TellsWhatAnyEmploymentHas) {
  const auto employee = std::make_shared<clsEmployee>();
  employee->AddEmployment();
  const Ref<clsEmployment> second = employee->AddEmployment();
  EXPECT_FALSE(employee->HasPaymentToANonIndividualSet());
  EXPECT_FALSE(employee->HasDirectorWeekNumberSet());
  EXPECT_FALSE(employee->HasStarterInfo());
  EXPECT_FALSE(employee->HasLeavingDate());
  EXPECT_FALSE(employee->HasTrivialCommutationPayment());
  second->IsNonIndividual(true);
  EXPECT_TRUE(employee->HasPaymentToANonIndividualSet());
  second->WkOrMonthNoDirectorAppt(3);
  EXPECT_TRUE(employee->HasDirectorWeekNumberSet());
  second->Starter(std::make_shared<clsStarter>());
  EXPECT_TRUE(employee->HasStarterInfo());
  second->LeavingDate(Date::FromParts(1901, 1, 1));
  EXPECT_FALSE(employee->HasLeavingDate());
  second->LeavingDate(Date::FromParts(1901, 1, 2));
  EXPECT_TRUE(employee->HasLeavingDate());
  second->Payment()->SetTrivialCommutationPayment(tcpPaymentType::tcptOccupationalPension, Currency(-1));
  EXPECT_TRUE(employee->HasTrivialCommutationPayment());
}

TEST(clsEmployee, PassesErrorsOfFourQuestionsOn) {
  const WithRecordingHost host;
  const auto employee = EmployeeWithAGap();
  const auto source_of = [&](bool (clsEmployee::*question)() const) {
    return ErrorOf([&] { ((*employee).*question)(); }).Source();
  };
  EXPECT_EQ(source_of(&clsEmployee::HasDirectorWeekNumberSet),
            "[clsEmployee]: HasDirectorWeekNumberSetZELNOR");
  EXPECT_EQ(source_of(&clsEmployee::HasStarterInfo), "[clsEmployee]: HasStarterInfoZELNOR");
  EXPECT_EQ(source_of(&clsEmployee::HasLeavingDate), "[clsEmployee]: HasLeavingDateZELNOR");
  EXPECT_EQ(source_of(&clsEmployee::HasTrivialCommutationPayment),
            "[clsEmployee]: HasTrivialCommutationPaymentZELNOR");
  EXPECT_TRUE(host->messages.empty());
}

TEST(clsEmployee, ShowsErrorsOfTheFifth) {
  const WithRecordingHost host;
  EXPECT_FALSE(EmployeeWithAGap()->HasPaymentToANonIndividualSet());
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsEmployee: Get HasPaymentToANonIndividualSet: Error 91 - "
            "Object variable or With block variable not set");
}

TEST(clsEmployee, ShowsAFailureOfWritingAndReturnsWhatItHas) {
  const WithRecordingHost host;
  const XmlNode written = EmployeeWithAGap()->ToXML(Root("<P/>"));
  EXPECT_EQ(NamesOfChildren(written), "EmployeeDetails ");
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsEmployee: Function ToXML: Error 91 - "
            "Object variable or With block variable not set");
}

TEST(clsEmployee, ReadsOnAfterAnEmploymentThatFails) {
  const WithRecordingHost host;
  clsEmployee employee;
  EXPECT_TRUE(employee.ParseFromXML(
      "<Employee><Employment><PayId>K-1</PayId><LeavingDate>soon</LeavingDate></Employment>"
      "<Employment><PayId>K-2</PayId></Employment></Employee>"));
  EXPECT_EQ(employee.Employment()->Count(), 2);
  EXPECT_EQ(employee.EmployeeCode(), "K-2");
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsEmployment: Function CreateFromXML: Error 13 - Type mismatch");
}

TEST(clsEmployee, WorksWithoutASharedReference) {
  clsEmployee employee;
  const Ref<clsEmployment> employment = employee.AddEmployment();
  EXPECT_EQ(employment->Parent(), nullptr);
  EXPECT_EQ(NamesOfChildren(employee.ToXML(Root("<P/>"))), "EmployeeDetails Employment ");
}
