/// @file
/// An application that has nothing of Zelnor but its package: tells what a Full Payment Submission holds, and
/// saves it anew, validated and marked.
///
///     summary FILE [OUT]      FILE: a GovTalk message, such as /usr/share/zelnor/samples/FPS-25-26.xml
///                             OUT: the file to write; without it, marked.xml in this folder

#include <filesystem>
#include <iostream>
#include <zelnor/common/clsLog.h>
#include <zelnor/controller/clsRTIController.h>
#include <zelnor/documents/clsEmployee.h>
#include <zelnor/documents/clsEmployment.h>
#include <zelnor/documents/clsPayment.h>
#include <zelnor/documents/clsSectionFPS.h>
#include <zelnor/documents/clsSectionIRHeader.h>
#include <zelnor/documents/clsSubmission.h>
#include <zelnor/envelope/clsIRMark.h>
#include <zelnor/platform/conversions.h>
#include <zelnor/platform/failure.h>
#include <zelnor/platform/files.h>
#include <zelnor/platform/formats.h>

namespace {

int Summarise(const std::string& file, const std::string& out) {
  using namespace zelnor;
  FurnishProgramFolder();  // settings, schemas and logs: $ZELNOR_HOME, else ~/.local/share/zelnor

  clsRTIController rti;
  rti.ReadXML(ReadFile(file));
  const Ref<clsSectionFPS> fps = rti.Submission()->FPS();
  if (!fps) {
    std::cerr << file << " is no Full Payment Submission.\n";
    return 1;
  }
  Currency pay;
  for (const Ref<clsEmployee>& employee : *fps->Employees()) {
    for (const Ref<clsEmployment>& job : *employee->Employment()) pay += job->Payment()->TaxablePay();
  }
  std::cout << rti.GetQuickClassDescr() << ": " << fps->EmployeeCount() << " employees, taxable pay "
            << Format(pay, "#,##0.00") << "\n";

  rti.Submission()->Header()->DocIRMark()->value("");  // a new mark for what is written anew
  rti.SystemDate(ToDate("2025-10-07"));                // the samples are of that month
  const SUBMISSION_RESULT result = rti.SaveSubmission(out);
  if (result != SUBMISSION_RESULT::Successful) {
    std::cerr << "Not valid; the log " << rti.ProcessingLog()->LogFilePath() << " tells why.\n";
    return 1;
  }
  std::cout << "IRmark " << rti.Submission()->Header()->DocIRMark()->value() << "\n";
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "usage: summary FILE [OUT]\n";
    return 2;
  }
  try {
    return Summarise(std::filesystem::absolute(argv[1]).string(),
                     std::filesystem::absolute(argc > 2 ? argv[2] : "marked.xml").string());
  } catch (const zelnor::RuntimeError& error) {
    std::cerr << error.Description() << "\n";
    return 1;
  }
}
