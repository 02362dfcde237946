#include "zelnor/controller/clsRTIController.h"

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/common/clsLog.h"
#include "zelnor/common/process_state.h"
#include "zelnor/common/record.h"
#include "zelnor/controller/log_text.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGTMChannelRouting.h"
#include "zelnor/envelope/clsGTMGovTalkDetails.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/gateway/clsSOAPInterface.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/host.h"
#include "zelnor/validation/clsException.h"
#include "zelnor/validation/vlsCompanyValidator.h"
#include "zelnor/validation/vlsEmployeeValidator.h"
#include "zelnor/validation/vlsFileValidator.h"
#include "zelnor/validation/vlsPaymentForPeriodValidator.h"
#include "zelnor/validation/vlsSchemaValidator.h"

namespace zelnor {
namespace {

constexpr std::string_view kClass = "clsRTIController";

// How each kind of document is called.
struct ClassDescription {
  eRTISUBMISSIONTYPE type;
  const char* quick;
  const char* hmrc;
  const char* abbreviation;
};

constexpr ClassDescription kDescriptions[] = {
    {eRTISUBMISSIONTYPE::IsEAS, "Employer Alignment Submission", "HMRC-PAYE-RTI-EAS", "EAS"},
    {eRTISUBMISSIONTYPE::IsFPS, "Full Payment Submission", "HMRC-PAYE-RTI-FPS", "FPS"},
    {eRTISUBMISSIONTYPE::IsEPS, "Employer Payment Summary", "HMRC-PAYE-RTI-EPS", "EPS"},
    {eRTISUBMISSIONTYPE::IsNVR, "NINO Verification Request", "HMRC-PAYE-RTI-NVR", "NVR"},
    {eRTISUBMISSIONTYPE::IsErrorResponse, "HMRC Gateway Error Response", "HMRC-PAYE-RTI-UNK", "ERR"},
    {eRTISUBMISSIONTYPE::IsEYU, "Earlier Year Update", "HMRC-PAYE-RTI-EYU", "EYU"},
};

constexpr ClassDescription kUnknown = {eRTISUBMISSIONTYPE::IsUndefined, "Unknown Submission Type",
                                       "HMRC-PAYE-RTI-UNK", "UNK"};

const ClassDescription& DescriptionOf(eRTISUBMISSIONTYPE type) {
  for (const ClassDescription& each : kDescriptions) {
    if (each.type == type) return each;
  }
  return kUnknown;
}

// A switch as the settings hold it; one that is not there yet is written as True.
bool SwitchFromSettings(alsAppSettings& settings, const String& key) {
  const String text = settings.ReadSetting(key);
  if (!text.empty()) return ToBoolean(text);
  settings.SetSetting(key, ToText(true));
  return true;
}

void WriteSwitch(const String& key, bool value) { alsAppSettings().SetSetting(key, ToText(value)); }

}  // namespace

clsRTIController::clsRTIController() {
  Handled(kClass, "Sub Class_Initialize", [&] {
    payment_validator_ = std::make_shared<vlsPaymentForPeriodValidator>();
    employee_validator_ = std::make_shared<vlsEmployeeValidator>();
    file_validator_ = std::make_shared<vlsFileValidator>();
    company_validator_ = std::make_shared<vlsCompanyValidator>();
    schema_validator_ = std::make_shared<vlsSchemaValidator>();
    Hold(std::make_shared<clsGovTalkMessage>());
    mobjGovTalkMessage->SubmissionDocument()->SetSubmissionType(eRTISUBMISSIONTYPE::IsFPS);
    log_ = std::make_shared<clsLog>();
    log_->AddTimingRecord("RTI Controller initialised at " + LogMoment());
    HoldTransport();
    ReadSettings();
  });
}

void clsRTIController::ReadSettings() {
  alsAppSettings settings;
  const String required = settings.ReadSetting("ValidationRequired");
  if (required.empty()) settings.SetSetting("ValidationRequired", ToText(true));
  ValidationRequired(required.empty() || ToBoolean(required));
  do_envelope_validation_ = SwitchFromSettings(settings, "ValidateEnvelope");
  do_company_validation_ = SwitchFromSettings(settings, "ValidateCompany");
  do_employee_validation_ = SwitchFromSettings(settings, "ValidateEmployee");
  do_payment_validation_ = SwitchFromSettings(settings, "ValidatePayment");
  do_schema_validation_ = SwitchFromSettings(settings, "ValidateSchema");
  do_internet_connection_test_ = SwitchFromSettings(settings, "DoInternetConnectionTest");
  const String debug = settings.ReadSetting("SystemDebug");
  Process().SystemDebugLevel = debug == "1" || debug == "On" || debug == "True" ? 1 : 0;
  Process().RememberedIssueResponse = -1;
  log_this_session_ = true;
}

clsRTIController::~clsRTIController() {
  payment_validator_ = nullptr;
  employee_validator_ = nullptr;
  file_validator_ = nullptr;
  company_validator_ = nullptr;
  schema_validator_ = nullptr;
  Hold(nullptr);
  Handled(kClass, "Sub Class_Terminate", [&] {
    if (!log_this_session_ || !log_) return;
    log_->AddTimingRecord("RTI Controller terminated at " + LogMoment());
    log_->Save();
  });
  log_ = nullptr;
  mobjSOAPInterface = nullptr;
}

void clsRTIController::Hold(Ref<clsGovTalkMessage> message) {
  message_events_ = {};
  mobjGovTalkMessage = std::move(message);
  if (!mobjGovTalkMessage) return;
  message_events_ = Subscription(mobjGovTalkMessage->events.CompressionError.connect(
      [this](const String& description) { OnCompressionError(description); }));
}

void clsRTIController::OnCompressionError(const String& description) {
  Log("An error occurred while attempting to compress: " + description);
  Log("The submission will be issued decompressed.");
  events.CompressionError(description);
}

void clsRTIController::Log(const String& line) {
  if (log_this_session_) Required(log_).AddTimingRecord(line);
}

void clsRTIController::SaveLog() {
  if (log_this_session_) Required(log_).Save();
}

void clsRTIController::UpdateStatus(const String& strStage, const String& strStatusDescr,
                                    Long intProgressPercent) {
  events.ControllerStatus(strStage, strStatusDescr, intProgressPercent);
  CurrentHost()->Yield();
}

String clsRTIController::GatewayErrors() const {
  return mobjSOAPInterface ? mobjSOAPInterface->GatewayErrors() : String();
}

String clsRTIController::ResponseFilePrefix() const {
  return Required(mobjSOAPInterface).ResponseFilePrefix();
}
void clsRTIController::ResponseFilePrefix(const String& value) {
  Required(mobjSOAPInterface).ResponseFilePrefix(value);
}
String clsRTIController::SendFilePrefix() const { return Required(mobjSOAPInterface).SendFilePrefix(); }
void clsRTIController::SendFilePrefix(const String& value) {
  Required(mobjSOAPInterface).SendFilePrefix(value);
}
String clsRTIController::PollFilePrefix() const { return Required(mobjSOAPInterface).PollFilePrefix(); }
void clsRTIController::PollFilePrefix(const String& value) {
  Required(mobjSOAPInterface).PollFilePrefix(value);
}
String clsRTIController::DeleteFilePrefix() const { return Required(mobjSOAPInterface).DeleteFilePrefix(); }
void clsRTIController::DeleteFilePrefix(const String& value) {
  Required(mobjSOAPInterface).DeleteFilePrefix(value);
}

bool clsRTIController::IsWebConnected() {
  String type;
  return IsWebConnected(type);
}

bool clsRTIController::IsWebConnected(String& strConnType) {
  bool result = false;
  Handled(kClass, "Function IsWebConnected", [&] {
    strConnType.clear();
    const ConnectionState state = CurrentHost()->Connection();
    // The first bit that equals the answer names the connection; without one, that is the first clear bit.
    constexpr std::pair<Long, const char*> kTypes[] = {{kConnectionLan, "LAN"},
                                                       {kConnectionModem, "Modem"},
                                                       {kConnectionProxy, "Proxy"},
                                                       {kConnectionOffline, "Offline"},
                                                       {kConnectionConfigured, "Configured"},
                                                       {kConnectionRasInstalled, "Remote"}};
    for (const auto& [flag, name] : kTypes) {
      if (((state.flags & flag) != 0) != state.connected) continue;
      strConnType = name;
      break;
    }
    result = state.connected;
  });
  return result;
}

String clsRTIController::SavePath() {
  String result;
  Handled(kClass, "Get SavePath", [&] { result = Required(mobjSOAPInterface).SavePath(); });
  return result;
}

void clsRTIController::SavePath(const String& value) {
  Handled(kClass, "Let SavePath",
          [&] { Required(mobjSOAPInterface).SavePath(WithTrailingSeparator(value)); });
}

void clsRTIController::Cancel() {
  cancel_requested_ = true;
  if (mobjSOAPInterface) mobjSOAPInterface->Cancel();
}

bool clsRTIController::LogThisSession() const { return log_this_session_; }
void clsRTIController::LogThisSession(bool value) {
  log_this_session_ = value;
  if (value || !log_) return;
  log_->DontSaveLog(true);
  log_ = nullptr;
}

bool clsRTIController::DoInternetConnectionTest() const { return do_internet_connection_test_; }
void clsRTIController::DoInternetConnectionTest(bool value) {
  Handled(kClass, "Let DoInternetConnectionTest", [&] {
    do_internet_connection_test_ = value;
    WriteSwitch("DoInternetConnectionTest", value);
  });
}

void clsRTIController::ReadXML(const String& strXML) {
  Handled(kClass, "Sub ReadXML", [&] { Required(mobjGovTalkMessage).ParseFromXML(strXML); });
}

void clsRTIController::ReadXMLDoc(const XmlDocument& xmlDoc) {
  Handled(kClass, "Sub ReadXMLDoc",
          [&] { Required(mobjGovTalkMessage).CreateFromXML(xmlDoc.DocumentElement()); });
}

bool clsRTIController::ValidationRequired() const { return validation_required_; }
void clsRTIController::ValidationRequired(bool value) {
  Handled(kClass, "Let ValidationRequired", [&] {
    validation_required_ = value;
    Required(mobjGovTalkMessage).UseValidation(value);
    WriteSwitch("ValidationRequired", value);
    if (!value) return;
    do_envelope_validation_ = true;
    do_company_validation_ = true;
    do_employee_validation_ = true;
    do_payment_validation_ = true;
    do_schema_validation_ = true;
  });
}

bool clsRTIController::DoEnvelopeValidation() const { return do_envelope_validation_; }
void clsRTIController::DoEnvelopeValidation(bool value) {
  Handled(kClass, "Let DoEnvelopeValidation", [&] {
    do_envelope_validation_ = value;
    WriteSwitch("ValidateEnvelope", value);
  });
}

bool clsRTIController::DoCompanyValidation() const { return do_company_validation_; }
void clsRTIController::DoCompanyValidation(bool value) {
  Handled(kClass, "Let DoCompanyValidation", [&] {
    do_company_validation_ = value;
    WriteSwitch("ValidateCompany", value);
  });
}

bool clsRTIController::DoEmployeeValidation() const { return do_employee_validation_; }
void clsRTIController::DoEmployeeValidation(bool value) {
  Handled(kClass, "Let DoEmployeeValidation", [&] {
    do_employee_validation_ = value;
    WriteSwitch("ValidateEmployees",
                value);  // read from "ValidateEmployee": the change ends with the session
  });
}

bool clsRTIController::DoPaymentValidation() const { return do_payment_validation_; }
void clsRTIController::DoPaymentValidation(bool value) {
  Handled(kClass, "Let DoPaymentValidation", [&] {
    do_payment_validation_ = value;
    WriteSwitch("ValidatePayment", value);
  });
}

bool clsRTIController::DoSchemaValidation() const { return do_schema_validation_; }
void clsRTIController::DoSchemaValidation(bool value) {
  Handled(kClass, "Let DoSchemaValidation", [&] {
    do_schema_validation_ = value;
    WriteSwitch("ValidateSchema", value);
  });
}

// Gives mode and date to the header and to each channel routing. A change of the mode leaves the routings the
// time that they have while no date is set: a zero one is not written.
void clsRTIController::DateEnvelope(bool with_routings_time) {
  clsGovTalkMessage& message = Required(mobjGovTalkMessage);
  const Ref<clsGTMMessageDetails> details = message.Header_MessageDetails();
  details->Mode(submission_mode_);
  details->GatewayTimestamp(Process().SystemDate);
  for (const Ref<clsGTMChannelRouting>& routing : *message.GTMGovTalkDetails()->ChannelRouting()) {
    Required(routing).Mode(submission_mode_);
    if (with_routings_time) routing->Timestamp(Process().SystemDate);
  }
}

Date clsRTIController::SystemDate() const { return Process().SystemDate; }
void clsRTIController::SystemDate(Date value) {
  Handled(kClass, "Let SystemDate", [&] {
    Process().SystemDate = value;
    DateEnvelope(true);
  });
}

eRTISUBMISSIONTYPE clsRTIController::SubmissionType() {
  auto result = eRTISUBMISSIONTYPE::IsUndefined;
  Handled(kClass, "Get SubmissionType",
          [&] { result = Required(mobjGovTalkMessage).SubmissionDocument()->SubmissionType(); });
  return result;
}

void clsRTIController::SubmissionType(eRTISUBMISSIONTYPE value) {
  Handled(kClass, "Let SubmissionType", [&] {
    Required(mobjGovTalkMessage).SubmissionDocument()->SetSubmissionType(value);
    if (log_this_session_) Required(log_).SetSubmissionType(value);
  });
}

Integer clsRTIController::AutoCompressionLimit() {
  Integer result = 0;
  Handled(kClass, "Get AutoCompressionLimit", [&] {
    result = ToInteger(
        static_cast<double>(Required(mobjGovTalkMessage).SubmissionDocument()->AutoCompressionLimit()));
  });
  return result;
}

void clsRTIController::AutoCompressionLimit(Integer value) {
  Handled(kClass, "Let AutoCompressionLimit",
          [&] { Required(mobjGovTalkMessage).SubmissionDocument()->AutoCompressionLimit(value); });
}

Ref<clsLog> clsRTIController::ProcessingLog() const { return log_this_session_ ? log_ : nullptr; }

void clsRTIController::OpenLog() {
  if (log_this_session_) Required(log_).OpenLog();
}

void clsRTIController::LogSubmissionYear(Integer value) {
  Handled(kClass, "Let LogSubmissionYear", [&] {
    if (log_this_session_) Required(log_).SetSubmissionYear(value);
  });
}

void clsRTIController::LogCompanyName(const String& value) {
  Handled(kClass, "Let LogCompanyName", [&] {
    if (log_this_session_) Required(log_).SetCompany(value);
  });
}

void clsRTIController::LogOperatorName(const String& value) {
  Handled(kClass, "Let LogOperatorName", [&] {
    if (log_this_session_) Required(log_).SetOperator(value);
  });
}

void clsRTIController::AddLogPeriodDescr(PERIOD_TYPE eniPeriodType, Integer intPeriodNo) {
  Handled(kClass, "Sub AddLogPeriodDescr", [&] {
    if (log_this_session_) Required(log_).AddSubmissionPeriod(eniPeriodType, intPeriodNo);
  });
}

void clsRTIController::SetLogPeriodDescr(const String& strPeriodDescr) {
  Handled(kClass, "Sub SetLogPeriodDescr", [&] {
    if (log_this_session_) Required(log_).SetSubmissionPeriod(strPeriodDescr);
  });
}

void clsRTIController::AddLogMonthDescr(const String& strMonthDescr) {
  Handled(kClass, "Sub AddLogMonthDescr", [&] {
    if (log_this_session_) Required(log_).AddSubmissionMonth(strMonthDescr);
  });
}

Integer clsRTIController::MaxErrors() const { return max_errors_; }
void clsRTIController::MaxErrors(Integer value) { max_errors_ = value < 0 ? Integer{0} : value; }

// The tests are "greater than", from the largest value down: that is how the call has always counted.
Long clsRTIController::ErrorCount(Long eniErrorType) {
  Long result = 0;
  Handled(kClass, "Get ErrorCount", [&] {
    const bool all = eniErrorType == -1;
    Long rest = eniErrorType;
    const auto count = [&](RTI_ERROR_TYPE type, const auto& validator) {
      const auto value = static_cast<Long>(type);
      if (!all && rest <= value) return;
      result += validator.ErrorCount();
      if (!all) rest -= value;
    };
    count(RTI_ERROR_TYPE::PaymentForPeriod, Required(payment_validator_));
    count(RTI_ERROR_TYPE::FileSchema, Required(schema_validator_));
    count(RTI_ERROR_TYPE::File, Required(file_validator_));
    count(RTI_ERROR_TYPE::Company, Required(company_validator_));
    count(RTI_ERROR_TYPE::Employee, Required(employee_validator_));
  });
  return result;
}

XmlDocument clsRTIController::Errors() {
  XmlDocument result = nullptr;
  Handled(kClass, "Get Errors", [&] {
    const XmlDocument document;
    const XmlNode root = document.AppendChild(document.CreateElement("Errors"));
    Required(file_validator_).GetAsXML(root);
    Required(company_validator_).GetAsXML(root);
    Required(employee_validator_).GetAsXML(root);
    Required(payment_validator_).GetAsXML(root);
    Required(schema_validator_).GetAsXML(root);
    result = document;
  });
  return result;
}

CollectionRef<ErrorRecord> clsRTIController::ErrorCollection(Long eniErrorType) {
  CollectionRef<ErrorRecord> result;
  Handled(kClass, "Get ErrorCollection", [&] {
    constexpr Long kEmployee = static_cast<Long>(RTI_ERROR_TYPE::Employee);
    if ((eniErrorType & kEmployee) != 0 && eniErrorType >= 3) {
      throw RuntimeError(5, "ZELNOR",
                         "Cannot mix Employee and other error types - these use different class structures!");
    }
    CollectionRef<ErrorRecord> errors = MakeCollection<ErrorRecord>();
    Long rest = eniErrorType;
    const auto takes = [&](RTI_ERROR_TYPE type) {
      const auto value = static_cast<Long>(type);
      if (rest < value) return false;
      rest -= value;
      return true;
    };
    const auto add_all = [&](const Validator& validator) {
      for (const Ref<ErrorRecord>& error : *validator.Errors()) errors->Add(error);
    };
    if (takes(RTI_ERROR_TYPE::PaymentForPeriod)) add_all(Required(payment_validator_));
    if (takes(RTI_ERROR_TYPE::FileSchema) && Required(schema_validator_).ErrorCount() > 0) {
      errors->Add(schema_validator_->Exception());
    }
    if (takes(RTI_ERROR_TYPE::File)) add_all(Required(file_validator_));
    if (takes(RTI_ERROR_TYPE::Company)) add_all(Required(company_validator_));
    if (takes(RTI_ERROR_TYPE::Employee)) {
      errors = MakeCollection<ErrorRecord>();
      add_all(Required(employee_validator_));
    }
    result = errors;
  });
  return result;
}

RTI_SEND_MODE clsRTIController::SubmissionMode() const { return submission_mode_; }
void clsRTIController::SubmissionMode(RTI_SEND_MODE value) {
  Handled(kClass, "Let SubmissionMode", [&] {
    submission_mode_ = value;
    if (log_this_session_) Required(log_).SetSubmissionMode(value);
    DateEnvelope(!Process().SystemDate.IsZero());
  });
}

String clsRTIController::CorrelationID() const { return correlation_id_; }

bool clsRTIController::UseCompression() {
  bool result = false;
  Handled(kClass, "Get UseCompression",
          [&] { result = Required(mobjGovTalkMessage).SubmissionDocument()->UseCompression(); });
  return result;
}

void clsRTIController::UseCompression(bool value) {
  Handled(kClass, "Let UseCompression", [&] {
    if (mobjGovTalkMessage && mobjGovTalkMessage->HasSubmission()) Submission()->UseCompression(value);
  });
}

bool clsRTIController::OverrideCompression() {
  bool result = false;
  Handled(kClass, "Get OverrideCompression",
          [&] { result = Required(mobjGovTalkMessage).SubmissionDocument()->OverrideCompression(); });
  return result;
}

void clsRTIController::OverrideCompression(bool value) {
  Handled(kClass, "Let OverrideCompression", [&] {
    if (mobjGovTalkMessage && mobjGovTalkMessage->HasSubmission()) Submission()->OverrideCompression(value);
  });
}

void clsRTIController::AddExternalLogEntry(const String& strMessage) {
  Handled(kClass, "Sub AddExternalLogEntry", [&] { Log(strMessage); });
}

String clsRTIController::GetQuickClassDescr(eRTISUBMISSIONTYPE eniType) {
  String result;
  Handled(kClass, "Function GetQuickClassDescr", [&] {
    result = DescriptionOf(eniType == eRTISUBMISSIONTYPE::IsUndefined ? SubmissionType() : eniType).quick;
  });
  return result;
}

String clsRTIController::GetHMRCClass(eRTISUBMISSIONTYPE eniType) {
  String result;
  Handled(kClass, "Function GetHMRCClass", [&] {
    result = DescriptionOf(eniType == eRTISUBMISSIONTYPE::IsUndefined ? SubmissionType() : eniType).hmrc;
  });
  return result;
}

String clsRTIController::GetAbbrClassDescr(eRTISUBMISSIONTYPE eniType) {
  String result;
  Handled(kClass, "Function GetAbbrClassDescr", [&] {
    result =
        DescriptionOf(eniType == eRTISUBMISSIONTYPE::IsUndefined ? SubmissionType() : eniType).abbreviation;
  });
  return result;
}

Ref<clsSubmission> clsRTIController::Submission() {
  Ref<clsSubmission> result;
  Handled(kClass, "Get Submission", [&] { result = Required(mobjGovTalkMessage).SubmissionDocument(); });
  return result;
}

void clsRTIController::Submission(Ref<clsSubmission> value) {
  Handled(kClass, "Set Submission", [&] {
    Required(mobjGovTalkMessage).SubmissionDocument(std::move(value));
    mobjGovTalkMessage->UseValidation(validation_required_);
  });
}

Ref<clsGovTalkMessage> clsRTIController::GovTalkMessage() { return mobjGovTalkMessage; }
void clsRTIController::GovTalkMessage(Ref<clsGovTalkMessage> value) {
  Handled(kClass, "Set GovTalkMessage", [&] {
    Hold(std::move(value));
    Required(mobjGovTalkMessage).UseValidation(validation_required_);
  });
}

bool clsRTIController::SubmissionSaved() const { return submission_saved_; }
String clsRTIController::SubmissionFilePath() const { return submission_file_path_; }
void clsRTIController::SubmissionFilePath(const String& value) { submission_file_path_ = value; }

}  // namespace zelnor
