/// @file
/// Builds one document of each kind besides the Full Payment Submission, and saves them marked.
///
///     other_documents [FOLDER]    where to save; without it, this folder
///
/// Settings, schemas and logs lie in the program's folder: $ZELNOR_HOME, else ~/.local/share/zelnor. Firm,
/// people, references and password are invented.

#include <filesystem>
#include <iostream>
#include <zelnor/controller/clsRTIController.h>
#include <zelnor/documents/clsContact.h>
#include <zelnor/documents/clsEmployee.h>
#include <zelnor/documents/clsEmployeeDetails.h>
#include <zelnor/documents/clsEmployerReferences.h>
#include <zelnor/documents/clsEmployment.h>
#include <zelnor/documents/clsNILettersAndValues.h>
#include <zelnor/documents/clsPayment.h>
#include <zelnor/documents/clsPaymentForPeriod.h>
#include <zelnor/documents/clsSectionEAS.h>
#include <zelnor/documents/clsSectionEPS.h>
#include <zelnor/documents/clsSectionEYU.h>
#include <zelnor/documents/clsSectionIRHeader.h>
#include <zelnor/documents/clsSectionNVR.h>
#include <zelnor/documents/clsSubmission.h>
#include <zelnor/documents/clsTaxCode.h>
#include <zelnor/envelope/clsGTMGovTalkDetails.h>
#include <zelnor/envelope/clsGTMSenderDetails.h>
#include <zelnor/envelope/clsGovTalkMessage.h>
#include <zelnor/envelope/clsIRMark.h>
#include <zelnor/platform/failure.h>
#include <zelnor/platform/files.h>

namespace {

using namespace zelnor;

constexpr const char* kOffice = "961";
constexpr const char* kReference = "BW42719";
constexpr const char* kAccountsOffice = "961PY00427198";

// A controller with an envelope for a document of that kind; the section is still empty.
void Begin(clsRTIController& rti, eRTISUBMISSIONTYPE type) {
  rti.SubmissionType(type);
  clsGovTalkMessage& message = *rti.GovTalkMessage();
  message.Header_SenderDetails()->Create("SAMPLE000001", "principal", "not-a-real-password", "", "clear");
  message.GTMGovTalkDetails()->Create(kOffice, kReference, "9999", "Example payroll", "1.0");
  clsSectionIRHeader& header = *rti.Submission()->Header();
  header.AddKey("TaxOfficeNumber", kOffice);
  header.AddKey("TaxOfficeReference", kReference);
  header.PeriodEndDate(Date::FromParts(2026, 4, 5));
  header.PrincipalContact()->CreateContactName("Mrs", "Philippa", "Garside");
  header.SenderType(enmSender::IsEmployer);
  header.DocIRMark();  // the mark has its place in the header
}

Ref<clsEmployee> Weaver() {
  auto employee = std::make_shared<clsEmployee>();
  clsEmployeeDetails& person = *employee->EmployeeDetails();
  person.NINO("AA104217C");
  person.CreateContact("Ms", "Winifred", "Loomis");
  person.DateOfBirth(Date::FromParts(1984, 3, 17));
  person.Gender(EMPLOYEE_GENDER::f);
  employee->AddEmployment()->PayID("W1");
  return employee;
}

// Employer Payment Summary: what is recovered, up to the end of tax month 6.
void FillEPS(clsSectionEPS& eps) {
  eps.Employer_References()->Create(kOffice, kReference, kAccountsOffice);
  eps.TaxYear("25-26");
  eps.EmploymentAllowanceIndicator(true);
  clsPaymentForPeriod& recovered = *eps.PaymentForPeriod();
  recovered.TaxMonth("6");
  recovered.SMPRecovered(Currency::FromPence(214050));
  recovered.NICCompensationOnSMP(Currency::FromPence(19799));
}

// NINO Verification Request: is this her number?
void FillNVR(clsSectionNVR& nvr) {
  nvr.Employer_References()->Create(kOffice, kReference, kAccountsOffice);
  nvr.AddEmployee(Weaver());
}

// Employer Alignment Submission: the employees as the payroll knows them.
void FillEAS(clsSectionEAS& eas) {
  eas.Employer_References()->Create(kOffice, kReference, kAccountsOffice);
  eas.NumberOfParts(1);
  const Ref<clsEmployee> employee = Weaver();
  employee->GetEmployment(1)->Payment()->TaxCode()->Create("1257L");
  eas.AddEmployee(employee);
}

// Earlier Year Update: what changes, for a year up to 2019-20.
void FillEYU(clsSectionEYU& eyu) {
  eyu.Employer_References()->Create(kOffice, kReference, kAccountsOffice);
  eyu.TaxYear("19-20");
  const Ref<clsEmployee> employee = Weaver();
  clsPayment& payment = *employee->GetEmployment(1)->Payment();
  payment.TaxCode()->Create("1250L");
  payment.TaxablePay(Currency(-250));
  payment.TaxDeductedOrRefunded(Currency(-50));
  eyu.AddEmployee(employee);
}

bool Save(clsRTIController& rti, const std::string& path) {
  rti.SystemDate(Date::FromParts(2025, 10, 7));
  const SUBMISSION_RESULT result = rti.SaveSubmission(path);
  std::cout << rti.GetQuickClassDescr() << ": " << path << ", IRmark "
            << rti.Submission()->Header()->DocIRMark()->value() << "\n";
  if (result != SUBMISSION_RESULT::Successful) std::cout << rti.Errors().Xml() << "\n";
  return result == SUBMISSION_RESULT::Successful;
}

int Run(const std::string& folder) {
  FurnishProgramFolder();
  bool saved = true;
  {
    clsRTIController rti;
    Begin(rti, eRTISUBMISSIONTYPE::IsEPS);
    FillEPS(*rti.Submission()->EPS());
    saved = Save(rti, folder + "/eps.xml") && saved;
  }
  {
    clsRTIController rti;
    Begin(rti, eRTISUBMISSIONTYPE::IsNVR);
    FillNVR(*rti.Submission()->NVR());
    saved = Save(rti, folder + "/nvr.xml") && saved;
  }
  {
    clsRTIController rti;
    Begin(rti, eRTISUBMISSIONTYPE::IsEAS);
    FillEAS(*rti.Submission()->EAS());
    saved = Save(rti, folder + "/eas.xml") && saved;
  }
  {
    clsRTIController rti;
    Begin(rti, eRTISUBMISSIONTYPE::IsEYU);
    rti.Submission()->Header()->PeriodEndDate(Date::FromParts(2020, 4, 5));
    FillEYU(*rti.Submission()->EYU());
    saved = Save(rti, folder + "/eyu.xml") && saved;
  }
  return saved ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(std::filesystem::absolute(argc > 1 ? argv[1] : ".").string());
  } catch (const RuntimeError& error) {
    std::cerr << error.Description() << "\n";
    return 1;
  }
}
