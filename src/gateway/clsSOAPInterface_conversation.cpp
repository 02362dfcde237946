#include "zelnor/common/modPublicEnums.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployeeNameType.h"
#include "zelnor/documents/clsSectionErrorResponse.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGTMGovTalkDetails.h"
#include "zelnor/envelope/clsGTMGovTalkError.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGTMSenderDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/gateway/clsSOAPInterface.h"
#include "zelnor/gateway/poll_wait.h"
#include "zelnor/gateway/transport_error.h"
#include "zelnor/platform/http.h"
#include "zelnor/platform/waiting.h"

namespace zelnor {
namespace {

constexpr std::string_view kClass = "clsSOAPInterface";
constexpr const char* kEnvelopeBinding = "xmlns:ns=\"http://www.govtalk.gov.uk/CM/envelope\"";
constexpr const char* kErrorPlace = "/Body/ErrorResponse";
constexpr const char* kLineEnd = "\r\n";

// The wait for one second, as a part of a day: a little longer than the clock's.
constexpr double kSecond = 0.000012;

// The message of an immediate acceptance behind which nothing is of interest.
constexpr std::string_view kLastMessage = "9001";

String QualifierOf(clsGovTalkMessage& message) {
  return LowerCase(message.Header_MessageDetails()->Qualifier());
}
String FunctionOf(clsGovTalkMessage& message) {
  return LowerCase(message.Header_MessageDetails()->MessageFunction());
}
String CorrelationOf(clsGovTalkMessage& message) { return message.Header_MessageDetails()->CorrelationID(); }

Long SecondOfClock() { return ToLong(Format(CurrentHost()->Now(), "Ss")); }

Ref<clsGTMGovTalkError> OwnError(const char* type, const String& text, const char* location) {
  auto error = std::make_shared<clsGTMGovTalkError>();
  error->Create("INTERNAL", type, 0, text, location);
  return error;
}

}  // namespace

bool clsSOAPInterface::EvaluateSubmissionXMLResponse(const Ref<clsGovTalkMessage>& objMessage,
                                                     const Ref<clsGovTalkMessage>& objResponse) {
  bool result = false;
  try {
    clsGovTalkMessage& response = Required(objResponse);
    SaveAs(response, ResponseFilePrefix() + (response_files_ == 0 ? String() : ToText(response_files_)));
    ++response_files_;
    const String qualifier = QualifierOf(response);
    if (qualifier == "acknowledgement") {
      TakeAcknowledgement(Required(objMessage), objResponse, result);
    } else if (qualifier == "error") {
      processing_status_ = SEND_STATUS::Failed;
      SetStatus("Error response received from Government Gateway");
      events.InitialErrorResponseReceived();
      CurrentHost()->Yield();
      ProcessError(objResponse);
    } else if (qualifier == "response") {
      TakeImmediateAnswer(objResponse);
      result = true;
    }
  } catch (...) {
    events.CannotSendDocument(TransportErrorText(CurrentError(), "Function EvaluateSubmissionXMLResponse"));
  }
  return result;
}

void clsSOAPInterface::TakeAcknowledgement(clsGovTalkMessage& sent, const Ref<clsGovTalkMessage>& response,
                                           bool& result) {
  processing_status_ = SEND_STATUS::PendingResult;
  SetStatus("Acknowledgement received from Government Gateway");
  RaiseSubmissionSuccessful(*response);
  events.AcknowledgementReceived(CorrelationOf(*response));
  CurrentHost()->Yield();
  response->Header_MessageDetails()->Class(sent.SubmissionDocument()->Class());
  response->Header_SenderDetails(sent.Header_SenderDetails());
  result = true;
  if (cancel_) {
    events.Cancelled();
  } else {
    PollForResponse(response);
  }
}

// A final answer at once. Its cancel flag ends the waits of `Send`; the object is spent.
void clsSOAPInterface::TakeImmediateAnswer(const Ref<clsGovTalkMessage>& response) {
  SetStatus("Immediate response received from Government Gateway");
  CurrentHost()->Yield();
  if (FunctionOf(*response) == "submit") {
    CollectMessages(response->Document());
    processing_status_ = SEND_STATUS::Complete;
    CloseConversation(response);
    cancel_ = true;
    return;
  }
  cancel_ = true;
  SetStatus("Successful response received from Government Gateway");
  RaiseSubmissionSuccessful(*response);
  CloseConversation(response);
  CurrentHost()->Yield();
  processing_status_ = SEND_STATUS::Complete;
}

// What an immediate acceptance says, up to its last message.
void clsSOAPInterface::CollectMessages(const XmlDocument& document) {
  success_text_.clear();
  for (const XmlNode& message : document.SelectNodes("/GovTalkMessage/Body/SuccessResponse/Message")) {
    if (!success_text_.empty()) success_text_ += String(kLineEnd) + kLineEnd;
    success_text_ += message.Text();
    const std::vector<XmlNode> attributes = message.Attributes();
    if (!attributes.empty() && attributes.front().Text() == kLastMessage) break;
  }
}

void clsSOAPInterface::RaiseSubmissionSuccessful(clsGovTalkMessage& response) {
  const clsGTMMessageDetails& details = *response.Header_MessageDetails();
  events.SubmissionSuccessful(details.CorrelationID(), details.ResponseEndPoint(),
                              ToText(details.ResponsePollInterval()));
}

void clsSOAPInterface::PollForResponse(const Ref<clsGovTalkMessage>& objResponse) {
  try {
    Poll(Required(objResponse), objResponse);
    if (cancel_) processing_status_ = SEND_STATUS::Cancelled;
  } catch (...) {
    events.ErrorProcessingResponse(TransportErrorText(CurrentError(), "Sub ProcessError"));
  }
}

void clsSOAPInterface::Poll(clsGovTalkMessage& response, const Ref<clsGovTalkMessage>& held) {
  String function = FunctionOf(response);
  String qualifier = QualifierOf(response);
  clsGTMMessageDetails& details = *response.Header_MessageDetails();
  processing_status_ = SEND_STATUS::PendingResult;
  if (qualifier == "response" && function == "submit") {
    status_ = "Closing conversation with Government Gateway";
    processing_status_ = SEND_STATUS::Complete;
    events.StatusChanged(status_);
    CurrentHost()->Yield();
    CloseConversation(held);
  } else {
    events.WaitingToPollTitle(0);
  }
  Long poll_number = 1;
  for (; qualifier != "response" && qualifier != "error" && !cancel_; ++poll_number) {
    if (function == "submit") qualifier = "poll";
    const Long wait = SecondsToPoll(details.ResponsePollInterval(), ++polls_);
    String end_point = details.ResponseEndPoint();
    if (end_point.empty()) end_point = SelectGatewayUrl(eRTISUBMISSIONTYPE::IsPollDoc);
    const String correlation_id = details.CorrelationID();
    CurrentHost()->Yield();
    if (cancel_) {
      events.Cancelled();
      break;
    }
    WaitToPoll(wait);
    if (cancel_) continue;
    details.Qualifier(qualifier);
    details.MessageFunction(function);
    details.CorrelationID(correlation_id);
    response.ForceRebuild();
    // This one is for the poll file; what goes out is the first answer, which holds class and sender.
    BuildPollDocument(qualifier, function, correlation_id, poll_number);
    const Ref<clsGovTalkMessage> answer = SendXML(held, end_point);
    if (!answer) {
      if (processing_status_ == SEND_STATUS::ConnectionFailed) break;
      if (details.ResponsePollInterval() == 0)
        details.ResponsePollInterval(static_cast<Integer>(kStandardInterval));
      continue;
    }
    qualifier = QualifierOf(*answer);
    if (TakePollAnswer(answer, qualifier)) break;
  }
}

// Whether the answer to a poll ends the conversation.
bool clsSOAPInterface::TakePollAnswer(const Ref<clsGovTalkMessage>& answer, const String& qualifier) {
  if (qualifier == "error") {
    if (processing_status_ != SEND_STATUS::ConnectionFailed) processing_status_ = SEND_STATUS::Failed;
    ProcessError(answer);
    return true;
  }
  if (qualifier == "acknowledgement") {
    events.StatusChanged("Provisional acknowledgement received...");
    return false;
  }
  const XmlNode body = answer->SubmissionDocument()->PLD();
  if (!body || LowerCase(body.BaseName()) != "successresponse" || qualifier != "response") return false;
  processing_status_ = SEND_STATUS::Complete;
  events.SuccessResponseReceived(CorrelationOf(*answer));
  CloseConversation(answer);
  return true;
}

// Waits that many seconds, telling once a second how many minutes are left.
void clsSOAPInterface::WaitToPoll(Long seconds) {
  const auto tell = [&](Long passed) { events.WaitingToPoll(static_cast<double>(seconds - passed) / 60.0); };
  const double end = CurrentHost()->Now().Serial() + static_cast<double>(seconds) * kSecond;
  Long second = SecondOfClock();
  Long passed = 0;
  tell(passed);
  while (CurrentHost()->Now().Serial() <= end && !cancel_) {
    if (const Long now = SecondOfClock(); now != second) {
      second = now;
      tell(++passed);
    }
    YieldAndRest();
  }
}

Ref<clsGovTalkMessage> clsSOAPInterface::BuildPollDocument(const String& strQualifier,
                                                           const String& strFunction,
                                                           const String& strCorrelationId,
                                                           Long lngPollNumber) {
  Ref<clsGovTalkMessage> result;
  try {
    auto message = std::make_shared<clsGovTalkMessage>();
    message->GTMEnvelopeVersion("2.0");
    clsGTMMessageDetails& details = *message->Header_MessageDetails();
    details.Class(class_);
    details.Qualifier(strQualifier);
    details.MessageFunction(strFunction);
    details.CorrelationID(strCorrelationId);
    details.Transformation(TYPE_TRANSFORMATION::XML);
    message->Header_SenderDetails()->Create(username_, "", password_, "", "clear");
    message->SubmissionDocument()->SetSubmissionType(eRTISUBMISSIONTYPE::IsPollDoc);
    result = message;
    SaveAs(*message, PollFilePrefix() + ToText(lngPollNumber));
  } catch (...) {
    events.SendingError("Error generating poll document: " + CurrentError().Description());
  }
  return result;
}

// Has the gateway forget the conversation. What becomes of that doesn't change the outcome.
void clsSOAPInterface::CloseConversation(const Ref<clsGovTalkMessage>& objResponse) {
  if (!objResponse) return;
  Handled(kClass, "Sub CloseConversation", [&] {
    clsGovTalkMessage& message = *objResponse;
    clsGTMMessageDetails& details = *message.Header_MessageDetails();
    details.Qualifier("request");
    details.MessageFunction("delete");
    const String end_point = details.ResponseEndPoint();
    events.ClosingConversation(details.CorrelationID());
    message.ForceRebuild();
    const XmlDocument document = message.Document();
    document.Save(SavePath() + DeleteFilePrefix() + "Original.xml");
    document.SelectionNamespaces(kEnvelopeBinding);
    const XmlNode body = document.DocumentElement().SelectSingleNode("//ns:Body");
    if (body) body.Text("");
    HttpRequest request;
    request.Open("POST", end_point, username_, password_);
    request.SetRequestHeader("Content-type", "text/xml");
    request.Send(PrettyPrintXML(document.Xml(), false));
    events.MessageSent(objResponse, end_point);
    events.ConversationClosed(details.CorrelationID());
    document.Save(SavePath() + DeleteFilePrefix() + ".xml");
  });
}

void clsSOAPInterface::ProcessError(const Ref<clsGovTalkMessage>& objResponse) {
  try {
    clsGovTalkMessage& response = Required(objResponse);
    if (processing_status_ == SEND_STATUS::ConnectionFailed) {
      events.GatewayConnectionError(CorrelationOf(response));
    } else {
      events.ErrorResponseReceived(CorrelationOf(response));
    }
    const Ref<clsGTMGovTalkDetails> details = response.GTMGovTalkDetails();
    const CollectionRef<clsGTMGovTalkError> errors =
        details->HasErrors() ? details->GovTalkErrors() : MakeCollection<clsGTMGovTalkError>();
    GatherErrors(*response.SubmissionDocument(), *errors);
    gateway_errors_ = TextOfErrors(*errors);
    gateway_errors_collection_ = errors;
  } catch (...) {
    events.ErrorProcessingResponse(TransportErrorText(CurrentError(), "Sub ProcessError"));
  }
}

// Adds the errors of the answer's body to those of its envelope; where there are none at all, one that says
// so.
void clsSOAPInterface::GatherErrors(clsSubmission& submission, Errors& errors) {
  if (submission.SubmissionType() == eRTISUBMISSIONTYPE::IsPollDoc) {
    const XmlNode body = submission.PLD();
    if (!body) {
      errors.Add(OwnError("UNKNOWN", "Empty error response from Government Gateway!", "/Body"));
    } else {
      for (const XmlNode& child : body.ChildNodes()) GatherErrorsOf(child, errors);
    }
  } else if (submission.SubmissionType() == eRTISUBMISSIONTYPE::IsErrorResponse) {
    for (const Ref<clsGTMGovTalkError>& error : *submission.ERRORRESPONSE()->Errors()) errors.Add(error);
  }
  if (errors.Count() == 0) {
    errors.Add(OwnError("UNKNOWN", "Unable to identify errors!",
                        "/Body/ErrorResponse; GovTalkDetails/GovTalkErrors"));
  }
}

// The errors in a child of a body that is no known document.
void clsSOAPInterface::GatherErrorsOf(const XmlNode& child, Errors& errors) {
  if (child.BaseName() != "ErrorResponse" || !child.HasChildNodes()) {
    errors.Add(OwnError("UNKNOWN", "Error response contains no identifiable errors!", kErrorPlace));
    return;
  }
  for (const XmlNode& node : child.ChildNodes()) {
    if (node.BaseName() != "Error") continue;
    auto error = std::make_shared<clsGTMGovTalkError>();
    const bool read = error->CreateFromXML(node.CloneNode(true));
    errors.Add(read ? error : OwnError("PARSE", node.Xml(), "/Body/ErrorResponse/Error"));
  }
  if (errors.Count() == 0) errors.Add(OwnError("UNKNOWN", "No errors found to parse!", kErrorPlace));
}

// The errors as one text, the employees named. Refused credentials are all that there is to say, and take the
// place of what was said before.
String clsSOAPInterface::TextOfErrors(const Errors& errors) {
  constexpr Integer kInconsistentMethod = 1040;
  constexpr Integer kAuthenticationFailure = 1046;
  String text;
  for (const Ref<clsGTMGovTalkError>& error : errors) {
    if (error->Number() == kInconsistentMethod || error->Number() == kAuthenticationFailure) {
      text =
          "Sender ID / Password are incorrect for the Tax District Number and Reference you are submitting.";
      events.ERRORRESPONSE(text, error);
      continue;
    }
    if (!text.empty()) text += kLineEnd;
    if (const Long index = error->EmployeeIndex(); index > 0) {
      const String label = EmployeeLabel(index);
      if (!label.empty()) error->Text(label + ": " + error->Text());
    }
    text += error->Text();
  }
  return text;
}

// Who an error is about. The last employee never gets a label.
String clsSOAPInterface::EmployeeLabel(Long index) const {
  if (index < 0 || index >= employees_->Count()) return {};
  clsEmployee& employee = Required(employees_->Item(index));
  const Ref<clsEmployeeNameType> name = employee.EmployeeDetails()->Contact();
  return employee.EmployeeCode() + " " + UpperCase(name->Surname()) + " " + UpperCase(name->Forename());
}

}  // namespace zelnor
