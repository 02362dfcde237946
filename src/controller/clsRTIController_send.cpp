#include "zelnor/common/clsLog.h"
#include "zelnor/common/modPublicEnums.h"
#include "zelnor/common/record.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/controller/log_text.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsSHA1.h"
#include "zelnor/gateway/clsSOAPInterface.h"
#include "zelnor/platform/files.h"

namespace zelnor {
namespace {

using enum SUBMISSION_RESULT;

constexpr std::string_view kClass = "clsRTIController";

}  // namespace

// A transport serves one conversation. What an earlier one left, be it only a cancel, is no part of this one.
void clsRTIController::RenewTransport() { Required(mobjSOAPInterface).Renew(); }

SUBMISSION_RESULT clsRTIController::SendSubmission(const String& strUsername, const String& strPassword,
                                                   const String& strSaveACopyTo,
                                                   const String& strSaveAnotherCopyTo) {
  SUBMISSION_RESULT result{};
  try {
    if (log_this_session_) Required(log_).SetSubmissionType(SubmissionType());
    RenewTransport();
    const std::int64_t start = LogTick();
    if (!ConnectionStands()) {
      TakeLogSnapshot();
      if (do_internet_connection_test_) return ConnectionFailed;
    }
    if (!validation_required_) {
      Log("Validation is disabled. Commencing build...");
    } else if (Validate()) {
      Log("Submission validated successfully.");
    } else {
      return EndRefusedByValidation();
    }
    const std::int64_t generated = LogTick();
    Log("Submission generation completed in " + LogCount(generated - start) + " milliseconds");
    const Ref<clsSOAPInterface> transport = mobjSOAPInterface;
    transport->Class(Required(Submission()).Class());
    transport->Username(strUsername);
    transport->Password(strPassword);
    transport->Mode(submission_mode_);
    result = OutcomeOfSend(transport->Send(mobjGovTalkMessage));
    if (SaveCopies(strSaveACopyTo, strSaveAnotherCopyTo)) {
      const std::int64_t sent = LogTick();
      Log("Submission send completed in " + LogCount(sent - generated) + " milliseconds");
      Log("Total process completed in " + LogCount(sent - start) + " milliseconds");
    } else {
      result = UnknownError;
    }
  } catch (...) {
    ReportSendError(CurrentError(), {});
    result = UnknownError;
  }
  try {
    TakeLogSnapshot();
  } catch (...) {
    ReportSendError(CurrentError(), {});
    result = UnknownError;
  }
  return result;
}

// Whether the machine is connected; a missing connection is logged.
bool clsRTIController::ConnectionStands() {
  if (IsWebConnected()) return true;
  Log(do_internet_connection_test_
          ? "Internet connection not detected, exiting process."
          : "Internet connection not detected, continuing anyway in case it's a false alarm.");
  return false;
}

SUBMISSION_RESULT clsRTIController::EndRefusedByValidation() {
  events.ValidationFailed();
  if (cancel_requested_) {
    Log("User cancelled during Validation process.");
    TakeLogSnapshot();
    return CancelledSend;
  }
  Log("Validation failed. Exiting Send...");
  LogSubmission(Required(mobjGovTalkMessage).Document());
  return FailedValidation;
}

SUBMISSION_RESULT clsRTIController::OutcomeOfSend(bool sent) {
  const SEND_STATUS status = mobjSOAPInterface->ProcessingStatus();
  if (!sent) return status == SEND_STATUS::ConnectionFailed ? ConnectionFailed : FailedSend;
  if (status == SEND_STATUS::Complete) {
    Log("Submission result: Successful");
    return Successful;
  }
  if (status == SEND_STATUS::Cancelled && !correlation_id_.empty()) {
    Log("Submission result: Pending [Cancelled]");
    return Pending;
  }
  if (status == SEND_STATUS::PendingResult) {
    Log("Submission result: Pending");
    return Pending;
  }
  if (status == SEND_STATUS::ConnectionFailed) {
    Log("Submission result: Connection Failed");
    return ConnectionFailed;
  }
  Log("Submission result: Send Failed");
  return FailedSend;
}

// The copies that the caller asked for. False after a failure, which is reported.
bool clsRTIController::SaveCopies(const String& strSaveACopyTo, const String& strSaveAnotherCopyTo) {
  if (strSaveACopyTo.empty()) return true;
  constexpr const char* kAttempt = "An error occurred while attempting to ";
  const auto step = [&](const String& sentence, const std::function<void()>& body) {
    try {
      body();
      return true;
    } catch (...) {
      ReportSendError(CurrentError(), kAttempt + sentence);
      return false;
    }
  };
  const auto tell = [&](const String& path) { Log("Copy of submission saved to " + path + "."); };
  return step("delete the submission file " + strSaveACopyTo,
              [&] {
                if (FileExists(strSaveACopyTo)) DeleteFile(strSaveACopyTo);
              }) &&
         step("save the submission to file " + strSaveACopyTo,
              [&] {
                CreateFolder(strSaveACopyTo);
                EnsureIRMarkedDocument().Save(strSaveACopyTo);
                tell(strSaveACopyTo);
              }) &&
         (strSaveAnotherCopyTo.empty() || step("save the submission file " + strSaveAnotherCopyTo, [&] {
            CreateFolder(strSaveAnotherCopyTo);
            CopyFile(strSaveACopyTo, strSaveAnotherCopyTo);
            tell(strSaveAnotherCopyTo);
          }));
}

void clsRTIController::ReportSendError(const RuntimeError& error, const String& sentence) {
  ReportError(error, kClass, "Function SendSubmission", sentence.empty() ? sentence : "\r\n\r\n" + sentence);
  if (!log_this_session_ || !log_) return;
  log_->AddTimingRecord("An error occurred while attempting to send the submission: " + error.Description() +
                        (sentence.empty() ? sentence : "." + sentence));
}

XmlDocument clsRTIController::EnsureIRMarkedDocument() {
  const Ref<clsGovTalkMessage> message = mobjGovTalkMessage;
  if (!Required(message).SubmissionDocument()->Header()->HasDocIRMarkValue())
    return clsSHA1().CreateIRMark(*message);
  return MarkedDocument(*message);
}

// The document of a message whose header has a mark. A send marks the header behind the document's back, so
// that this may have to be written once more.
XmlDocument clsRTIController::MarkedDocument(clsGovTalkMessage& message) {
  const Ref<clsSectionIRHeader> header = message.SubmissionDocument()->Header();
  XmlDocument document = message.Document();
  const XmlNode mark = document.SelectSingleNode(
      "/*/*[local-name() = 'Body']/*[local-name() = 'IRenvelope']/*[local-name() = "
      "'IRheader']/*[local-name() = "
      "'IRmark']");
  if (!mark || mark.Text() != header->DocIRMark()->value()) {
    message.RewriteIRHeader();
    document = message.Document();
  }
  return document;
}

void clsRTIController::TakeLogSnapshot() {
  if (log_this_session_) LogSubmission(EnsureIRMarkedDocument());
}

// Leaves a copy of the document in the log, in place of what is there, and saves the log.
void clsRTIController::LogSubmission(const XmlDocument& document) {
  if (!log_this_session_) return;
  Required(log_).ClearSubmission();
  if (document && document.DocumentElement()) log_->AppendSubmission(document.DocumentElement());
  log_->Save();
}

SUBMISSION_RESULT clsRTIController::PollSubmission(const String& strClass, const String& strCorrelationId,
                                                   RTI_SEND_MODE eniSendMode, const String& strUsername,
                                                   const String& strPassword) {
  SUBMISSION_RESULT result{};
  try {
    const std::int64_t start = LogTick();
    RenewTransport();
    submission_mode_ = eniSendMode;
    if (log_this_session_) Required(log_).SetSubmissionMode(eniSendMode);
    if (!ConnectionStands()) {
      result = ConnectionFailed;
      SaveLog();
      if (do_internet_connection_test_) return result;
    }
    correlation_id_ = strCorrelationId;
    const Ref<clsSOAPInterface> transport = mobjSOAPInterface;
    Hold(transport->BuildPollDocument("poll", "submit", strCorrelationId, -1));
    const Ref<clsGovTalkMessage> message = mobjGovTalkMessage;
    Required(message).Header_MessageDetails()->Class(strClass);
    message->Header_MessageDetails()->ResponsePollInterval(-1);
    if (log_this_session_) {
      Required(log_).SetSubmissionType(SubmissionType());
      log_->AppendSubmission(message->Document().DocumentElement());
    }
    const std::int64_t generated = LogTick();
    Log("Submission generation completed in " + LogCount(generated - start) + " milliseconds");
    if (log_this_session_) Required(log_).SetCorrelationID(strCorrelationId);
    transport->Class(strClass);
    transport->Username(strUsername);
    transport->Password(strPassword);
    transport->Mode(eniSendMode);
    // All runs on this thread: when the call returns, the answer is final, a cancel came, or neither will.
    transport->PollForResponse(message);
    switch (transport->ProcessingStatus()) {
      case SEND_STATUS::Complete:
        result = Successful;
        break;
      case SEND_STATUS::Cancelled:
        result = Pending;
        break;
      case SEND_STATUS::ConnectionFailed:
        result = ConnectionFailed;
        break;
      default:
        result = FailedSend;
    }
    const std::int64_t polled = LogTick();
    Log("Submission send completed in " + LogCount(polled - generated) + " milliseconds");
    Log("Total process completed in " + LogCount(polled - start) + " milliseconds");
    SaveLog();
  } catch (...) {
    const RuntimeError error = CurrentError();
    ReportError(error, kClass, "Function PollSubmission");
    if (log_this_session_ && log_) {
      log_->AddTimingRecord("An error occurred while attempting to send the submission: " +
                            error.Description());
      log_->Save();
    }
  }
  return result;
}

}  // namespace zelnor
