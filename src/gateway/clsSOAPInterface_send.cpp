#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionErrorResponse.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionNVR.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGTMGovTalkError.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGTMSenderDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsSHA1.h"
#include "zelnor/gateway/clsSOAPInterface.h"
#include "zelnor/gateway/transport_error.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/formats.h"
#include "zelnor/platform/host.h"
#include "zelnor/platform/http.h"
#include "zelnor/platform/waiting.h"

namespace zelnor {
namespace {

// How long `Send` still waits for an end that hasn't been told, in milliseconds.
constexpr std::int64_t kLastWait = 600;

// The number of an error that no gateway has sent.
constexpr Integer kOwnError = -9999;

constexpr const char* kCertificateText =
    "Unable to communicate with the Government Gateway. The target server may have an invalid HTTP security "
    "certificate.\r\n\r\n"
    "Please ensure that your PC date is set to the correct date and time, and that you are able "
    "to access the Internet without any issues.";

XmlDocument CopyOf(const XmlDocument& document) {
  XmlDocument copy;
  copy.AppendChild(copy.ImportNode(document.DocumentElement(), true));
  return copy;
}

// The answer that a request has brought, if that is XML.
XmlDocument AnswerOf(const HttpRequest& request) {
  const XmlDocument answer = request.ResponseXML();
  return answer && answer.DocumentElement() ? CopyOf(answer) : XmlDocument(nullptr);
}

// What goes out is kept first; without that nothing goes out.
void KeepSent(const String& path, const String& text) {
  try {
    WriteFile(path, text);
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.Number(), error.Source(),
                       "Nothing was sent, since the file " + SystemPath(path) +
                           " can't be written: " + error.Description() + ".");
  }
}

String TextOf(const XmlDocument& answer) { return answer ? answer.Xml() : String("Null response"); }

}  // namespace

bool clsSOAPInterface::Send(const Ref<clsGovTalkMessage>& objsubmission) {
  bool result = false;
  try {
    employees_ = objsubmission ? EmployeesOf(*objsubmission) : MakeCollection<clsEmployee>();
    processing_status_ = SEND_STATUS::Processing;
    if (!objsubmission) {
      processing_status_ = SEND_STATUS::Failed;
      events.NoDocumentToSend();
      return false;
    }
    SetStatus("Initialising...");
    const Ref<clsGovTalkMessage> response = SendXML(objsubmission, GatewayURL());
    if (processing_status_ == SEND_STATUS::ConnectionFailed || !response) return false;
    if (!EvaluateSubmissionXMLResponse(objsubmission, response)) {
      processing_status_ = SEND_STATUS::Failed;
      return false;
    }
    result = true;
    const std::int64_t start = CurrentHost()->Tick();
    const auto is_open = [&] {
      return processing_status_ == SEND_STATUS::PendingResult ||
             processing_status_ == SEND_STATUS::Processing;
    };
    while (!cancel_ && is_open() && CurrentHost()->Tick() - start < kLastWait) YieldAndRest();
  } catch (...) {
    events.CannotSendDocument(TransportErrorText(CurrentError(), "Function Send"));
  }
  return result;
}

// Whose names an error of the gateway may need.
CollectionRef<clsEmployee> clsSOAPInterface::EmployeesOf(clsGovTalkMessage& message) {
  clsSubmission& submission = *message.SubmissionDocument();
  switch (submission.SubmissionType()) {
    case eRTISUBMISSIONTYPE::IsEAS:
      return submission.EAS()->Employees();
    case eRTISUBMISSIONTYPE::IsFPS:
      return submission.FPS()->Employees();
    case eRTISUBMISSIONTYPE::IsNVR:
      return submission.NVR()->Employees();
    case eRTISUBMISSIONTYPE::IsEYU:
      return submission.EYU()->Employees();
    default:
      return MakeCollection<clsEmployee>();
  }
}

// Posts the message and reads the answer. A failure before the answer repeats all of it, the mark included;
// so with the standard three attempts up to four sends take place, the last telling "attempt 4 of 3".
Ref<clsGovTalkMessage> clsSOAPInterface::SendXML(const Ref<clsGovTalkMessage>& objMessage,
                                                 const String& strURL) {
  for (Long attempt = 0;; ++attempt) {
    HttpRequest request;
    try {
      PostMessage(objMessage, strURL, attempt, request);
    } catch (...) {
      const RuntimeError error = CurrentError();
      last_failure_ = error.Description();
      const XmlDocument answer = AnswerOf(request);
      KeepAnswer(answer);
      if (error.Number() == kHttpRefusedCertificate) return FailedConnection(*objMessage, kCertificateText);
      if (attempt >= max_send_attempts_) {
        events.CannotSendDocument("Maximum attempts reached");
        return FailedConnection(*objMessage,
                                "Unable to communicate with the Government Gateway: " + TextOf(answer));
      }
      if (cancel_) return nullptr;
      continue;
    }
    if (cancel_ && !request.ResponseXML()) return nullptr;
    return ReadAnswer(*objMessage, request.ResponseXML());
  }
}

// One attempt. With the cancel flag set nothing goes out, and the request is left without a response.
void clsSOAPInterface::PostMessage(const Ref<clsGovTalkMessage>& message, const String& url, Long attempt,
                                   HttpRequest& request) {
  String text;
  if (message->SubmissionDocument()->SubmissionType() != eRTISUBMISSIONTYPE::IsPollDoc) {
    clsSHA1 sha1;
    message->ForceRebuild();
    text = sha1.MarkedText(*message);
    events.IRmarkGenerated(sha1.Base64Mark(), sha1.Base32Mark());
    events.SendingDocument(attempt);
    SetStatus("Attempting to send... attempt " + ToText(attempt + 1) + " of " + ToText(max_send_attempts_));
    KeepSent(SavePath() + SendFilePrefix() + ".xml", text);
  } else {
    SetStatus("Beginning Poll...");
    events.PollingDocument(attempt);
    text = message->Document().Xml();
  }
  if (cancel_) {
    events.Cancelled();
    return;
  }
  request.Open("POST", url);
  request.SetRequestHeader("Content-type", "text/xml");
  request.Send(std::move(text));
  last_failure_.clear();
  events.MessageSent(message, url);
}

// The answer as a message. One that can't be read becomes an error of our own.
Ref<clsGovTalkMessage> clsSOAPInterface::ReadAnswer(clsGovTalkMessage& sent, const XmlDocument& answer) {
  if (!answer) {
    events.CannotSendDocument("No response from Government Gateway");
    return nullptr;
  }
  auto response = std::make_shared<clsGovTalkMessage>();
  XmlDocument document{nullptr};
  try {
    document = CopyOf(answer);
    response->CreateFromXML(document.DocumentElement().CloneNode(true));
    // An answer may leave its body out: it is no submission then, and nor are the polls made of it.
    if (!response->HasSubmission()) {
      response->SubmissionDocument()->SetSubmissionType(eRTISUBMISSIONTYPE::IsPollDoc);
    }
  } catch (...) {
    processing_status_ = SEND_STATUS::ConnectionFailed;
    response = ErrorAnswer(sent, false, "Invalid response from HMRC: " + TextOf(document));
  }
  SetStatus("Processing response...");
  events.ResponseReceived(response);
  return response;
}

Ref<clsGovTalkMessage> clsSOAPInterface::FailedConnection(clsGovTalkMessage& sent, const String& text) {
  processing_status_ = SEND_STATUS::ConnectionFailed;
  Ref<clsGovTalkMessage> response = ErrorAnswer(sent, true, text);
  SetStatus("Failed to connect to the Government Gateway.");
  events.ResponseReceived(response);
  return response;
}

// What stands for an answer where none came: the message that was sent, its sender's id emptied and an empty
// authentication added, with the error for its body.
Ref<clsGovTalkMessage> clsSOAPInterface::ErrorAnswer(clsGovTalkMessage& sent, bool as_error,
                                                     const String& text) {
  auto response = std::make_shared<clsGovTalkMessage>();
  response->CreateFromXML(sent.Document().DocumentElement().CloneNode(true));
  if (as_error) {
    response->Header_MessageDetails()->MessageFunction("submit");
    response->Header_MessageDetails()->Qualifier("error");
  }
  response->Header_SenderDetails()->Create("", "", "", "", "clear");
  response->SubmissionDocument()->SetSubmissionType(eRTISUBMISSIONTYPE::IsErrorResponse);
  auto error = std::make_shared<clsGTMGovTalkError>();
  error->Create("ZELNOR.clsSOAPInterface.SendXML", "INTERNAL", kOwnError, text);
  response->SubmissionDocument()->ERRORRESPONSE()->AddError(error);
  return response;
}

// An answer that couldn't be dealt with is kept beside the program.
void clsSOAPInterface::KeepAnswer(const XmlDocument& answer) {
  if (!answer) return;
  answer.Save(ProgramFolder() + "\\ResponseError" + Format(CurrentHost()->Now(), "yyyymmdd-hhnnss") + ".xml");
}

}  // namespace zelnor
