#include "zelnor/common/clsLog.h"
#include "zelnor/common/record.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/controller/log_text.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/gateway/clsSOAPInterface.h"

namespace zelnor {
namespace {

// The headings under which the transport's progress is told.
constexpr const char* kCancelled = "Communication request cancelled";
constexpr const char* kError = "Error response from Government Gateway";
constexpr const char* kCommunicating = "Communicating with Government Gateway, please wait...";
constexpr const char* kPreparing = "Preparing submission, please wait...";
constexpr const char* kInvalid = "Invalid send request";
constexpr const char* kPolling = "Polling for HMRC response, please wait...";
constexpr const char* kWaiting = "Polling for results, please wait...";
constexpr const char* kProcessing = "Processing HMRC response, please wait...";

XmlNode RootOf(const Ref<clsGovTalkMessage>& message) {
  return Required(message).Document().DocumentElement();
}

}  // namespace

// A line for the log and for whoever follows the progress.
void clsRTIController::Tell(const String& line, const String& stage) {
  Log(line);
  events.ControllerStatus(stage, line, 0);
}

void clsRTIController::HoldTransport() {
  mobjSOAPInterface = std::make_shared<clsSOAPInterface>();
  clsSOAPInterface::Events& from = mobjSOAPInterface->events;

  from.AcknowledgementReceived.connect(
      [this](const String& id) { events.AcknowledgementReceivedFromGateway(id); });
  from.Cancelled.connect([this] { Tell("Send cancelled by user at " + LogMoment(), kCancelled); });
  from.CannotSendDocument.connect([this](const String& error) {
    Tell(error.empty() ? String("Cannot send document.") : "Cannot send document. " + error, kError);
  });
  from.ClosingConversation.connect([this](const String& id) {
    Tell("Closing conversation with Gov Gateway for submission " + id + ".", kCommunicating);
  });
  from.ConversationClosed.connect([this](const String& id) {
    Tell("Conversation successfully closed with Gov Gateway for submission " + id + ".", kCommunicating);
  });
  from.ErrorResponseReceived.connect(
      [this](const String& id) { events.ErrorResponseReceivedFromGateway(id); });
  from.GatewayConnectionError.connect([this](const String& id) { events.GatewayConnectionError(id); });
  from.InitialErrorResponseReceived.connect([this] { events.InitialErrorResponseReceivedFromGateway(); });
  from.IRmarkGenerated.connect([this](const String& base64, const String& base32) {
    Tell("IRmark generated at " + LogMoment(), kPreparing);
    if (!log_this_session_) return;
    Required(log_).SetIRMark(base64, base32);
    logged_root_ = RootOf(mobjGovTalkMessage);
    log_->AddSubmission(logged_root_);
  });
  from.MessageSent.connect([this](const Ref<clsGovTalkMessage>& message, const String& url) {
    Tell("Message issued to Government Gateway at " + LogMoment(), kCommunicating);
    if (log_this_session_) Required(log_).AddSendDoc(RootOf(message), SEND_DIRECTION::Outgoing, url);
  });
  from.NoDocumentToSend.connect([this] { Tell("No document to send.", kInvalid); });
  from.PollingDocument.connect([this](Long) { Tell("Polling...", kPolling); });
  from.ResponseReceived.connect([this](const Ref<clsGovTalkMessage>& response) {
    Tell("Response received from Government Gateway at " + LogMoment(), kProcessing);
    if (!log_this_session_) return;
    Required(log_).AddSendDoc(RootOf(response), SEND_DIRECTION::Incoming);
    log_->AddLatestPollResponse(RootOf(response));
  });
  from.SendingDocument.connect([this](Long) {
    Tell("Submitting document to Government Gateway at " + LogMoment(), kCommunicating);
    if (!log_this_session_) return;
    // The event follows upon the mark: what is logged there need not be copied once more.
    const XmlNode root = RootOf(mobjGovTalkMessage);
    if (std::exchange(logged_root_, nullptr) != root) Required(log_).AddSubmission(root);
    SaveLog();  // a crash while the gateway is waited for must leave the word that it may have the document
  });
  from.SendingError.connect(
      [this](const String& reason) { Tell("Error sending document: " + reason, kError); });
  from.StatusChanged.connect([this](const String& status) { Tell(status, kCommunicating); });
  from.SubmissionSuccessful.connect([this](const String& id, const String&, const String&) {
    Tell("Document submission completed successfully at " + LogMoment(), kProcessing);
    correlation_id_ = id;
    if (!log_this_session_) return;
    Log("Correlation ID: " + id);
    Required(log_).SetCorrelationID(id);
    SaveLog();  // the id must outlive a crash: with it the answer can still be polled for
  });
  from.SuccessResponseReceived.connect([this](const String& id) {
    events.SuccessResponseReceivedFromGateway(id);
    Tell("Receipt from Gov Gateway: submission accepted successfully.", kProcessing);
    correlation_id_ = id;
  });
  from.WaitingToPoll.connect([this](double minutes) {
    Tell(minutes > 0 ? "Waiting to poll... " + Format(60 * minutes, "#,##0") + " seconds."
                     : String("Commencing poll..."),
         kWaiting);
  });
}

}  // namespace zelnor
