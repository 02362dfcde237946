/// @file
/// Builds a Full Payment Submission from objects and saves it marked.
///
///     build_fps [OUT]             OUT: the file to write; without it, built-fps.xml in this folder
///
/// Settings, schemas and logs lie in the program's folder: $ZELNOR_HOME, else ~/.local/share/zelnor. Firm,
/// person, references and password are invented.

#include <filesystem>
#include <iostream>
#include <zelnor/controller/clsRTIController.h>
#include <zelnor/documents/clsContact.h>
#include <zelnor/documents/clsEmployee.h>
#include <zelnor/documents/clsEmployeeDetails.h>
#include <zelnor/documents/clsEmployerReferences.h>
#include <zelnor/documents/clsEmployment.h>
#include <zelnor/documents/clsFiguresToDate.h>
#include <zelnor/documents/clsNILettersAndValues.h>
#include <zelnor/documents/clsPayment.h>
#include <zelnor/documents/clsSectionFPS.h>
#include <zelnor/documents/clsSectionIRHeader.h>
#include <zelnor/documents/clsSubmission.h>
#include <zelnor/documents/clsTaxCode.h>
#include <zelnor/envelope/clsGTMGovTalkDetails.h>
#include <zelnor/envelope/clsGTMSenderDetails.h>
#include <zelnor/envelope/clsGTMTargetDetails.h>
#include <zelnor/envelope/clsGovTalkMessage.h>
#include <zelnor/envelope/clsIRMark.h>
#include <zelnor/platform/failure.h>
#include <zelnor/platform/files.h>

namespace {

using namespace zelnor;

constexpr const char* kOffice = "961";
constexpr const char* kReference = "BW42719";

// Who sends, to whom, and about which employer.
void FillEnvelope(clsGovTalkMessage& message) {
  message.Header_SenderDetails()->Create("SAMPLE000001", "principal", "not-a-real-password", "", "clear");
  message.GTMGovTalkDetails()->Create(kOffice, kReference, "9999", "Example payroll", "1.0");
  auto target = std::make_shared<clsGTMTargetDetails>();
  target->AddOrganisation("IR");
  message.GTMGovTalkDetails()->TargetDetails(target);
}

// The header's keys say whose document it is; a contact keeps the element Principal from standing empty.
void FillHeader(clsSectionIRHeader& header) {
  header.AddKey("TaxOfficeNumber", kOffice);
  header.AddKey("TaxOfficeReference", kReference);
  header.PeriodEndDate(Date::FromParts(2026, 4, 5));
  header.PrincipalContact()->CreateContactName("Mrs", "Philippa", "Garside");
  header.DefaultCurrencyType("GBP");
  header.SenderType(enmSender::IsEmployer);
}

// Month 6: 2,500 pounds, of which 290.40 tax and 116.16 National Insurance.
void FillPayment(clsPayment& payment) {
  payment.PayFrequency(PAY_FREQUENCY::CalendarMonthly);
  payment.PayDate(Date::FromParts(2025, 9, 30));
  payment.MonthNo("6");
  payment.PeriodsCovered(1);
  payment.SetHoursWorkedByValue(37.5);
  payment.TaxCode()->Create("1257L");
  payment.TaxablePay(Currency(2500));
  payment.TaxDeductedOrRefunded(Currency::FromPence(29040));
  payment.PayAfterStatDedns(Currency::FromPence(209344));
}

Ref<clsNILettersAndValues> NationalInsurance() {
  auto row = std::make_shared<clsNILettersAndValues>();
  row->NILetter("A");
  row->PaySubjectToNIC(Currency(2500));
  row->PaySubjectToNICYTD(Currency(15000));
  row->AtLEL(Currency(3252));
  row->LELtoPT(Currency(3036));
  row->PTtoUEL(Currency(8712));
  row->TotalEmpNIC(Currency::FromPence(31245));
  row->TotalEmpNICYTD(Currency::FromPence(187470));
  row->EmpeeContribns(Currency::FromPence(11616));
  row->EmpeeContribnsYTD(Currency::FromPence(69696));
  return row;
}

Ref<clsEmployee> Employee() {
  auto employee = std::make_shared<clsEmployee>();
  clsEmployeeDetails& person = *employee->EmployeeDetails();
  person.NINO("AA104217C");
  person.CreateContact("Ms", "Winifred", "Loomis");
  person.CreateAddress("3 Bobbin Row", "Bramblewick", "", "", "LS12 4QZ");
  person.DateOfBirth(Date::FromParts(1984, 3, 17));
  person.Gender(EMPLOYEE_GENDER::f);

  clsEmployment& job = *employee->AddEmployment();
  job.PayID("W1");
  job.FiguresToDate()->Create(Currency(15000), Currency::FromPence(174240));
  FillPayment(*job.Payment());
  job.AddNILettersAndValues(NationalInsurance());
  return employee;
}

int Run(const std::string& out) {
  FurnishProgramFolder();
  clsRTIController rti;  // starts as an empty Full Payment Submission
  FillEnvelope(*rti.GovTalkMessage());
  FillHeader(*rti.Submission()->Header());
  const Ref<clsSectionFPS> fps = rti.Submission()->FPS();
  fps->Employer_References()->Create(kOffice, kReference, "961PA00012345");
  fps->TaxYear("25-26");
  fps->AddEmployee(Employee());

  const SUBMISSION_RESULT result = rti.SaveSubmission(out);
  if (!rti.SubmissionSaved()) return 1;
  std::cout << "saved as " << out << ", IRmark " << rti.Submission()->Header()->DocIRMark()->value() << "\n"
            << "tax in this period: " << fps->TotalTaxPaid().ToDouble() << "\n";
  return result == SUBMISSION_RESULT::Successful ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(std::filesystem::absolute(argc > 1 ? argv[1] : "built-fps.xml").string());
  } catch (const RuntimeError& error) {
    std::cerr << error.Description() << "\n";
    return 1;
  }
}
