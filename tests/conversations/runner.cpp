#include "conversations/runner.h"

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/common/clsLog.h"
#include "zelnor/common/process_state.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGTMGovTalkError.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGTMSenderDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsIRMark.h"
#include "zelnor/gateway/clsSOAPInterface.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"

#include <arpa/inet.h>
#include <array>
#include <filesystem>
#include <sstream>
#include <sys/socket.h>
#include <unistd.h>

#include "conversations/certificates.h"
#include "support/scoped_environment.h"

namespace zelnor::test {
namespace {

// A port that nobody listens on: taken, looked up and given back.
int FreePort() {
  const int listening = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  bind(listening, reinterpret_cast<sockaddr*>(&address), length);
  getsockname(listening, reinterpret_cast<sockaddr*>(&address), &length);
  close(listening);
  return ntohs(address.sin_port);
}

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

constexpr std::array<const char*, 7> kModes = {"Live",    "FileOnly",    "Test",       "DevLive",
                                               "DevTest", "DevFileLive", "DevFileTest"};
constexpr std::array<const char*, 7> kStates = {"Unsent", "Processing", "PendingResult",   "Complete",
                                                "Failed", "Cancelled",  "ConnectionFailed"};

RTI_SEND_MODE ModeOf(const std::string& name) {
  for (std::size_t mode = 0; mode < kModes.size(); ++mode) {
    if (name == kModes.at(mode)) return static_cast<RTI_SEND_MODE>(mode);
  }
  throw std::runtime_error("no such mode: " + name);
}

// What kind of request a message is.
std::string KindOf(const std::string& message) {
  if (message.find("<Qualifier>poll</Qualifier>") != std::string::npos) return "poll";
  return message.find("<Function>delete</Function>") != std::string::npos ? "delete" : "submission";
}

std::string Expected(const std::string& expected, const std::string& actual) {
  return expected == actual ? std::string() : "it is \"" + actual + "\"";
}

}  // namespace

std::string NameOf(SUBMISSION_RESULT result) {
  switch (result) {
    case SUBMISSION_RESULT::FailedValidation:
      return "FailedValidation";
    case SUBMISSION_RESULT::FailedSend:
      return "FailedSend";
    case SUBMISSION_RESULT::Successful:
      return "Successful";
    case SUBMISSION_RESULT::Pending:
      return "Pending";
    case SUBMISSION_RESULT::UnknownError:
      return "UnknownError";
    case SUBMISSION_RESULT::ConnectionFailed:
      return "ConnectionFailed";
    case SUBMISSION_RESULT::CancelledSend:
      return "CancelledSend";
  }
  return "none";
}

Conversation::Conversation(const Script& script) : script_(script) {
  SetProgramFolder(folder_.Path());
  FurnishProgramFolder();
  Process() = {};
  host_->now = Date::FromParts(2025, 7, 4).WithTimeOf(Date::FromTime(10, 11, 12));
  host_->connection.connected = script_.Setting("connected", "yes") == "yes";
  host_->exchange = [this](const HttpMessage& message) { return Exchange(message); };
  host_->on_yield = [this] {
    if (std::exchange(cancel_at_next_yield_, false)) rti_->Cancel();
  };
  SetUpGateway();
}

Conversation::~Conversation() {
  rti_.reset();
  Process() = {};
  SetProgramFolder("");
}

void Conversation::SetUpGateway() {
  const std::string kind = script_.Setting("gateway", "local");
  if (kind == "nobody") {
    url_ = "http://127.0.0.1:" + std::to_string(FreePort());
  } else if (kind == "unresolved") {
    // A label of more than 63 characters is refused by the resolver itself: nobody is asked.
    url_ = "http://" + std::string(70, 'a') + ".invalid";
  } else if (kind == "no-address") {
    url_ = "gopher://127.0.0.1";
  } else {
    standin::GatewayOptions options;
    options.scenario = script_.scenario;
    options.poll_interval = std::stoi(script_.Setting("interval", "5"));
    options.provisional = std::stoi(script_.Setting("provisional", "0"));
    options.schema_folder = folder_.At("xsd");
    if (const std::vector<std::string> user = Words(script_.Setting("user")); user.size() == 2) {
      options.user = user[0];
      options.password = user[1];
    }
    if (script_.Has("certificate")) {
      const std::string which = script_.Setting("certificate");
      MakeCertificates(folder_.Path(), {.host = which == "other-host" ? "gateway.invalid" : "127.0.0.1",
                                        .expired = which == "expired",
                                        .self_signed = which == "self-signed"});
      options.certificate = folder_.At("server.pem");
      options.key = folder_.At("server-key.pem");
    }
    gateway_ = std::make_unique<standin::LocalGateway>(options);
    gateway_->Start();
    url_ = gateway_->url();
  }
  alsAppSettings settings;
  for (const char* which : {"Live", "Test"}) {
    settings.SetSetting(String("GovGatewayURL_") + which, url_ + "/submission");
    settings.SetSetting(String("GovGatewayPollURL_") + which, url_ + "/poll");
  }
}

void Conversation::Open() {
  rti_ = std::make_unique<clsRTIController>();
  rti_->ValidationRequired(script_.Setting("validation", "off") == "on");
  rti_->DoInternetConnectionTest(script_.Setting("connection-test", "on") == "on");
  if (script_.Setting("log", "on") == "off") rti_->LogThisSession(false);
  if (script_.Has("attempts")) rti_->Transport()->MaxSendAttempts(std::stoi(script_.Setting("attempts")));
  FollowController();
  FollowTransport();
}

void Conversation::Load(const std::string& document) {
  rti_->ReadXML(ReadFile(String(ZELNOR_SOURCE_DIR "/samples/") + document + ".xml"));
  rti_->Submission()->Header()->DocIRMark();  // the writer needs the record
  const bool compress = script_.Setting("compress", "no") == "yes";
  if (compress) rti_->UseCompression(true);
  rti_->OverrideCompression(!compress);
  rti_->SubmissionMode(ModeOf(script_.Setting("mode", "Live")));
  if (const std::vector<std::string> sender = Words(script_.Setting("sender")); sender.size() == 2) {
    auto details = std::make_shared<clsGTMSenderDetails>();
    details->Create(sender[0], "principal", sender[1], "", "clear");
    rti_->GovTalkMessage()->Header_SenderDetails(details);
  }
}

void Conversation::Run() {
  std::optional<ScopedEnvironment> trust;
  if (script_.Has("certificate")) trust.emplace("SSL_CERT_FILE", folder_.At("authority.pem"));
  Open();
  if (script_.Has("poll-only")) {
    id_ = script_.Setting("poll-only");
    result_ = rti_->PollSubmission(script_.Setting("class", "HMRC-PAYE-RTI-FPS"), id_,
                                   ModeOf(script_.Setting("mode", "Live")));
    return;
  }
  const std::string again = script_.Setting("again");
  for (int send = again.empty() ? 1 : 0; send < 2; ++send) {
    Load(script_.Setting("document", "FPS-25-26"));
    const std::vector<std::string> sender = Words(script_.Setting("sender", "none none"));
    const auto copy = [&](const char* name) {
      const std::string file = script_.Setting(name);
      return file.empty() ? String() : String(folder_.At(file));
    };
    result_ = rti_->SendSubmission(sender[0], sender[1], copy("copy"), copy("another-copy"));
    if (send == 0) Note("first-result " + NameOf(result_));
  }
  if (!script_.Has("then-poll")) return;
  // A new controller, as in a new process, that knows the id from the log alone.
  Note("first-result " + NameOf(result_));
  const String log = rti_->ProcessingLog()->LogFilePath();
  rti_.reset();
  XmlDocument saved;
  if (!saved.Load(log)) throw std::runtime_error("the log can't be read");
  const String id = saved.SelectSingleNode("//CorrelationID").Text();
  Open();
  result_ = rti_->PollSubmission(script_.Setting("class", "HMRC-PAYE-RTI-FPS"), id,
                                 ModeOf(script_.Setting("mode", "Live")));
}

HttpAnswer Conversation::Exchange(const HttpMessage& message) {
  HttpMessage hurried = message;
  hurried.connect_timeout = 5000;
  hurried.stall_timeout = std::stoi(script_.Setting("stall-timeout", "10000"));
  sent_.push_back(KindOf(message.body));
  Note("sent " + sent_.back() + " to " + message.url.substr(message.url.rfind('/') + 1));
  try {
    return ExchangeHttp(hurried);
  } catch (const RuntimeError& error) {
    std::ostringstream number;
    number << std::hex << static_cast<std::uint32_t>(error.Number());
    Note("failed " + number.str() + " " + error.Description());
    throw;
  }
}

void Conversation::FollowController() {
  clsRTIController::Events& e = rti_->events;
  e.ControllerStatus.connect([this](const String& stage, const String& detail, Long percent) {
    if (!detail.starts_with("Waiting to poll"))
      Note("told " + stage + " / " + detail + " / " + ToText(percent));
  });
  const auto one = [this](Event<const String&>& event, const char* name) {
    event.connect([this, name](const String& text) { Note(String("raised ") + name + " " + text); });
  };
  const auto none = [this](Event<>& event, const char* name) {
    event.connect([this, name] { Note(String("raised ") + name); });
  };
  one(e.AcknowledgementReceivedFromGateway, "AcknowledgementReceivedFromGateway");
  none(e.InitialErrorResponseReceivedFromGateway, "InitialErrorResponseReceivedFromGateway");
  one(e.SuccessResponseReceivedFromGateway, "SuccessResponseReceivedFromGateway");
  one(e.ErrorResponseReceivedFromGateway, "ErrorResponseReceivedFromGateway");
  one(e.GatewayConnectionError, "GatewayConnectionError");
  none(e.ValidationFailed, "ValidationFailed");
  one(e.CompressionError, "CompressionError");
}

void Conversation::FollowTransport() {
  clsSOAPInterface::Events& e = rti_->Transport()->events;
  const auto note = [this](const char* name, const String& rest) {
    Note(String("event ") + name + (rest.empty() ? "" : " " + rest));
  };
  const auto one = [&](Event<const String&>& event, const char* name) {
    event.connect([=](const String& text) { note(name, text); });
  };
  const auto none = [&](Event<>& event, const char* name) { event.connect([=] { note(name, {}); }); };
  e.SendingDocument.connect([=](Long attempt) { note("SendingDocument", ToText(attempt)); });
  none(e.NoDocumentToSend, "NoDocumentToSend");
  one(e.SendingError, "SendingError");
  one(e.CannotSendDocument, "CannotSendDocument");
  one(e.ErrorProcessingResponse, "ErrorProcessingResponse");
  e.PollingDocument.connect([=, this](Long attempt) {
    first_wait_ = true;
    note("PollingDocument", ToText(attempt));
  });
  e.WaitingToPoll.connect([this](double minutes) {
    if (std::exchange(first_wait_, false)) Note("waited " + Format(minutes * 60, "0"));
  });
  e.WaitingToPollTitle.connect([=](Long type) { note("WaitingToPollTitle", ToText(type)); });
  e.MessageSent.connect([=](const Ref<clsGovTalkMessage>&, const String& url) {
    note("MessageSent", url.substr(url.rfind('/') + 1));
  });
  e.ResponseReceived.connect([=](const Ref<clsGovTalkMessage>& response) {
    note("ResponseReceived", response->Header_MessageDetails()->Qualifier());
  });
  e.SubmissionSuccessful.connect(
      [=, this](const String& id, const String& end_point, const String& interval) {
        id_ = id;
        note("SubmissionSuccessful", id + " " + end_point + " " + interval);
      });
  one(e.AcknowledgementReceived, "AcknowledgementReceived");
  one(e.GatewayConnectionError, "GatewayConnectionError");
  e.ERRORRESPONSE.connect([=](const String& text, const Ref<clsGTMGovTalkError>& error) {
    note("ERRORRESPONSE", ToText(Long{error->Number()}) + " " + text);
  });
  none(e.Cancelled, "Cancelled");
  one(e.StatusChanged, "StatusChanged");
  e.IRmarkGenerated.connect([=](const String&, const String&) { note("IRmarkGenerated", {}); });
  one(e.SuccessResponseReceived, "SuccessResponseReceived");
  one(e.ErrorResponseReceived, "ErrorResponseReceived");
  none(e.InitialErrorResponseReceived, "InitialErrorResponseReceived");
  one(e.ClosingConversation, "ClosingConversation");
  one(e.ConversationClosed, "ConversationClosed");
}

// The id and the address differ from run to run.
std::string Conversation::Shown(std::string text) const {
  if (!id_.empty()) text = Replace(text, id_, "ID");
  return Replace(Replace(text, url_, "URL"), folder_.Path(), "HOME");
}

void Conversation::Note(std::string line) {
  line = Shown(std::move(line));
  line.erase(line.find_last_not_of(' ') + 1);
  trace_.push_back(line);
  Interfere(line);
}

// What the script has happen in the middle of the run.
void Conversation::Interfere(const std::string& line) {
  const auto at = [&](const char* setting) {
    for (const std::string& pattern : script_.All(setting)) {
      if (Matches(pattern, line)) return true;
    }
    return false;
  };
  if (at("cancel-in")) rti_->Cancel();
  if (at("cancel-after")) cancel_at_next_yield_ = true;
  // Root may write where nobody else may; a file in the folder's place keeps root out as well.
  if (at("spoil-folder")) {
    std::filesystem::rename(folder_.At("xml"), folder_.At("xml-before"));
    folder_.Put("xml", "");
  }
  if (at("fail-in")) ThrowTypeMismatch();
}

std::string Conversation::TraceText() const {
  std::string text;
  for (const std::string& line : trace_) text += "  " + line + "\n";
  for (const ShownMessage& message : host_->messages) text += "  box " + message.text + "\n";
  return text + "  result " + NameOf(result_) + ", files " + FileNames() + "\n  errors " +
         rti_->GatewayErrors() + "\n";
}

std::string Conversation::FileNames() const {
  std::vector<std::string> names;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.At("xml"), ignored)) {
    if (entry.is_regular_file()) names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : " ") + name;
  return text;
}

std::string Conversation::Failure(const std::string& expectation) {
  const std::size_t blank = expectation.find(' ');
  const std::string word = expectation.substr(0, blank);
  const std::string rest = blank == std::string::npos ? "" : expectation.substr(blank + 1);
  if (word == "result") return Expected(rest, NameOf(result_));
  if (word == "state") {
    return Expected(rest, kStates.at(static_cast<std::size_t>(rti_->Transport()->ProcessingStatus())));
  }
  if (word == "status") return Expected(rest, rti_->Transport()->Status());
  if (word == "files") return Expected(rest, FileNames());
  if (word == "id") return Expected(rest, Shown(rti_->CorrelationID()));
  if (word == "errors") {
    const String errors = Replace(Shown(rti_->GatewayErrors()), "\r\n", " // ");
    return Matches(rest, errors) ? "" : "they are \"" + errors + "\"";
  }
  if (word == "exchanged") {
    std::string all;
    for (const std::string& kind : sent_) all += (all.empty() ? "" : " ") + kind;
    return Expected(rest, all);
  }
  if (word == "waits") {
    std::string all;
    for (const std::string& line : trace_) {
      if (line.starts_with("waited ")) all += (all.empty() ? "" : " ") + line.substr(7);
    }
    return Expected(rest, all);
  }
  if (word == "never") {
    for (const std::string& line : trace_) {
      if (Matches(rest, line)) return "it happened: " + line;
    }
    return {};
  }
  if (word == "box") {
    for (const ShownMessage& message : host_->messages) {
      if (Matches(rest, Shown(message.text))) return {};
    }
    return "no such box was shown";
  }
  if (word == "no-box")
    return host_->messages.empty() ? "" : "a box was shown: " + host_->messages.front().text;
  if (word == "file") {
    const std::vector<std::string> words = Words(rest);
    const std::string path = folder_.At(words.at(0));
    if (!PlainFileExists(path)) return "there is no such file";
    const std::string text = Shown(ReadFile(path));
    const std::size_t second = rest.find(' ');
    return second == std::string::npos || Matches("*" + rest.substr(second + 1) + "*", text)
               ? ""
               : "it holds " + text;
  }
  if (word == "logged" || word == "log-holds") {
    XmlDocument log;
    const String path = rti_->ProcessingLog()->LogFilePath();
    if (!log.Load(path)) return "the log can't be read";
    if (word == "log-holds") return log.SelectNodes(rest).empty() ? "nothing is there" : "";
    for (const XmlNode& line : log.SelectNodes("//Timing")) {
      if (Matches(rest, Shown(line.Text()))) return {};
    }
    return "there is no such line";
  }
  return FailureInTrace(expectation);
}

// The lines of the trace come in the order in which the script asks for them.
std::string Conversation::FailureInTrace(const std::string& expectation) {
  for (std::size_t at = checked_; at < trace_.size(); ++at) {
    if (!Matches(expectation, trace_[at])) continue;
    checked_ = at + 1;
    return {};
  }
  return "it isn't in what is left of the trace";
}

}  // namespace zelnor::test
