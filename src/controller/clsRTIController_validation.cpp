#include "zelnor/common/clsLog.h"
#include "zelnor/common/modPublicEnums.h"
#include "zelnor/common/record.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/controller/log_text.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionNVR.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/platform/host.h"
#include "zelnor/validation/vlsCompanyValidator.h"
#include "zelnor/validation/vlsEmployeeValidator.h"
#include "zelnor/validation/vlsFileValidator.h"
#include "zelnor/validation/vlsPaymentForPeriodValidator.h"
#include "zelnor/validation/vlsSchemaValidator.h"

namespace zelnor {
namespace {

using enum eRTISUBMISSIONTYPE;

constexpr std::string_view kClass = "clsRTIController";
constexpr const char* kCancelled = "Validation cancelled at user's request.";

}  // namespace

bool clsRTIController::Validate() {
  bool result = false;
  Handled(kClass, "Function Validate", [&] {
    if (log_this_session_) Required(log_).SetSubmissionType(SubmissionType());
    stage_text_ = "Validating data for " + GetQuickClassDescr() + ", please wait";
    cancel_requested_ = false;
    const Ref<clsGovTalkMessage> message = mobjGovTalkMessage;
    Required(log_).ClearSubmission();
    log_->AppendSubmission(Required(message).Document().DocumentElement());
    log_->Save();
    if (!validation_required_) {
      result = true;
      SaveLog();
      return;
    }
    Log("Beginning validation...");
    const std::int64_t run_start = LogTick();
    if (!RunStages(result)) return;
    Log("Total time to validate: " + LogCount(LogTick() - run_start) + " milliseconds.");
    Log("Validation completed at " + LogMoment() + ".");
    Status(result ? "Validation successful" : "Validation failed", 100);
    SaveLog();
  });
  return result;
}

// Runs the stages in their order. False when the run ends early, by a cancel or since the allowance is spent.
bool clsRTIController::RunStages(bool& result) {
  Integer allowance = 0;
  std::int64_t stage_start = LogTick();
  return !Cancelled() && EnvelopeStage(result, allowance, stage_start) &&
         CompanyStage(result, allowance, stage_start) && EmployeeStage(result, allowance, stage_start) &&
         PaymentStage(result, allowance, stage_start) && SchemaStage(result, stage_start);
}

bool clsRTIController::EnvelopeStage(bool& result, Integer& allowance, std::int64_t& stage_start) {
  if (!do_envelope_validation_) {
    Log("Envelope Validation is disabled... proceeding with next stage.");
    return true;
  }
  Log("Validation commenced at " + LogMoment() + ".");
  Status("Commencing Validation...", 0);
  allowance = max_errors_;
  Status("Validating Envelope...", 1);
  result = ValidateFile(allowance);
  LogStageTime("Envelope Validation", stage_start);
  if (AllowanceIsSpent(allowance, file_validator_->ErrorCount())) return false;
  Status("Envelope Validation Completed", 10);
  return !Cancelled();
}

bool clsRTIController::CompanyStage(bool& result, Integer& allowance, std::int64_t& stage_start) {
  if (!do_company_validation_) {
    Log("Company Validation is disabled... proceeding with next stage.");
    return true;
  }
  if (Cancelled()) return false;
  Status("Validating Company...", 11);
  result = ValidateCompany(allowance) && result;
  LogStageTime("Company Validation", stage_start);
  if (AllowanceIsSpent(allowance, company_validator_->ErrorCount())) return false;
  Status("Company Validation completed", 20);
  return !Cancelled();
}

bool clsRTIController::EmployeeStage(bool& result, Integer allowance, std::int64_t& stage_start) {
  if (!do_employee_validation_) {
    Log("Employee Validation is disabled... proceeding with next stage.");
    return true;
  }
  if (Cancelled()) return false;
  const eRTISUBMISSIONTYPE type = SubmissionType();
  if (type == IsEYU || type == IsNVR || type == IsEAS || type == IsFPS) {
    Status("Validating Employees...", 21);
    result = ValidateEmployees(allowance) && result;
    LogStageTime("Employee Validation", stage_start);
    Status("Employee Validation Completed", 75);
  }
  return !Cancelled();
}

bool clsRTIController::PaymentStage(bool& result, Integer allowance, std::int64_t& stage_start) {
  if (!do_payment_validation_) {
    Log("Payment Validation is disabled... proceeding with next stage.");
    return true;
  }
  if (Cancelled()) return false;
  if (SubmissionType() == IsEPS) {
    Status("Employee Validation Completed", 76);
    result = ValidatePaymentForPeriod(allowance) && result;
    LogStageTime("Payment for Period Validation", stage_start);
    Status("Payment for Period Validation Completed", 89);
  }
  return !Cancelled();
}

bool clsRTIController::SchemaStage(bool& result, std::int64_t& stage_start) {
  if (!do_schema_validation_) {
    Log("Schema Validation is disabled... proceeding with next stage.");
    return true;
  }
  if (Cancelled()) return false;
  if (result) {
    Status("Validating Schema...", 90);
    if (schema_validator_->ValidateSchema(Required(Submission()).Class(),
                                          Required(mobjGovTalkMessage).Document())) {
      Log("Schema validation passed successfully.");
    } else {
      Log("Schema validation failed.");
      if (log_this_session_) Required(log_).AddSchemaValidationError(schema_validator_->GetAsXML());
      result = false;
    }
    LogStageTime("Schema Validation", stage_start);
    Status("Schema Validation Completed", 99);
  }
  return !Cancelled();
}

void clsRTIController::Status(const String& detail, Long percent) {
  UpdateStatus(stage_text_, detail, percent);
}

bool clsRTIController::Cancelled() {
  if (!cancel_requested_) return false;
  Log(kCancelled);
  SaveLog();
  return true;
}

// Takes the errors from the allowance. True, with the log saved, when nothing is left of one that is in
// force.
bool clsRTIController::AllowanceIsSpent(Integer& allowance, Long errors) {
  if (max_errors_ == 0) return false;
  allowance = GetRemainingErrors(allowance, errors);
  if (allowance != 0) return false;
  SaveLog();
  return true;
}

void clsRTIController::LogStageTime(const String& stage, std::int64_t& stage_start) {
  Log(stage + " completed in " + LogCount(LogTick() - stage_start) + " milliseconds.");
  stage_start = LogTick();
}

Integer clsRTIController::GetRemainingErrors(Integer intAllowance, Long lngCount) {
  return lngCount > intAllowance ? Integer{0} : static_cast<Integer>(intAllowance - lngCount);
}

bool clsRTIController::ValidateFile(Integer intMaxErrors) {
  bool result = true;
  const bool done = Handled(kClass, "Function ValidateFile", [&] {
    file_validator_ = std::make_shared<vlsFileValidator>();
    file_validator_->MaxErrors(intMaxErrors);
    const std::int64_t start = LogTick();
    Log("Commencing File Validation");
    if (cancel_requested_) return Log(kCancelled);
    result = file_validator_->ValidateFile(mobjGovTalkMessage);
    if (result) {
      Log("File Validation successful.");
    } else if (log_this_session_) {
      Required(log_).AddFileValidationErrors(file_validator_->GetAsXML());
      Log("File Validation failed. " + LogCount(file_validator_->ErrorCount()) + " errors found.");
    }
    Log("File Validation completed in " + LogCount(LogTick() - start) + " milliseconds");
  });
  return done && result;  // a stage that broke off has not passed
}

bool clsRTIController::ValidateCompany(Integer intMaxErrors) {
  bool result = true;
  const bool done = Handled(kClass, "Function ValidateCompany", [&] {
    company_validator_ = std::make_shared<vlsCompanyValidator>();
    company_validator_->MaxErrors(intMaxErrors);
    const std::int64_t start = LogTick();
    Log("Commencing Company Validation");
    if (cancel_requested_) return Log(kCancelled);
    result = company_validator_->ValidateCompany(Submission());
    if (result) {
      Log("Company Validation successful.");
    } else if (log_this_session_) {
      Log("Company Validation failed. " + LogCount(company_validator_->ErrorCount()) + " errors found.");
      Required(log_).AddCompanyValidationErrors(company_validator_->GetAsXML());
    }
    Log("Company Validation completed in " + LogCount(LogTick() - start) + " milliseconds");
  });
  return done && result;  // a stage that broke off has not passed
}

bool clsRTIController::ValidateEmployees(Integer intMaxErrors) {
  bool result = false;
  const bool done = Handled(kClass, "Function ValidateEmployees", [&] {
    employee_validator_ = std::make_shared<vlsEmployeeValidator>();
    employee_validator_->MaxErrors(intMaxErrors);
    if (employee_progress_) {
      employee_validator_->events.ProgressChanged.connect(
          [this] { employee_progress_(*employee_validator_); });
    }
    const std::int64_t start = LogTick();
    if (cancel_requested_) return Log(kCancelled);
    result = true;
    const Ref<clsSubmission> submission = Submission();
    const eRTISUBMISSIONTYPE type = Required(submission).SubmissionType();
    CollectionRef<clsEmployee> employees;
    String tax_year;
    if (type == IsFPS) {
      employees = submission->FPS()->Employees();
      tax_year = submission->FPS()->TaxYear();
    } else if (type == IsNVR) {
      employees = submission->NVR()->Employees();
    } else if (type == IsEAS) {
      employees = submission->EAS()->Employees();
    } else if (type == IsEYU) {
      employees = submission->EYU()->Employees();
      tax_year = submission->EYU()->TaxYear();
    }
    Log("Commencing Employee Validation");
    result = employee_validator_->ValidateEmployees(employees, type, tax_year);
    if (result) {
      Log("Employee Validation successful.");
    } else if (log_this_session_) {
      Log("Employee Validation failed. " + LogCount(employee_validator_->ErrorCount()) + " errors found.");
      Required(log_).AddEmployeeValidationErrors(employee_validator_->GetAsXML());
    }
    const std::int64_t time = LogTick() - start;
    Log("Employee Validation completed in " + LogCount(time) + " milliseconds");
    if (employees && employees->Count() > 0) {
      Log("Average Validation processing time per Employee: " +
          ToText(static_cast<double>(time) / employees->Count()) + " milliseconds");
    }
    Log("Employees: Checked: " + LogCount(employee_validator_->EmployeesChecked()) +
        "; Valid: " + LogCount(employee_validator_->ValidEmployees()) +
        "; Invalid: " + LogCount(employee_validator_->InvalidEmployees()));
  });
  return done && result;  // a stage that broke off has not passed
}

bool clsRTIController::ValidatePaymentForPeriod(Integer intMaxErrors) {
  bool result = true;
  const bool done = Handled(kClass, "Function ValidatePaymentForPeriod", [&] {
    payment_validator_ = std::make_shared<vlsPaymentForPeriodValidator>();
    payment_validator_->MaxErrors(intMaxErrors);
    if (SubmissionType() != IsEPS) return;
    const std::int64_t start = LogTick();
    Log("Commencing Employer Payment Summary Validation");
    result = payment_validator_->ValidateEPS(Required(Required(Submission()).EPS()));
    if (result) {
      Log("Employer Payment Summary Validation successful.");
    } else if (log_this_session_) {
      Log("Employer Payment Summary Validation failed. " + LogCount(payment_validator_->ErrorCount()) +
          " errors found.");
      Required(log_).AddPaymentForPeriodValidationErrors(payment_validator_->GetAsXML());
    }
    Log("Employer Payment Summary Validation completed in " + LogCount(LogTick() - start) + " milliseconds");
  });
  return done && result;  // a stage that broke off has not passed
}

}  // namespace zelnor
