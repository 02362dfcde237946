#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/platform/collection.h"
#include "zelnor/platform/event.h"
#include "zelnor/platform/xml.h"

namespace zelnor {

class HttpRequest;
class clsEmployee;
class clsGTMGovTalkError;
class clsGovTalkMessage;
class clsSubmission;

/// The one class that talks to HMRC's Transaction Engine. It posts one submission, polls until the answer is
/// final, closes the conversation, and leaves every message that it exchanged in a file of its own. In spite
/// of its name it sends plain GovTalk XML.
///
/// An object serves one submission: after an answer or a cancel it is spent. An application seldom needs it:
/// clsRTIController owns one, and turns its events into log lines and progress.
///
/// @code
/// zelnor::clsSOAPInterface transport;
/// transport.Mode(zelnor::RTI_SEND_MODE::Test);
/// transport.events.StatusChanged.connect([](const zelnor::String& status) { std::cout << status << '\n'; });
/// if (transport.Send(message)) std::cout << static_cast<int>(transport.ProcessingStatus());
/// @endcode
class ZELNOR_API clsSOAPInterface {
 public:
  /// Three attempts, mode Live. Writes the setting `XMLFilePath` where it is empty and makes that folder.
  clsSOAPInterface();
  clsSOAPInterface(const clsSOAPInterface&) = delete;
  clsSOAPInterface& operator=(const clsSOAPInterface&) = delete;
  ~clsSOAPInterface();

  /// The events, raised on the caller's thread from within `Send`.
  struct Events {
    /// An attempt to send begins; the first is 0.
    Event<Long> SendingDocument;
    /// `Send` got no message.
    Event<> NoDocumentToSend;
    /// The poll's document couldn't be made or saved, for this reason.
    Event<const String&> SendingError;
    /// The send failed, for this reason.
    Event<const String&> CannotSendDocument;
    /// An error struck while an answer was dealt with.
    Event<const String&> ErrorProcessingResponse;
    /// An attempt to poll begins; the first is 0.
    Event<Long> PollingDocument;
    /// How long until the next poll, in minutes; once a second.
    Event<double> WaitingToPoll;
    /// The wait between polls begins; the kind of document, always 0.
    Event<Long> WaitingToPollTitle;
    /// A message went out to this address.
    Event<const Ref<clsGovTalkMessage>&, const String&> MessageSent;
    /// An answer came, or stands for one that didn't.
    Event<const Ref<clsGovTalkMessage>&> ResponseReceived;
    /// The gateway has the submission: correlation id, response end point, poll interval.
    Event<const String&, const String&, const String&> SubmissionSuccessful;
    /// The first answer was an acknowledgement; with the correlation id.
    Event<const String&> AcknowledgementReceived;
    /// The connection failed in a poll; with the correlation id.
    Event<const String&> GatewayConnectionError;
    /// Sender ID or password were refused: the text for the person, and the gateway's error.
    Event<const String&, const Ref<clsGTMGovTalkError>&> ERRORRESPONSE;
    /// A cancel took effect.
    Event<> Cancelled;
    /// `Status` has changed, to this text.
    Event<const String&> StatusChanged;
    /// The submission was marked: Base64 and Base32.
    Event<const String&, const String&> IRmarkGenerated;
    /// A poll brought the acceptance; with the correlation id.
    Event<const String&> SuccessResponseReceived;
    /// The gateway or HMRC reported errors; with the correlation id.
    Event<const String&> ErrorResponseReceived;
    /// The first answer was an error.
    Event<> InitialErrorResponseReceived;
    /// The delete request is about to go out; with the correlation id.
    Event<const String&> ClosingConversation;
    /// The delete request is out; with the correlation id.
    Event<const String&> ConversationClosed;
  };
  Events events;

  /// The errors of the last answer as text, a line each; empty before.
  String GatewayErrors() const { return gateway_errors_; }

  /// The errors of the last answer. An error of an employee has the employee in front of its text.
  CollectionRef<clsGTMGovTalkError> GatewayErrorsCollection() const { return gateway_errors_collection_; }

  /// How the names of the files begin: "response", "send", "poll" and "delete" unless the settings of these
  /// names say otherwise. A text that is not empty is written to the setting.
  ///@{
  String ResponseFilePrefix();
  void ResponseFilePrefix(const String& value);
  String SendFilePrefix();
  void SendFilePrefix(const String& value);
  String PollFilePrefix();
  void PollFilePrefix(const String& value);
  String DeleteFilePrefix();
  void DeleteFilePrefix(const String& value);
  ///@}

  /// Where the files go, put in front of their names as it stands; at first the folder "\xml\" of the
  /// program's folder. Reading and writing make the folder.
  ///@{
  String SavePath();
  void SavePath(const String& value);
  ///@}

  /// The address of submissions for the mode, from the settings (`GovGatewayURL_Live`, `GovGatewayURL_Test`);
  /// where that is empty, HMRC's own, which is then written there.
  String GatewayURL();

  /// The sender's id and password for the poll document and the delete request.
  ///@{
  String Username() const { return username_; }
  void Username(String value) { username_ = std::move(value); }
  void Password(String value) { password_ = std::move(value); }
  ///@}

  /// HMRC's class of the document. Written in mode FileOnly it gets "-TIL" behind it where it lacks it.
  ///@{
  String Class() const { return class_; }
  void Class(const String& value);
  ///@}

  /// Which gateway: Live and Test have the live one, all others the test one.
  ///@{
  RTI_SEND_MODE Mode() const { return mode_; }
  void Mode(RTI_SEND_MODE value);
  ///@}

  /// How often a failed send is repeated, 3 at first. A value of 0 or less is ignored.
  ///@{
  Long MaxSendAttempts() const { return max_send_attempts_; }
  void MaxSendAttempts(Long value);
  ///@}

  /// The last status text.
  String Status() const { return status_; }

  /// Where the conversation stands.
  SEND_STATUS ProcessingStatus() const { return processing_status_; }

  /// Sends the message, polls until the answer is final, and closes the conversation. True when the gateway
  /// took the submission, whatever became of it: see ProcessingStatus. False when there is no message, when
  /// no connection came about, and when the first answer was an error. Errors are told by events.
  bool Send(const Ref<clsGovTalkMessage>& objsubmission);

  /// Makes the object as new for another conversation. Folder, prefixes, mode, attempts
  /// and handlers stay.
  ZELNOR_INTERNAL void Renew();

  /// Why the last attempt to send or poll brought no answer: the exchange's own sentence, which names the
  /// host and the cause, or the file that couldn't be written. Empty after an answer, and before any attempt.
  ZELNOR_INTERNAL String LastFailure() const { return last_failure_; }

  /// Ends the waits and the retries; a running exchange ends first. Not taken back.
  ZELNOR_INTERNAL void Cancel() { cancel_ = true; }

  /// Makes a poll's message and saves its document as the poll file of that number. A failure is told by
  /// `SendingError`; the message is there where only its file couldn't be written, else no object.
  ZELNOR_INTERNAL Ref<clsGovTalkMessage> BuildPollDocument(const String& strQualifier,
                                                           const String& strFunction,
                                                           const String& strCorrelationId,
                                                           Long lngPollNumber);

  /// Polls for the answer to a message until it is final or a cancel comes.
  ZELNOR_INTERNAL void PollForResponse(const Ref<clsGovTalkMessage>& objResponse);

 private:
  friend struct clsSOAPInterfacePeer;

  // Addresses and files.
  String AddressOf(const char* member, const String& live_key, const String& test_key, const char* path);
  String GetSubmissionGatewayUrl();
  String GetPollGatewayUrl();
  String SelectGatewayUrl(eRTISUBMISSIONTYPE type);
  String Prefix(String& cached, const char* setting, const char* standard);
  void Prefix(String& cached, const char* setting, const String& value);
  void SaveAs(clsGovTalkMessage& message, const String& name);

  // Sending.
  Ref<clsGovTalkMessage> SendXML(const Ref<clsGovTalkMessage>& objMessage, const String& strURL);
  void PostMessage(const Ref<clsGovTalkMessage>& message, const String& url, Long attempt,
                   HttpRequest& request);
  Ref<clsGovTalkMessage> ReadAnswer(clsGovTalkMessage& sent, const XmlDocument& answer);
  Ref<clsGovTalkMessage> FailedConnection(clsGovTalkMessage& sent, const String& text);
  Ref<clsGovTalkMessage> ErrorAnswer(clsGovTalkMessage& sent, bool as_error, const String& text);
  void KeepAnswer(const XmlDocument& answer);
  CollectionRef<clsEmployee> EmployeesOf(clsGovTalkMessage& message);
  void SetStatus(const String& status);

  // The conversation.
  using Errors = Collection<Ref<clsGTMGovTalkError>>;
  bool EvaluateSubmissionXMLResponse(const Ref<clsGovTalkMessage>& objMessage,
                                     const Ref<clsGovTalkMessage>& objResponse);
  void TakeAcknowledgement(clsGovTalkMessage& sent, const Ref<clsGovTalkMessage>& response, bool& result);
  void TakeImmediateAnswer(const Ref<clsGovTalkMessage>& response);
  void CollectMessages(const XmlDocument& document);
  void RaiseSubmissionSuccessful(clsGovTalkMessage& response);
  void Poll(clsGovTalkMessage& response, const Ref<clsGovTalkMessage>& held);
  bool TakePollAnswer(const Ref<clsGovTalkMessage>& answer, const String& qualifier);
  void WaitToPoll(Long seconds);
  void CloseConversation(const Ref<clsGovTalkMessage>& objResponse);
  void ProcessError(const Ref<clsGovTalkMessage>& objResponse);
  static void GatherErrors(clsSubmission& submission, Errors& errors);
  static void GatherErrorsOf(const XmlNode& child, Errors& errors);
  String TextOfErrors(const Errors& errors);
  String EmployeeLabel(Long index) const;

  String username_;
  String password_;
  String class_;
  RTI_SEND_MODE mode_ = RTI_SEND_MODE::Live;
  String current_url_;
  String last_failure_;
  Long max_send_attempts_ = 3;
  SEND_STATUS processing_status_ = SEND_STATUS::Unsent;
  String status_;
  String gateway_errors_;
  CollectionRef<clsGTMGovTalkError> gateway_errors_collection_;
  String response_file_prefix_;
  String send_file_prefix_;
  String poll_file_prefix_;
  String delete_file_prefix_;
  String save_path_;
  CollectionRef<clsEmployee> employees_;
  bool cancel_ = false;
  Long response_files_ = 0;
  Long polls_ = 0;
  String success_text_;  // what an immediate acceptance said
};

}  // namespace zelnor
