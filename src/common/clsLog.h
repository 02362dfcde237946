#pragma once

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/common/enumerations.h"
#include "zelnor/common/recordset.h"
#include "zelnor/platform/xml.h"

namespace zelnor {

/// The record of one controller session: what was submitted, with which correlation id and mark, what the
/// validators found, every document that went to and came from the gateway, and a list of messages with their
/// times. It is one XML document, written to a file of its own in the log folder, where only so many files
/// are kept.
///
/// Failures are shown in the host's message box ("Error in ZELNOR.dll::clsLog: ..."); a log problem never
/// stops a submission.
///
/// @code
/// rti.ProcessingLog()->SetCompany("Harbour Lights Ltd");
/// std::cout << rti.ProcessingLog()->LogFilePath();
/// @endcode
class ZELNOR_API clsLog {
 public:
  /// Names the file by the settings `LogPath` and `LogPrefix` and the time, and builds the empty log.
  clsLog();
  clsLog(const clsLog&) = delete;
  clsLog& operator=(const clsLog&) = delete;

  /// Writes a closing record and the file, unless the file reflects the log already.
  ~clsLog();

  /// When True, Save does nothing and reports success.
  ///@{
  bool DontSaveLog() const;
  void DontSaveLog(bool value);
  ///@}

  /// Saves the log unless its file reflects it already, and has the host show the file. Error 53 is reported
  /// where no viewer could be started.
  void OpenLog();

  /// Whether the file reflects the log; True for a log to which nothing but attributes and periods was
  /// written.
  bool IsSavedToDate() const;

  /// Saves the log, then gives the path of its file.
  String LogFilePath();

  /// The log's root element. With a node given, a copy is appended to it.
  XmlNode GetAsXML(const XmlNode& xmlRoot = nullptr);

  /// The path or address of the style sheet that shows the log's file in a browser; empty at first. Writing
  /// puts it into the log's `xml-stylesheet` instruction, and saves the log unless the instruction bears that
  /// value already, ignoring case. An empty text takes the instruction away without saving; what is read
  /// stays the last style sheet.
  ///@{
  String Stylesheet() const;
  void Stylesheet(const String& value);
  ///@}

  /// The validators' findings as a read-only table: a row for each, a field for each element of the first.
  /// Elements beyond those of the first are left out. Without findings a table without fields; no object
  /// after a failure.
  Ref<Recordset> GetAsRecordset();

  /// Texts that the host's report keeps in the log; writing saves the log.
  ///@{
  String LastReportRunDate();
  void LastReportRunDate(const String& value);
  String ReportSortOrder();
  void ReportSortOrder(const String& value);
  ///@}

  /// The folder of the log. Writing it also writes the setting `LogPath`; a leading "\" means below the
  /// program's folder. The file of this log stays where it was named.
  ///@{
  String LogDirectory();
  void LogDirectory(const String& value);
  ///@}

  /// How many log files are kept, at least 1; written to the setting `MaxLogStore`.
  ///@{
  Integer MaxLogs() const;
  void MaxLogs(Integer value);
  ///@}

  /// What the submission is: attributes of the root.
  ///@{
  void SetSubmissionMode(RTI_SEND_MODE eniSubmissionMode);
  void SetSubmissionType(eRTISUBMISSIONTYPE eniSubmissionType);
  void SetSubmissionYear(Integer intYear);
  void SetCompany(const String& strCompany);
  void SetOperator(const String& strOperator);
  ///@}

  /// Adds "Month 3" or "Week 12" to the period descriptions, which are joined by ", ".
  void AddSubmissionPeriod(PERIOD_TYPE eniPeriodType, Integer intPeriodNumber);

  /// Replaces the period descriptions.
  void SetSubmissionPeriod(const String& strPeriodDescr);

  /// Adds a text to the period descriptions.
  void AddSubmissionMonth(const String& strMonth);

  /// Replaces the errors of one validator's family by copies of a node's children. False, and nothing
  /// changed, without a node.
  ///@{
  bool AddPaymentForPeriodValidationErrors(const XmlNode& xmlNode);
  bool AddEmployeeValidationErrors(const XmlNode& xmlNode);
  bool AddCompanyValidationErrors(const XmlNode& xmlNode);
  bool AddFileValidationErrors(const XmlNode& xmlNode);
  bool AddSchemaValidationError(const XmlNode& xmlNode);
  ///@}

  /// Stores the gateway's correlation id and the time. True.
  bool SetCorrelationID(const String& strCorrelationId);

  /// Stores both forms of the mark and the time. True.
  bool SetIRMark(const String& strBase64, const String& strBase32);

  /// Adds a message with its time. True.
  bool AddTimingRecord(const String& strMessage);

  /// The element that holds copies of the envelope. Writing replaces the reference only.
  ///@{
  XmlNode Submission();
  void Submission(const XmlNode& value);
  ///@}

  /// Replaces the copies of the envelope by one of this node. False without a node, which leaves none.
  bool AddSubmission(const XmlNode& xmlNode);

  /// A copy of the first envelope; no object when there is none.
  XmlNode GetSubmission();

  /// The element of the exchanged documents.
  XmlNode SendLog();

  /// Drops the copies of the envelope, and adds one. Whether the file reflects the log isn't changed.
  ///@{
  ZELNOR_INTERNAL void ClearSubmission();
  ZELNOR_INTERNAL void AppendSubmission(const XmlNode& node);
  ///@}

  /// Adds a copy of a document that went out to an address, or came in. False without a node.
  bool AddSendDoc(const XmlNode& xmlNode, SEND_DIRECTION eniDirection, const String& strURL = {});

  /// A copy of the gateway's latest response; no object when there is none. Writing replaces the reference
  /// only.
  ///@{
  XmlNode LatestPollResponse();
  void LatestPollResponse(const XmlNode& value);
  ///@}

  /// Replaces the gateway's latest response by a copy of this node. False without a node, which leaves none.
  bool AddLatestPollResponse(const XmlNode& xmlNode);

  /// Writes the log to its file, or to another that is its file from then on, and deletes the oldest files
  /// beyond MaxLogs. Nothing happens when the file reflects the log already. False after a failure.
  bool Save(const String& strFilepath = {});

 private:
  void ReadSettings();
  void BuildDocument();
  XmlNode AddNode(const XmlNode& parent, const String& strName, const String& strText);
  XmlNode AddTiming(const String& strName, const String& strText);
  bool ReplaceErrors(const char* member, const String& type, const XmlNode& xmlNode);
  void ClearChildNodesOfType(const XmlNode& node, const String& strType);
  void AppendCopy(const XmlNode& holder, const XmlNode& node);
  void LayOpen();
  bool ReplaceCopy(const char* member, const XmlNode& holder, const XmlNode& xmlNode);
  XmlNode CopyOfFirstChild(const char* member, const XmlNode& holder);
  void AppendPeriod(const String& text);
  void Stamp(const XmlNode& node);
  bool LogFiles(std::vector<String>& names);
  void DeleteOldLogs();

  XmlDocument document_;
  bool is_saved_to_date_ = false;
  bool laid_open_ = false;
  alsAppSettings settings_;
  String log_file_path_;
  String log_directory_;
  String prefix_;
  String stylesheet_;
  RTI_SEND_MODE submission_mode_ = RTI_SEND_MODE::Live;
  eRTISUBMISSIONTYPE submission_type_ = eRTISUBMISSIONTYPE::IsUndefined;
  XmlNode root_;
  XmlNode submission_periods_;
  XmlNode correlation_id_;
  XmlNode irmark_;
  XmlNode base64_irmark_;
  XmlNode base32_irmark_;
  XmlNode log_records_;
  XmlNode validation_errors_;
  XmlNode submission_;
  XmlNode send_log_;
  XmlNode latest_hmrc_response_;
  XmlNode last_report_run_date_;
  XmlNode report_sort_order_;
  Integer max_logs_ = 10;
  bool dont_save_log_ = false;
};

}  // namespace zelnor
