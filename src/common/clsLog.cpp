#include "zelnor/common/clsLog.h"

#include "zelnor/common/Enum_Conversion.h"
#include "zelnor/common/modPublicEnums.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/formats.h"
#include "zelnor/platform/host.h"
#include "zelnor/platform/text.h"

#include <algorithm>

namespace zelnor {
namespace {

constexpr std::string_view kClass = "clsLog";
constexpr const char* kUnspecified = "Unspecified";
constexpr const char* kStylesheetTarget = "xml-stylesheet";

String Moment(const char* pattern) { return Format(CurrentHost()->Now(), pattern); }

// The log calls its kinds of document by their full names.
String TypeText(eRTISUBMISSIONTYPE type) {
  switch (type) {
    case eRTISUBMISSIONTYPE::IsEAS:
      return "Employer Alignment Submission";
    case eRTISUBMISSIONTYPE::IsFPS:
      return "Full Payment Submission";
    case eRTISUBMISSIONTYPE::IsEPS:
      return "Employer Payment Summary";
    case eRTISUBMISSIONTYPE::IsNVR:
      return "NINO Verification Request";
    case eRTISUBMISSIONTYPE::IsPollDoc:
      return "Polling Document";
    case eRTISUBMISSIONTYPE::IsEYU:
      return "Earlier Year Update";
    default:
      return kUnspecified;
  }
}

void DropCopies(const XmlNode& holder) {
  for (XmlNode child = holder.FirstChild(); child;) {
    XmlNode next = child.NextSibling();
    if (child.IsWritten()) holder.RemoveChild(child);
    child = std::move(next);
  }
  RemoveAllChildNodes(holder);
}

void AppendNodes(const XmlNode& holder, const XmlNode& node) {
  holder.AppendChild(holder.OwnerDocument().ImportNode(node, true));
}

}  // namespace

clsLog::clsLog() {
  Handled(kClass, "Sub Class_Initialize", [&] {
    // First, so that a setting that is no number costs its own effect and not the log.
    BuildDocument();
    is_saved_to_date_ = true;
    ReadSettings();
  });
}

void clsLog::ReadSettings() {
  String path = settings_.ReadSetting("LogPath");
  if (path.empty()) {
    path = "\\xml\\logs\\";
    settings_.SetSetting("LogPath", path);
  }
  log_directory_ = WithTrailingSeparator(ResolveProgramPath(path));
  prefix_ = settings_.ReadSetting("LogPrefix");
  if (prefix_.empty()) {
    prefix_ = "Log";
    settings_.SetSetting("LogPrefix", prefix_);
  }
  log_file_path_ = log_directory_ + prefix_ + "_" + Moment("yyyy_Mm_Dd_HhNnSs") + ".xml";
  const String limit = settings_.ReadSetting("MaxLogStore");
  if (limit.empty()) settings_.SetSetting("MaxLogStore", "10");
  max_logs_ = limit.empty() ? Integer{10} : ToInteger(limit);
}

void clsLog::BuildDocument() {
  document_.AppendChild(document_.CreateProcessingInstruction("xml", "version=\"1.0\" encoding=\"utf-8\""));
  root_ = document_.AppendChild(document_.CreateElement("Log"));
  root_.Attribute("Version", "15.0");
  root_.Attribute("SubmissionType", kUnspecified);
  root_.Attribute("Company", kUnspecified);
  root_.Attribute("Operator", kUnspecified);
  submission_periods_ = AddNode(root_, "SubmissionPeriods", {});
  correlation_id_ = AddNode(root_, "CorrelationID", {});
  irmark_ = AddNode(root_, "IRmark", {});
  base64_irmark_ = AddNode(irmark_, "Base64IRMark", {});
  base32_irmark_ = AddNode(irmark_, "Base32IRMark", {});
  log_records_ = AddNode(root_, "LogRecords", {});
  validation_errors_ = AddNode(root_, "ValidationErrors", {});
  submission_ = AddNode(root_, "Submission", {});
  send_log_ = AddNode(root_, "SendLog", {});
  latest_hmrc_response_ = AddNode(root_, "LatestHMRCResponse", {});
  last_report_run_date_ = AddNode(root_, "LastReportRunDate", {});
  report_sort_order_ = AddNode(root_, "ReportSortOrder", {});
}

clsLog::~clsLog() {
  if (is_saved_to_date_) return;
  Handled(kClass, "Sub Class_Terminate", [&] {
    AddTiming("TerminateLog", "Log terminated at " + Moment("Dd/Mm/yyyy Hh:Nn:Ss") + ".");
    Save();
  });
}

XmlNode clsLog::AddNode(const XmlNode& parent, const String& strName, const String& strText) {
  XmlNode result;
  Handled(kClass, "Function AddNode", [&] {
    result = parent.AppendElement(strName);
    if (!strText.empty()) result.Text(strText);
    is_saved_to_date_ = false;
  });
  return result;
}

XmlNode clsLog::AddTiming(const String& strName, const String& strText) {
  XmlNode result;
  Handled(kClass, "Function AddTiming", [&] {
    result = AddNode(log_records_, strName, strText);
    SetAttribute(result, "TimeStamp", Moment("yyyy-mm-ddTHh:Nn:Ss"));
  });
  return result;
}

void clsLog::Stamp(const XmlNode& node) { SetAttribute(node, "TimeStamp", Moment("Dd/Mm/yyyy Hh:Nn:Ss")); }

bool clsLog::DontSaveLog() const { return dont_save_log_; }
void clsLog::DontSaveLog(bool value) { dont_save_log_ = value; }

bool clsLog::IsSavedToDate() const { return is_saved_to_date_; }

void clsLog::OpenLog() {
  Handled(kClass, "Sub OpenLog", [&] {
    if (!is_saved_to_date_) Save();
    if (!CurrentHost()->OpenFile({}, log_file_path_)) ThrowFileNotFound();
  });
}

String clsLog::LogFilePath() {
  Save();
  return log_file_path_;
}

XmlNode clsLog::GetAsXML(const XmlNode& xmlRoot) {
  XmlNode result;
  Handled(kClass, "Get GetAsXML", [&] {
    result = root_;
    LayOpen();
    if (xmlRoot) AppendNodes(xmlRoot, root_);
  });
  return result;
}

String clsLog::Stylesheet() const { return stylesheet_; }

void clsLog::Stylesheet(const String& value) {
  Handled(kClass, "Let Stylesheet", [&] {
    is_saved_to_date_ = false;
    XmlNode declaration;
    XmlNode instruction;
    for (const XmlNode& child : document_.Node().ChildNodes()) {
      if (child.NodeType() != XmlNodeType::ProcessingInstruction) continue;
      if (child.NodeName() == "xml") declaration = child;
      if (child.NodeName() != kStylesheetTarget) continue;
      if (value.empty()) {
        document_.RemoveChild(child);
        return;
      }
      instruction = child;
      break;
    }
    if (instruction ? EqualIgnoringCase(stylesheet_, value) : value.empty()) return;
    if (instruction) {
      instruction.Attribute("href", value);
    } else {
      const XmlNode before = declaration ? declaration.NextSibling() : document_.DocumentElement();
      document_.Node().InsertBefore(document_.CreateProcessingInstruction(
                                        kStylesheetTarget, "type=\"text/xsl\" href=\"" + value + "\""),
                                    before);
    }
    stylesheet_ = value;
    Save();
  });
}

Ref<Recordset> clsLog::GetAsRecordset() {
  Ref<Recordset> result;
  Handled(kClass, "Get GetAsRecordset", [&] {
    Recordset rows;
    if (const XmlNode first = validation_errors_.FirstChild()) {
      for (const XmlNode& child : first.ChildNodes()) rows.AddField(String(child.BaseName()));
    }
    const auto width = static_cast<Long>(rows.Fields().size());
    for (const XmlNode& error : validation_errors_.ChildNodes()) {
      rows.AddNew();
      Long position = 0;
      for (const XmlNode& child : error.ChildNodes()) {
        if (position == width) break;
        rows.ValueAt(position++, child.Text());
      }
    }
    result = rows.ReadOnlyClone();
  });
  return result;
}

String clsLog::LastReportRunDate() {
  String result;
  Handled(kClass, "Get LastReportRunDate", [&] { result = last_report_run_date_.Text(); });
  return result;
}

void clsLog::LastReportRunDate(const String& value) {
  Handled(kClass, "Let LastReportRunDate", [&] {
    is_saved_to_date_ = false;
    last_report_run_date_.Text(value);
    Save();
  });
}

String clsLog::ReportSortOrder() {
  String result;
  Handled(kClass, "Get ReportSortOrder", [&] { result = report_sort_order_.Text(); });
  return result;
}

void clsLog::ReportSortOrder(const String& value) {
  Handled(kClass, "Let ReportSortOrder", [&] {
    is_saved_to_date_ = false;
    report_sort_order_.Text(value);
    Save();
  });
}

String clsLog::LogDirectory() {
  String result;
  Handled(kClass, "Get LogDirectory", [&] { result = log_directory_; });
  return result;
}

void clsLog::LogDirectory(const String& value) {
  Handled(kClass, "Let LogDirectory", [&] {
    // The folder at hand is looked at, not the new one: as a rule the new value is taken as it stands.
    const String directory = EndsInSeparator(log_directory_) ? value : value + "\\";
    settings_.SetSetting("LogPath", directory);
    log_directory_ = ResolveProgramPath(directory);
  });
}

Integer clsLog::MaxLogs() const { return max_logs_; }
void clsLog::MaxLogs(Integer value) {
  max_logs_ = value > 0 ? value : Integer{1};
  settings_.SetSetting("MaxLogStore", ToText(max_logs_));
}

void clsLog::SetSubmissionMode(RTI_SEND_MODE eniSubmissionMode) {
  Handled(kClass, "Sub SetSubmissionType", [&] {  // the name that the message has always borne
    submission_mode_ = eniSubmissionMode;
    SetAttribute(root_, "SubmissionMode", ToText(static_cast<Long>(eniSubmissionMode)));
    SetAttribute(root_, "SubmissionModeDescr", Enum_Conversion().GetEntryTypeDescription(eniSubmissionMode));
  });
}

void clsLog::SetSubmissionType(eRTISUBMISSIONTYPE eniSubmissionType) {
  Handled(kClass, "Sub SetSubmissionType", [&] {
    submission_type_ = eniSubmissionType;
    SetAttribute(root_, "SubmissionType", TypeText(eniSubmissionType));
  });
}

void clsLog::SetSubmissionYear(Integer intYear) {
  Handled(kClass, "Sub SetSubmissionYear", [&] { SetAttribute(root_, "SubmissionYear", ToText(intYear)); });
}

void clsLog::SetCompany(const String& strCompany) { SetAttribute(root_, "Company", strCompany); }
void clsLog::SetOperator(const String& strOperator) { SetAttribute(root_, "Operator", strOperator); }

void clsLog::AppendPeriod(const String& text) {
  const String before = submission_periods_.Text();
  submission_periods_.Text(before.empty() ? text : before + ", " + text);
}

void clsLog::AddSubmissionPeriod(PERIOD_TYPE eniPeriodType, Integer intPeriodNumber) {
  Handled(kClass, "Sub AddSubmissionPeriod", [&] {
    AppendPeriod((eniPeriodType == PERIOD_TYPE::ptMonth ? "Month " : "Week ") + ToText(intPeriodNumber));
  });
}

void clsLog::SetSubmissionPeriod(const String& strPeriodDescr) {
  Handled(kClass, "Sub SetSubmissionPeriod", [&] { submission_periods_.Text(strPeriodDescr); });
}

void clsLog::AddSubmissionMonth(const String& strMonth) {
  Handled(kClass, "Sub AddSubmissionMonth", [&] { AppendPeriod(strMonth); });
}

bool clsLog::AddPaymentForPeriodValidationErrors(const XmlNode& xmlNode) {
  return ReplaceErrors("Function AddPaymentForPeriodValidationErrors", "PaymentForPeriod", xmlNode);
}
bool clsLog::AddEmployeeValidationErrors(const XmlNode& xmlNode) {
  return ReplaceErrors("Function AddEmployeeValidationErrors", "Employee", xmlNode);
}
bool clsLog::AddCompanyValidationErrors(const XmlNode& xmlNode) {
  return ReplaceErrors("Function AddCompanyValidationErrors", "Company", xmlNode);
}
bool clsLog::AddFileValidationErrors(const XmlNode& xmlNode) {
  return ReplaceErrors("Function AddFileValidationErrors", "File", xmlNode);
}
bool clsLog::AddSchemaValidationError(const XmlNode& xmlNode) {
  return ReplaceErrors("Function AddSchemaValidationError", "Schema", xmlNode);
}

bool clsLog::ReplaceErrors(const char* member, const String& type, const XmlNode& xmlNode) {
  bool result = false;
  Handled(kClass, member, [&] {
    if (!xmlNode) return;
    ClearChildNodesOfType(validation_errors_, type);
    // Up to the last of now: the node may be the element itself that grows.
    const XmlNode last = xmlNode.LastChild();
    for (const XmlNode& child : xmlNode.ChildNodes()) {
      AppendNodes(validation_errors_, child);
      if (child == last) break;
    }
    is_saved_to_date_ = false;
    result = true;
  });
  return result;
}

void clsLog::ClearChildNodesOfType(const XmlNode& node, const String& strType) {
  Handled(kClass, "Sub ClearChildNodesOfType", [&] {
    const auto is_of_type = [&](const XmlNode& error) {
      for (const XmlNode& child : error.ChildNodes()) {
        if (child.NodeName() == "ErrorType" && child.Text() == strType) return true;
      }
      return false;
    };
    for (XmlNode error = node.FirstChild(); error;) {
      XmlNode next = error.NextSibling();
      if (error.BaseName() == "Error" && is_of_type(error)) node.RemoveChild(error);
      error = std::move(next);
    }
  });
}

bool clsLog::SetCorrelationID(const String& strCorrelationId) {
  bool result = false;
  Handled(kClass, "Function SetCorrelationID", [&] {
    is_saved_to_date_ = false;
    correlation_id_.Text(strCorrelationId);
    Stamp(correlation_id_);
    result = true;
  });
  return result;
}

bool clsLog::SetIRMark(const String& strBase64, const String& strBase32) {
  bool result = false;
  Handled(kClass, "Function SetIRMark", [&] {
    is_saved_to_date_ = false;
    base64_irmark_.Text(strBase64);
    Stamp(base64_irmark_);
    base32_irmark_.Text(strBase32);
    Stamp(base32_irmark_);
    result = true;
  });
  return result;
}

bool clsLog::AddTimingRecord(const String& strMessage) {
  bool result = false;
  Handled(kClass, "Function AddTimingRecord", [&] {
    AddTiming("Timing", strMessage);
    result = true;
  });
  return result;
}

XmlNode clsLog::Submission() {
  LayOpen();
  return submission_;
}
void clsLog::Submission(const XmlNode& value) {
  LayOpen();
  submission_ = value;
}

void clsLog::ClearSubmission() { DropCopies(submission_); }
void clsLog::AppendSubmission(const XmlNode& node) { AppendCopy(submission_, node); }

bool clsLog::AddSubmission(const XmlNode& xmlNode) {
  return ReplaceCopy("Function AddSubmission", submission_, xmlNode);
}

XmlNode clsLog::GetSubmission() { return CopyOfFirstChild("Function GetSubmission", submission_); }

XmlNode clsLog::SendLog() {
  LayOpen();
  return send_log_;
}

bool clsLog::AddSendDoc(const XmlNode& xmlNode, SEND_DIRECTION eniDirection, const String& strURL) {
  bool result = false;
  Handled(kClass, "Function AddSendDoc", [&] {
    if (!xmlNode) return;
    const bool outgoing = eniDirection == SEND_DIRECTION::Outgoing;
    const XmlNode entry = AddNode(send_log_, outgoing ? "ToGateway" : "FromGateway", {});
    if (outgoing) SetAttribute(entry, "Url", strURL);
    Stamp(entry);
    AppendCopy(entry, xmlNode);
    result = true;
  });
  return result;
}

XmlNode clsLog::LatestPollResponse() {
  return CopyOfFirstChild("Get LatestPollResponse", latest_hmrc_response_);
}
void clsLog::LatestPollResponse(const XmlNode& value) {
  LayOpen();
  latest_hmrc_response_ = value;
}

bool clsLog::AddLatestPollResponse(const XmlNode& xmlNode) {
  return ReplaceCopy("Function AddLatestPollResponse", latest_hmrc_response_, xmlNode);
}

// Copies of documents are as a rule only written. They stay text until somebody asks for a node of the log.
void clsLog::AppendCopy(const XmlNode& holder, const XmlNode& node) {
  if (laid_open_ || !node.IsElement()) {
    AppendNodes(holder, node);
  } else {
    holder.AppendWritten(node);
  }
}

// Makes nodes of the copies that are text so far, and of all that are to come.
void clsLog::LayOpen() {
  if (std::exchange(laid_open_, true)) return;
  std::vector<XmlNode> holders = {submission_, latest_hmrc_response_};
  for (const XmlNode& exchanged : send_log_.ChildNodes()) holders.push_back(exchanged);
  for (const XmlNode& holder : holders) {
    for (XmlNode child = holder.FirstChild(); child;) {
      XmlNode next = child.NextSibling();
      if (child.IsWritten()) {
        const XmlDocument copy;
        copy.PreserveWhiteSpace(true);
        if (!copy.LoadXML(child.Xml())) ThrowInvalidArgument();
        holder.ReplaceChild(document_.ImportNode(copy.DocumentElement(), true), child);
      }
      child = std::move(next);
    }
  }
}

bool clsLog::ReplaceCopy(const char* member, const XmlNode& holder, const XmlNode& xmlNode) {
  bool result = false;
  Handled(kClass, member, [&] {
    is_saved_to_date_ = false;
    DropCopies(holder);
    if (!xmlNode) return;
    AppendCopy(holder, xmlNode);
    result = true;
  });
  return result;
}

XmlNode clsLog::CopyOfFirstChild(const char* member, const XmlNode& holder) {
  XmlNode result;
  Handled(kClass, member, [&] {
    LayOpen();
    if (const XmlNode first = holder.FirstChild()) result = first.CloneNode(true);
  });
  return result;
}

bool clsLog::Save(const String& strFilepath) {
  bool result = false;
  Handled(kClass, "Function Save", [&] {
    if (dont_save_log_ || ((strFilepath.empty() || strFilepath == log_file_path_) && is_saved_to_date_)) {
      result = true;
      return;
    }
    if (!strFilepath.empty()) log_file_path_ = strFilepath;
    CreateFolder(log_file_path_);
    DeleteOldLogs();
    document_.Save(log_file_path_);
    is_saved_to_date_ = true;
    result = true;
  });
  return result;
}

// A folder in which no file bears the prefix gives a list without bounds: error 9, and the log isn't written.
// A limit below 0, which only a hand can have written, deletes nothing.
void clsLog::DeleteOldLogs() {
  std::vector<String> names;
  if (!LogFiles(names)) return;
  if (names.empty()) ThrowOutOfSubscript();
  if (max_logs_ < 0) return;
  const auto limit = static_cast<std::size_t>(max_logs_);
  for (std::size_t i = 0; i + limit < names.size(); ++i)
    DeleteFile(WithTrailingSeparator(log_directory_) + names[i]);
}

// The names that begin with the prefix and are longer, in ascending order. False when the folder has no files
// at all.
bool clsLog::LogFiles(std::vector<String>& names) {
  bool result = false;
  Handled(kClass, "Function LogFiles", [&] {
    if (!FolderExists(log_directory_)) return;
    const std::vector<String> all = FileNames(log_directory_);
    if (all.empty()) return;
    std::copy_if(all.begin(), all.end(), std::back_inserter(names), [&](const String& name) {
      return name.size() > prefix_.size() && name.starts_with(prefix_);
    });
    std::sort(names.begin(), names.end());
    result = true;
  });
  return result;
}

}  // namespace zelnor
