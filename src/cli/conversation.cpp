#include "zelnor/cli/conversation.h"

#include "zelnor/cli/interrupt.h"
#include "zelnor/common/alsAppSettings.h"
#include "zelnor/common/clsLog.h"
#include "zelnor/documents/clsSectionErrorResponse.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGTMGovTalkError.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/gateway/clsSOAPInterface.h"
#include "zelnor/platform/address.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <termios.h>
#include <unistd.h>

namespace zelnor::cli {
namespace {

constexpr std::array<std::pair<const char*, RTI_SEND_MODE>, 7> kModes = {
    {{"Live", RTI_SEND_MODE::Live},
     {"FileOnly", RTI_SEND_MODE::FileOnly},
     {"Test", RTI_SEND_MODE::Test},
     {"DevLive", RTI_SEND_MODE::DevLive},
     {"DevTest", RTI_SEND_MODE::DevTest},
     {"DevFileLive", RTI_SEND_MODE::DevFileLive},
     {"DevFileTest", RTI_SEND_MODE::DevFileTest}}};

constexpr const char* kProvisional = "Provisional acknowledgement received...";

RTI_SEND_MODE ModeOf(const String& name) {
  if (name.empty()) return RTI_SEND_MODE::Live;
  String names;
  for (const auto& [each, mode] : kModes) {
    if (LowerCase(each) == LowerCase(name)) return mode;
    names += String(names.empty() ? "" : ", ") + each;
  }
  throw CommandError(kWrongUsage, "--mode: \"" + name + "\" is none. Choose one of " + names + ".");
}

// Whether an address names this machine itself.
bool IsLoopbackAddress(const char* option, const String& url) {
  const std::optional<AddressHost> host = HostOfAddress(url);
  if (!host) {
    throw CommandError(kWrongUsage, String(option) + ": \"" + url +
                                        "\" is no http or https address. Write it as "
                                        "https://HOST/PATH, with :PORT behind the host where it needs one.");
  }
  if (host->has_user) {
    throw CommandError(kWrongUsage, String(option) +
                                        ": leave user and password out of the address; --user and "
                                        "--password-file give them.");
  }
  return host->loopback;
}

// Who serves where the settings name the gateway: they may name another than HMRC's.
String RemarkOfSettings(RTI_SEND_MODE mode) {
  const bool live = mode == RTI_SEND_MODE::Live || mode == RTI_SEND_MODE::Test;
  const String url = alsAppSettings().ReadSetting(live ? "GovGatewayURL_Live" : "GovGatewayURL_Test");
  const std::optional<AddressHost> host = HostOfAddress(url);
  const bool hmrc = url.empty() || (host && host->name.ends_with(".tax.service.gov.uk"));
  if (hmrc) return "HMRC's gateway serves";
  return "The gateway that the settings name serves, and not HMRC's own: " + url;
}

String FirstLine(std::string text) {
  text = text.substr(0, text.find_first_of("\r\n"));
  return text;
}

// Asks on the terminal itself, whatever the standard streams are, without showing what is typed.
String AskForPassword() {
  FILE* terminal = std::fopen("/dev/tty", "r+");
  if (terminal == nullptr) {
    throw CommandError(
        kWrongUsage,
        "No password for --user. Give it by --password-file, or in the environment as ZELNOR_PASSWORD.");
  }
  termios shown{};
  tcgetattr(fileno(terminal), &shown);
  termios hidden = shown;
  hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
  tcsetattr(fileno(terminal), TCSAFLUSH, &hidden);
  std::fputs("Password: ", terminal);
  std::fflush(terminal);
  const std::optional<std::string> line = TypedLine(terminal);
  tcsetattr(fileno(terminal), TCSAFLUSH, &shown);
  std::fputs("\n", terminal);
  std::fclose(terminal);
  if (!line) throw CommandError(kCancelledSend, "No password was given.");
  return FirstLine(*line);
}

Json ErrorOf(const clsGTMGovTalkError& error) {
  const Long employee = error.EmployeeIndex();
  return {{"number", error.Number()},      {"type", error.ErrorType()},
          {"raised_by", error.RaisedBy()}, {"text", error.Text()},
          {"location", error.Location()},  {"employee", employee > 0 ? Json(employee) : Json(nullptr)}};
}

// The password as it was given; perhaps an empty text.
String GivenPassword(const GatewayOptions& options) {
  if (options.password_file == "-") {
    const SignalsEndAtOnce nothing_is_lost;
    std::string line;
    if (!std::getline(std::cin, line)) {
      throw CommandError(kWrongUsage,
                         "--password-file: standard input is empty. Give the password as its first line.");
    }
    return FirstLine(line);
  }
  if (!options.password_file.empty()) {
    try {
      return FirstLine(ReadFile(AbsolutePath(options.password_file)));
    } catch (const RuntimeError& error) {
      throw CommandError(kWrongUsage,
                         "--password-file: " + options.password_file + ": " + error.Description() + ".");
    }
  }
  if (const char* password = std::getenv("ZELNOR_PASSWORD")) return password;
  return AskForPassword();
}

}  // namespace

String PasswordOf(const GatewayOptions& options) {
  if (options.user.empty()) {
    if (!options.password_file.empty())
      throw CommandError(kWrongUsage, "--password-file: it needs a --user.");
    return {};
  }
  String password = GivenPassword(options);
  if (password.empty()) throw CommandError(kWrongUsage, "The password for --user is empty.");
  return password;
}

GatewayInUse::GatewayInUse(const GatewayOptions& options) : mode_(ModeOf(options.mode)) {
  const bool has_urls = !options.submission_url.empty() || !options.poll_url.empty();
  if (has_urls && (options.submission_url.empty() || options.poll_url.empty())) {
    throw CommandError(kWrongUsage, "--submission-url and --poll-url: give both.");
  }
  if (has_urls && !options.gateway.empty()) {
    throw CommandError(kWrongUsage, "--gateway: leave it out where the addresses are given.");
  }
  if (options.gateway == "hmrc") {
    if (options.mode.empty()) {
      throw CommandError(kWrongUsage, "--gateway hmrc: say how by --mode, for instance --mode Test.");
    }
    remark_ = RemarkOfSettings(mode_) + ", in mode " + options.mode + ".";
    return;
  }
  if (!options.gateway.empty() && options.gateway != "local") {
    throw CommandError(kWrongUsage, "--gateway: \"" + options.gateway + "\" is none. Choose local or hmrc.");
  }
  if (has_urls) {
    const bool submission = IsLoopbackAddress("--submission-url", options.submission_url);
    const bool poll = IsLoopbackAddress("--poll-url", options.poll_url);
    loopback_ = submission && poll;
    if (!loopback_ && options.mode.empty()) {
      throw CommandError(kWrongUsage,
                         "--submission-url: a gateway that isn't on this machine needs an explicit --mode.");
    }
    SetAddresses(options.submission_url, options.poll_url);
    return;
  }
  standin::GatewayOptions local;
  local.poll_interval = 1;
  local.schema_folder = SystemPath(ProgramFolder() + "/xsd");
  local_ = std::make_unique<standin::LocalGateway>(std::move(local));
  local_->Start();
  loopback_ = true;
  remark_ = "The local gateway serves, at " + local_->url() + ". Nothing goes to HMRC.";
  SetAddresses(local_->url() + "/submission", local_->url() + "/poll");
}

GatewayInUse::~GatewayInUse() = default;

void GatewayInUse::SetAddresses(const String& submission_url, const String& poll_url) {
  const std::array<std::pair<const char*, const String&>, 4> settings = {
      {{"GovGatewayURL_Live", submission_url},
       {"GovGatewayURL_Test", submission_url},
       {"GovGatewayPollURL_Live", poll_url},
       {"GovGatewayPollURL_Test", poll_url}}};
  for (const auto& [key, url] : settings) {
    addresses_.push_back(std::make_unique<OwnSetting>(key, url));
  }
}

void ConversationHost::Yield() {
  if (interrupted_ || CaughtSignal() == 0) return;
  interrupted_ = true;
  controller_.Cancel();
}

ConnectionState ConversationHost::Connection() {
  if (loopback_) return {true, kConnectionLan | kConnectionConfigured};
  return ProgramHost::Connection();
}

Account::Account(clsRTIController& controller)
    : controller_(controller), folder_(SystemPath(controller.SavePath())), before_(FilesInFolder()) {
  clsRTIController::Events& from = controller.events;
  from.ControllerStatus.connect([this](const String& stage, const String& detail, Long percent) {
    Note("ControllerStatus", Json::array({stage, detail, percent}));
    if (detail == kProvisional) provisional_ = true;
    progress_.Show(stage + " " + detail, percent);
  });
  from.AcknowledgementReceivedFromGateway.connect(
      [this](const String& id) { Note("AcknowledgementReceivedFromGateway", Json::array({id})); });
  from.InitialErrorResponseReceivedFromGateway.connect(
      [this] { Note("InitialErrorResponseReceivedFromGateway", Json::array()); });
  from.SuccessResponseReceivedFromGateway.connect(
      [this](const String& id) { Note("SuccessResponseReceivedFromGateway", Json::array({id})); });
  from.ErrorResponseReceivedFromGateway.connect(
      [this](const String& id) { Note("ErrorResponseReceivedFromGateway", Json::array({id})); });
  from.GatewayConnectionError.connect(
      [this](const String& id) { Note("GatewayConnectionError", Json::array({id})); });
  from.ValidationFailed.connect([this] { Note("ValidationFailed", Json::array()); });
  from.CompressionError.connect(
      [this](const String& error) { Note("CompressionError", Json::array({error})); });
  FollowTransport();
}

// What the controller doesn't pass on: the mark in both forms, and the errors of an answer that never came.
void Account::FollowTransport() {
  clsSOAPInterface::Events& from = controller_.Transport()->events;
  from.IRmarkGenerated.connect([this](const String& base64, const String& base32) {
    mark_ = {base64, base32};
  });
  from.MessageSent.connect([this](const Ref<clsGovTalkMessage>&, const String&) { sent_ = true; });
  from.ResponseReceived.connect([this](const Ref<clsGovTalkMessage>& response) {
    told_interval_ = response->Header_MessageDetails()->ResponsePollInterval();
    own_errors_ = Json::array();
    if (response->SubmissionDocument()->SubmissionType() != eRTISUBMISSIONTYPE::IsErrorResponse) return;
    for (const Ref<clsGTMGovTalkError>& error : *response->SubmissionDocument()->ERRORRESPONSE()->Errors()) {
      own_errors_.push_back(ErrorOf(*error));
    }
  });
}

bool Account::HasTriedToSend() const { return sent_ || !controller_.Transport()->LastFailure().empty(); }

std::map<String, std::int64_t> Account::FilesInFolder() const {
  std::map<String, std::int64_t> files;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(folder_, ignored)) {
    if (!entry.is_regular_file(ignored)) continue;
    files[entry.path().string()] = entry.last_write_time(ignored).time_since_epoch().count();
  }
  return files;
}

std::vector<String> Account::NewFiles() const {
  std::vector<String> files = copies_;
  for (const auto& [path, time] : FilesInFolder()) {
    const auto found = before_.find(path);
    if (found == before_.end() || found->second != time) files.push_back(path);
  }
  return files;
}

Json Account::Errors() const {
  Json errors = Json::array();
  for (const Ref<clsGTMGovTalkError>& error : *controller_.Transport()->GatewayErrorsCollection()) {
    errors.push_back(ErrorOf(*error));
  }
  return errors.empty() ? own_errors_ : errors;
}

Json Account::AsJson(SUBMISSION_RESULT result) {
  return {{"result", NameOf(result)},
          {"correlation_id", controller_.CorrelationID()},
          {"gateway_errors", controller_.GatewayErrors()},
          {"cause", controller_.Transport()->LastFailure()},
          {"errors", Errors()},
          {"irmark", {{"base64", mark_.first}, {"base32", mark_.second}}},
          {"events", events_},
          {"files", NewFiles()},
          {"log", LogAsJson(WrittenLog(*controller_.ProcessingLog()))}};
}

String Account::AsText(SUBMISSION_RESULT result) {
  String text = "Result          " + NameOf(result) + "\n";
  const auto row = [&](const String& name, const String& value) {
    if (!value.empty()) text += name + String(16 - name.size(), ' ') + value + "\n";
  };
  row("Correlation ID", controller_.CorrelationID());
  row("IRmark", mark_.first);
  row(" ", mark_.second);
  for (const Json& error : Errors()) {
    const String number = std::to_string(error["number"].get<int>());
    row("Error " + number.substr(0, 9), Replace(error["text"].get<String>(), "\r\n", "\n                "));
    row(" ", error["location"].get<String>());
  }
  for (const String& path : NewFiles()) row("File", path);
  const String log = WrittenLog(*controller_.ProcessingLog());
  row("Log", log.empty() ? kNoLog : log);
  return text;
}

void Account::TellCause() {
  const String cause = controller_.Transport()->LastFailure();
  if (!cause.empty()) Tell(cause);
}

void Account::AddCopy(const String& path) {
  if (!path.empty() && PlainFileExists(path)) copies_.push_back(SystemPath(path));
}

String LoadDocument(clsRTIController& controller, const String& path, XmlDocument document) {
  String unread = ReadInto(controller, path, document);
  document = nullptr;  // what was read is in the records
  // The body is written anew, so an old mark goes; reading the property makes the record that the header's
  // writer needs.
  controller.Submission()->Header()->DocIRMark()->value("");
  return unread;
}

void LoadWholeDocument(clsRTIController& controller, const String& path, XmlDocument document) {
  const String unread = LoadDocument(controller, path, std::move(document));
  if (unread.empty()) return;
  throw CommandError(kUnreadableInput, unread + "\nCorrect the document; nothing was done with it.");
}

void ChooseForm(clsRTIController& controller, bool compress, bool plain) {
  if (compress) controller.UseCompression(true);
  controller.OverrideCompression(plain);
}

Date TodayOf(const String& text) {
  if (text.empty()) return {};
  if (text.size() != 10 || text[4] != '-' || !IsDate(text)) {
    throw CommandError(kWrongUsage, "--today: \"" + text + "\" is no date. Write it as YYYY-MM-DD.");
  }
  return ToDate(text);
}

}  // namespace zelnor::cli
