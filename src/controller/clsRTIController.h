#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/platform/collection.h"
#include "zelnor/platform/event.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/xml.h"

namespace zelnor {

class ErrorRecord;
class Validator;
class clsFTP;
class clsGovTalkMessage;
class clsLog;
class clsSOAPInterface;
class clsSubmission;
class vlsCompanyValidator;
class vlsEmployeeValidator;
class vlsFileValidator;
class vlsPaymentForPeriodValidator;
class vlsSchemaValidator;

/// The one class that a payroll application holds, for one piece of work: it owns the envelope with its
/// document, the validators and the log. Through it the application loads or builds a document, sets the
/// session's options, and asks for validation and saving.
///
/// A new controller takes its switches from `rti.config` in the program's folder, writes the defaults of
/// those that are missing, and starts as an empty Full Payment Submission. Failures of the members are shown
/// in the host's message box
/// ("Error in ZELNOR.dll::clsRTIController: ..."), and the member returns what it held so far.
///
/// @code
/// zelnor::clsRTIController rti;
/// rti.ReadXML(text);
/// if (rti.SubmissionType() == zelnor::eRTISUBMISSIONTYPE::IsFPS) {
///   std::cout << rti.Submission()->FPS()->EmployeeCount();
/// }
/// rti.SaveSubmission("/payroll/out/fps.xml");
/// @endcode
class ZELNOR_API clsRTIController {
 public:
  clsRTIController();
  clsRTIController(const clsRTIController&) = delete;
  clsRTIController& operator=(const clsRTIController&) = delete;

  /// Writes the closing log entry and saves the log.
  ~clsRTIController();

  /// The events, raised on the caller's thread from within its calls.
  struct Events {
    /// Progress: a short heading, the detail, and percent.
    Event<const String&, const String&, Long> ControllerStatus;
    /// The gateway acknowledged the submission; with the correlation id.
    Event<const String&> AcknowledgementReceivedFromGateway;
    /// The first answer was an error.
    Event<> InitialErrorResponseReceivedFromGateway;
    /// The gateway accepted the submission; with the correlation id.
    Event<const String&> SuccessResponseReceivedFromGateway;
    /// The gateway reported errors; with the correlation id.
    Event<const String&> ErrorResponseReceivedFromGateway;
    /// The connection failed; with the correlation id.
    Event<const String&> GatewayConnectionError;
    /// A send ended because its validation failed.
    Event<> ValidationFailed;
    /// Compression failed, for this reason; the submission goes out uncompressed.
    Event<const String&> CompressionError;
  };
  Events events;

  /// The gateway's errors of the last send or poll as text, a line each; empty before.
  String GatewayErrors() const;

  /// Whether the log is used. Writing False drops the log for the rest of the session; a later True doesn't
  /// bring it back, and every send, save and validation then ends in error 91: leave it False.
  ///@{
  bool LogThisSession() const;
  void LogThisSession(bool value);
  ///@}

  /// How the names of the files of a conversation begin; see clsSOAPInterface.
  ///@{
  String ResponseFilePrefix() const;
  void ResponseFilePrefix(const String& value);
  String SendFilePrefix() const;
  void SendFilePrefix(const String& value);
  String PollFilePrefix() const;
  void PollFilePrefix(const String& value);
  String DeleteFilePrefix() const;
  void DeleteFilePrefix(const String& value);
  ///@}

  /// Whether the machine is connected to a network. `strConnType` takes the kind of connection: "LAN",
  /// "Modem", "Proxy", "Offline", "Configured", "Remote", or an empty text.
  ///@{
  bool IsWebConnected(String& strConnType);
  bool IsWebConnected();
  ///@}

  /// Whether a missing connection stops a send or poll; written to the setting of that name.
  ///@{
  bool DoInternetConnectionTest() const;
  void DoInternetConnectionTest(bool value);
  ///@}

  /// Loads a document from text. Nothing is told of a text that can't be read: see `Submission` or
  /// `SubmissionType`.
  void ReadXML(const String& strXML);

  /// Loads a document from an XML document.
  void ReadXMLDoc(const XmlDocument& xmlDoc);

  /// The folder of the files that a conversation leaves behind. Writing it adds a "\" where it doesn't end in
  /// a separator. Reading and writing make the folder.
  ///@{
  String SavePath();
  void SavePath(const String& value);
  ///@}

  /// Saves the log and has the host show its file; nothing in a session without a log.
  void OpenLog();

  /// The master switch of validation; written to the setting of that name. Writing True switches on all five
  /// stages.
  ///@{
  bool ValidationRequired() const;
  void ValidationRequired(bool value);
  ///@}

  /// The switches of the stages, written to the settings `ValidateEnvelope`, `ValidateCompany`,
  /// `ValidateEmployees`, `ValidatePayment` and `ValidateSchema`. The employee switch is read from
  /// `ValidateEmployee` at the start of a session, so that a change of it doesn't outlive the session.
  ///@{
  bool DoEnvelopeValidation() const;
  void DoEnvelopeValidation(bool value);
  bool DoCompanyValidation() const;
  void DoCompanyValidation(bool value);
  bool DoEmployeeValidation() const;
  void DoEmployeeValidation(bool value);
  bool DoPaymentValidation() const;
  void DoPaymentValidation(bool value);
  bool DoSchemaValidation() const;
  void DoSchemaValidation(bool value);
  ///@}

  /// The date that all rules take as today, one for the whole process; zero for the real one. Writing it also
  /// dates the envelope.
  ///@{
  Date SystemDate() const;
  void SystemDate(Date value);
  ///@}

  /// The kind of the document; a new controller's is `IsFPS`.
  ///@{
  eRTISUBMISSIONTYPE SubmissionType();
  void SubmissionType(eRTISUBMISSIONTYPE value);
  ///@}

  /// The document's number of employees from which on they are compressed.
  ///@{
  Integer AutoCompressionLimit();
  void AutoCompressionLimit(Integer value);
  ///@}

  /// The log; no object when the session isn't logged.
  Ref<clsLog> ProcessingLog() const;

  /// What the log tells of the submission; nothing happens when the session isn't logged.
  ///@{
  void LogSubmissionYear(Integer value);
  void LogCompanyName(const String& value);
  void LogOperatorName(const String& value);
  void AddLogPeriodDescr(PERIOD_TYPE eniPeriodType, Integer intPeriodNo);
  void SetLogPeriodDescr(const String& strPeriodDescr);
  void AddLogMonthDescr(const String& strMonthDescr);
  ///@}

  /// Asks a running validation, send or poll to stop at its next check; to be called from a handler of an
  /// event or from the host's yield.
  void Cancel();

  /// The error allowance of a validation; 0 for none. A negative value is stored as 0.
  ///@{
  Integer MaxErrors() const;
  void MaxErrors(Integer value);
  ///@}

  /// The number of errors by a sum of RTI_ERROR_TYPE, or of all validators for -1. A sum counts the
  /// validators whose value it exceeds, from the largest down: 2 counts employees, 16 all but payments; only
  /// -1 gives a true total.
  Long ErrorCount(Long eniErrorType);

  /// All errors as XML: document element `Errors`, then the envelope's, the company's, the employees', the
  /// payment's and the schema's.
  XmlDocument Errors();

  /// The error records of a sum of RTI_ERROR_TYPE: payment, schema, file, company, in that order; or of the
  /// employees alone. Employee and other types together are reported as an error, and no collection is
  /// returned.
  CollectionRef<ErrorRecord> ErrorCollection(Long eniErrorType);

  /// Where documents go. Writing it also sets the envelope's mode.
  ///@{
  RTI_SEND_MODE SubmissionMode() const;
  void SubmissionMode(RTI_SEND_MODE value);
  ///@}

  /// The gateway's correlation id of the current conversation; empty before one.
  String CorrelationID() const;

  /// The document's switches of compression. Writing does nothing when there is no document.
  ///@{
  bool UseCompression();
  void UseCompression(bool value);
  bool OverrideCompression();
  void OverrideCompression(bool value);
  ///@}

  /// Adds a line of the application's own to the log.
  void AddExternalLogEntry(const String& strMessage);

  /// The kind of document in words, such as "Full Payment Submission"; without an argument, the current
  /// document's.
  String GetQuickClassDescr(eRTISUBMISSIONTYPE eniType = eRTISUBMISSIONTYPE::IsUndefined);

  /// HMRC's class, such as "HMRC-PAYE-RTI-FPS"; without an argument, the current document's.
  String GetHMRCClass(eRTISUBMISSIONTYPE eniType = eRTISUBMISSIONTYPE::IsUndefined);

  /// The kind of document as an abbreviation, such as "FPS"; without an argument, the current document's.
  String GetAbbrClassDescr(eRTISUBMISSIONTYPE eniType = eRTISUBMISSIONTYPE::IsUndefined);

  /// Runs the validation stages over the document: envelope, company, employees, payment, schema. Progress
  /// comes through ControllerStatus, each stage is timed in the log, and the errors stand until the next run.
  /// True when validation isn't required. With the envelope stage switched off the result is False, whatever
  /// the other stages find.
  bool Validate();

  /// The document. Writing it also sets whether the envelope uses validation.
  ///@{
  Ref<clsSubmission> Submission();
  void Submission(Ref<clsSubmission> value);
  ///@}

  /// The envelope. Writing it also sets whether it uses validation.
  ///@{
  Ref<clsGovTalkMessage> GovTalkMessage();
  void GovTalkMessage(Ref<clsGovTalkMessage> value);
  ///@}

  /// Validates the document, marks it, sends it to the gateway of `SubmissionMode`, polls to the final answer
  /// and closes the conversation; events and log tell of each step. All on the caller's thread: the host's
  /// yield is called all the while.
  ///
  /// @param strUsername, strPassword the sender's, for the poll file and the delete request. The message
  /// itself
  ///   carries those of its `Header_SenderDetails`.
  /// @param strSaveACopyTo a file for a copy of the marked document, whatever became of it; empty for none. A
  ///   file that is there is replaced.
  /// @param strSaveAnotherCopyTo a file for one more copy; only with the first.
  /// @return `Successful`; `Pending` when the gateway has it and the answer is still to come (see
  ///   PollSubmission and CorrelationID); `FailedValidation`, `CancelledSend`: nothing was sent;
  ///   `FailedSend`: refused, see GatewayErrors; `ConnectionFailed`; `UnknownError` after an unexpected
  ///   error, a copy that could not be written among them, whatever became of the send.
  SUBMISSION_RESULT SendSubmission(const String& strUsername = {}, const String& strPassword = {},
                                   const String& strSaveACopyTo = {},
                                   const String& strSaveAnotherCopyTo = {});

  /// Asks the gateway for the answer to an earlier send, again and again without a pause while the answer is
  /// provisional: call Cancel from `ControllerStatus` or the host's yield to leave it at one. The poll's
  /// message replaces the controller's.
  ///
  /// @param strClass the submission's class, such as "HMRC-PAYE-RTI-FPS"
  /// @param strCorrelationId the id that the gateway gave to the submission
  /// @return `Successful`, `Pending` after a cancel, `ConnectionFailed`, or `FailedSend`. After an unexpected
  ///   error what it held so far, which is 0, no member of SUBMISSION_RESULT, where nothing was known yet.
  SUBMISSION_RESULT PollSubmission(const String& strClass, const String& strCorrelationId,
                                   RTI_SEND_MODE eniSendMode = RTI_SEND_MODE::Live,
                                   const String& strUsername = {}, const String& strPassword = {});

  /// Validates the document, marks it when it holds no mark, and writes it to a file. An empty path means the
  /// folder of the setting `XMLFilePath`; a path that ends in a separator is a folder, in which a file is
  /// named by class, date and time. A document that failed validation is written all the same and reported as
  /// `FailedValidation`; any failure gives `UnknownError`.
  SUBMISSION_RESULT SaveSubmission(const String& strFilepath = {});

  /// Shows the file that SaveSubmission wrote last, with a program (a path, no arguments) or, when it is
  /// empty, with the host's viewer. Never goes through a shell. Reported as error 53: a program that can't be
  /// started, and that nothing was saved yet.
  void OpenSubmissionFile(const String& strApplicationPath = {});

  /// Whether SaveSubmission wrote its file.
  bool SubmissionSaved() const;

  /// The transport.
  ZELNOR_INTERNAL Ref<clsSOAPInterface> Transport() const { return mobjSOAPInterface; }

  /// The validator of the last run's employees.
  ZELNOR_INTERNAL Ref<vlsEmployeeValidator> EmployeeValidator() const { return employee_validator_; }

  /// What is called after each employee that a run has checked.
  using EmployeeProgress = std::function<void(const vlsEmployeeValidator&)>;
  ZELNOR_INTERNAL void OnEmployeeProgress(EmployeeProgress told) { employee_progress_ = std::move(told); }

  /// Sends the file that SaveSubmission wrote last and the log, as one archive, to a support site; the log
  /// tells how it went. For a submission that went wrong. TLS is used wherever the server offers it. The
  /// archive is deleted afterwards. A session that isn't logged sends the file alone.
  ///
  /// @param strFTPServerPath the server's name or address, with ":" and a port where it isn't 21
  /// @param strFTPUsername, strFTPPassword an account there; an empty user logs in anonymously. Neither is
  /// kept
  /// @return whether it arrived; False also before any SaveSubmission
  bool FTPToSupport(const String& strFTPServerPath, const String& strFTPUsername,
                    const String& strFTPPassword);

  /// What came of an upload to the support site.
  struct SupportUpload {
    bool sent = false;
    String remote_name;  ///< the archive's name over there
  };

  /// FTPToSupport with a client of the caller's, whose events and errors the caller follows.
  ZELNOR_INTERNAL SupportUpload SendToSupport(clsFTP& ftp, const String& server, const String& user,
                                              const String& password);

  /// The path of the file that SaveSubmission wrote last; empty before. Writing it has FTPToSupport send a
  /// file that was saved in an earlier session.
  ///@{
  ZELNOR_INTERNAL String SubmissionFilePath() const;
  ZELNOR_INTERNAL void SubmissionFilePath(const String& value);
  ///@}

 private:
  // Member functions of the controller's core.
  void ReadSettings();
  void UpdateStatus(const String& strStage, const String& strStatusDescr, Long intProgressPercent);
  void DateEnvelope(bool with_routings_time);
  void Hold(Ref<clsGovTalkMessage> message);
  void OnCompressionError(const String& description);
  void Log(const String& line);
  void SaveLog();

  // Validation.
  void Status(const String& detail, Long percent);
  bool RunStages(bool& result);
  bool Cancelled();
  bool EnvelopeStage(bool& result, Integer& allowance, std::int64_t& stage_start);
  bool CompanyStage(bool& result, Integer& allowance, std::int64_t& stage_start);
  bool EmployeeStage(bool& result, Integer allowance, std::int64_t& stage_start);
  bool PaymentStage(bool& result, Integer allowance, std::int64_t& stage_start);
  bool SchemaStage(bool& result, std::int64_t& stage_start);
  bool AllowanceIsSpent(Integer& allowance, Long errors);
  void LogStageTime(const String& stage, std::int64_t& stage_start);
  bool ValidateFile(Integer intMaxErrors);
  bool ValidateCompany(Integer intMaxErrors);
  bool ValidateEmployees(Integer intMaxErrors);
  bool ValidatePaymentForPeriod(Integer intMaxErrors);
  static Integer GetRemainingErrors(Integer intAllowance, Long lngCount);

  // Sending.
  void RenewTransport();
  bool ConnectionStands();
  SUBMISSION_RESULT EndRefusedByValidation();
  SUBMISSION_RESULT OutcomeOfSend(bool sent);
  bool SaveCopies(const String& strSaveACopyTo, const String& strSaveAnotherCopyTo);
  void ReportSendError(const RuntimeError& error, const String& sentence);
  XmlDocument EnsureIRMarkedDocument();
  static XmlDocument MarkedDocument(clsGovTalkMessage& message);
  void TakeLogSnapshot();
  void LogSubmission(const XmlDocument& document);

  // The transport's events.
  void HoldTransport();
  void Tell(const String& line, const String& stage);

  // Saving.
  String PathToSave(const String& strFilepath);
  String ZipForSupport();

  Ref<vlsPaymentForPeriodValidator> payment_validator_;
  EmployeeProgress employee_progress_;
  Ref<vlsEmployeeValidator> employee_validator_;
  Ref<vlsCompanyValidator> company_validator_;
  Ref<vlsFileValidator> file_validator_;
  Ref<vlsSchemaValidator> schema_validator_;
  Ref<clsLog> log_;
  Integer max_errors_ = 0;
  bool validation_required_ = true;
  bool do_envelope_validation_ = true;
  bool do_company_validation_ = true;
  bool do_employee_validation_ = true;
  bool do_payment_validation_ = true;
  bool do_schema_validation_ = true;
  bool do_internet_connection_test_ = true;
  String submission_file_path_;
  String correlation_id_;
  RTI_SEND_MODE submission_mode_ = RTI_SEND_MODE::Live;
  bool cancel_requested_ = false;
  String stage_text_;  // the heading of the progress lines of a validation
  bool submission_saved_ = false;
  bool log_this_session_ = true;
  Ref<clsGovTalkMessage> mobjGovTalkMessage;
  Ref<clsSOAPInterface> mobjSOAPInterface;
  XmlNode logged_root_;  // what the mark's log entry is a copy of, until the send begins
  Subscription message_events_;
};

}  // namespace zelnor
