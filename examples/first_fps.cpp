/// @file
/// Reads a Full Payment Submission, looks at it as objects and saves it marked.
///
///     first_fps [FILE [OUT]]      FILE: a GovTalk message, such as samples/FPS-25-26.xml; without it, a
///     small built-in one
///                                 OUT: the file to write; without it, first-fps.xml in this folder
///
/// Settings, schemas and logs lie in the program's folder: $ZELNOR_HOME, else ~/.local/share/zelnor.

#include <filesystem>
#include <iostream>
#include <zelnor/controller/clsRTIController.h>
#include <zelnor/documents/clsEmployee.h>
#include <zelnor/documents/clsEmployeeDetails.h>
#include <zelnor/documents/clsEmployeeNameType.h>
#include <zelnor/documents/clsSectionFPS.h>
#include <zelnor/documents/clsSectionIRHeader.h>
#include <zelnor/documents/clsSubmission.h>
#include <zelnor/envelope/clsIRMark.h>
#include <zelnor/platform/failure.h>
#include <zelnor/platform/files.h>

namespace {

constexpr const char* kSmallMessage = R"(<GovTalkMessage xmlns="http://www.govtalk.gov.uk/CM/envelope">
  <EnvelopeVersion>2.0</EnvelopeVersion>
  <Header>
    <MessageDetails>
      <Class>HMRC-PAYE-RTI-FPS</Class><Qualifier>request</Qualifier><Function>submit</Function>
      <Transformation>XML</Transformation>
    </MessageDetails>
    <SenderDetails/>
  </Header>
  <GovTalkDetails><Keys><Key Type="TaxOfficeNumber">961</Key><Key Type="TaxOfficeReference">BW42719</Key></Keys></GovTalkDetails>
  <Body>
    <IRenvelope xmlns="http://www.govtalk.gov.uk/taxation/PAYE/RTI/FullPaymentSubmission/25-26/1">
      <IRheader>
        <Keys><Key Type="TaxOfficeNumber">961</Key><Key Type="TaxOfficeReference">BW42719</Key></Keys>
        <PeriodEnd>2026-04-05</PeriodEnd>
        <Principal><Contact><Name><Fore>Philippa</Fore><Sur>Garside</Sur></Name></Contact></Principal>
        <Sender>Employer</Sender>
      </IRheader>
      <FullPaymentSubmission>
        <EmpRefs><OfficeNo>961</OfficeNo><PayeRef>BW42719</PayeRef><AORef>961PA00012345</AORef></EmpRefs>
        <RelatedTaxYear>25-26</RelatedTaxYear>
        <Employee>
          <EmployeeDetails>
            <Name><Fore>Winifred</Fore><Sur>Loomis</Sur></Name>
            <BirthDate>1984-03-17</BirthDate><Gender>F</Gender>
          </EmployeeDetails>
          <Employment>
            <PayId>W1</PayId>
            <Payment>
              <PayFreq>M1</PayFreq><PmtDate>2025-09-30</PmtDate><MonthNo>6</MonthNo><PeriodsCovered>1</PeriodsCovered>
              <HoursWorked>30 hours or more</HoursWorked><TaxCode>1257L</TaxCode>
              <TaxablePay>1000.00</TaxablePay><PayAfterStatDedns>1000.00</PayAfterStatDedns>
            </Payment>
          </Employment>
        </Employee>
      </FullPaymentSubmission>
    </IRenvelope>
  </Body>
</GovTalkMessage>)";

int Run(const std::string& text, const std::string& out) {
  using namespace zelnor;
  FurnishProgramFolder();

  clsRTIController rti;
  rti.ReadXML(text);
  const Ref<clsSectionFPS> fps = rti.Submission()->FPS();
  if (!fps) {
    std::cerr << "This is no Full Payment Submission.\n";
    return 1;
  }
  std::cout << rti.GetQuickClassDescr() << ", " << fps->TaxYear() << ", " << fps->EmployeeCount()
            << " employee(s)\n";
  for (const Ref<clsEmployee>& employee : *fps->Employees()) {
    const Ref<clsEmployeeNameType> name = employee->EmployeeDetails()->Contact();
    std::cout << "  " << name->Forename() << " " << name->Surname() << ", payroll ID "
              << employee->EmployeeCode() << "\n";
  }

  // The document is written anew, so a mark that came with it no longer fits.
  rti.Submission()->Header()->DocIRMark()->value("");
  const SUBMISSION_RESULT result = rti.SaveSubmission(out);
  if (!rti.SubmissionSaved()) return 1;
  std::cout << "saved as " << out << ", IRmark " << rti.Submission()->Header()->DocIRMark()->value() << "\n";
  return result == SUBMISSION_RESULT::Successful ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::string text =
        argc > 1 ? zelnor::ReadFile(std::filesystem::absolute(argv[1]).string()) : kSmallMessage;
    return Run(text, std::filesystem::absolute(argc > 2 ? argv[2] : "first-fps.xml").string());
  } catch (const zelnor::RuntimeError& error) {
    std::cerr << error.Description() << "\n";
    return 1;
  }
}
