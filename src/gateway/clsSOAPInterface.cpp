#include "zelnor/gateway/clsSOAPInterface.h"

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/common/modPublicEnums.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/envelope/clsGTMGovTalkError.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"

namespace zelnor {
namespace {

constexpr std::string_view kClass = "clsSOAPInterface";
constexpr const char* kDefaultFolder = "\\xml\\";

// HMRC's Transaction Engines.
constexpr const char* kLiveEngine = "https://transaction-engine.tax.service.gov.uk";
constexpr const char* kTestEngine = "https://test-transaction-engine.tax.service.gov.uk";

}  // namespace

clsSOAPInterface::clsSOAPInterface()
    : gateway_errors_collection_(MakeCollection<clsGTMGovTalkError>()),
      employees_(MakeCollection<clsEmployee>()) {
  Handled(kClass, "Sub Class_Initialize", [&] {
    alsAppSettings settings;
    String folder = settings.ReadSetting("XMLFilePath");
    if (folder.empty()) {
      folder = kDefaultFolder;
      settings.SetSetting("XMLFilePath", folder);
    }
    CreateFolder(WithTrailingSeparator(ResolveProgramPath(folder)));
  });
}

clsSOAPInterface::~clsSOAPInterface() = default;

String clsSOAPInterface::Prefix(String& cached, const char* setting, const char* standard) {
  if (!cached.empty()) return cached;
  alsAppSettings settings;
  cached = settings.ReadSetting(setting);
  if (cached.empty()) {
    settings.SetSetting(setting, standard);
    cached = standard;
  }
  return cached;
}

void clsSOAPInterface::Prefix(String& cached, const char* setting, const String& value) {
  if (!value.empty()) alsAppSettings().SetSetting(setting, value);
  cached = value;
}

String clsSOAPInterface::ResponseFilePrefix() {
  return Prefix(response_file_prefix_, "ResponseFilePrefix", "response");
}
void clsSOAPInterface::ResponseFilePrefix(const String& value) {
  Prefix(response_file_prefix_, "ResponseFilePrefix", value);
}

String clsSOAPInterface::SendFilePrefix() { return Prefix(send_file_prefix_, "SendFilePrefix", "send"); }
void clsSOAPInterface::SendFilePrefix(const String& value) {
  Prefix(send_file_prefix_, "SendFilePrefix", value);
}

String clsSOAPInterface::PollFilePrefix() { return Prefix(poll_file_prefix_, "PollFilePrefix", "poll"); }
void clsSOAPInterface::PollFilePrefix(const String& value) {
  Prefix(poll_file_prefix_, "PollFilePrefix", value);
}

String clsSOAPInterface::DeleteFilePrefix() {
  return Prefix(delete_file_prefix_, "DeleteFilePrefix", "delete");
}
void clsSOAPInterface::DeleteFilePrefix(const String& value) {
  Prefix(delete_file_prefix_, "DeleteFilePrefix", value);
}

String clsSOAPInterface::SavePath() {
  Handled(kClass, "Get SavePath", [&] {
    if (save_path_.empty()) save_path_ = ProgramFolder() + kDefaultFolder;
    CreateFolder(save_path_);
  });
  return save_path_;
}

void clsSOAPInterface::SavePath(const String& value) {
  Handled(kClass, "Let SavePath", [&] {
    save_path_ = value;
    CreateFolder(save_path_);
  });
}

void clsSOAPInterface::Class(const String& value) {
  Handled(kClass, "Let Class", [&] {
    class_ = value;
    if (mode_ == RTI_SEND_MODE::FileOnly && !class_.ends_with("-TIL")) class_ += "-TIL";
    current_url_ = SelectGatewayUrl(eRTISUBMISSIONTYPE::IsUndefined);
  });
}

void clsSOAPInterface::Mode(RTI_SEND_MODE value) {
  mode_ = value;
  current_url_ = SelectGatewayUrl(eRTISUBMISSIONTYPE::IsUndefined);
}

void clsSOAPInterface::MaxSendAttempts(Long value) {
  if (value > 0) max_send_attempts_ = value;
}

String clsSOAPInterface::GatewayURL() {
  current_url_ = SelectGatewayUrl(eRTISUBMISSIONTYPE::IsUndefined);
  return current_url_;
}

// Modes Live and Test take the live gateway, where a test is told by the message itself; the developers'
// modes take the test gateway.
String clsSOAPInterface::AddressOf(const char* member, const String& live_key, const String& test_key,
                                   const char* path) {
  String address;
  Handled(kClass, member, [&] {
    const bool live = mode_ == RTI_SEND_MODE::Live || mode_ == RTI_SEND_MODE::Test;
    const String& key = live ? live_key : test_key;
    alsAppSettings settings;
    address = settings.ReadSetting(key);
    if (address.empty()) {
      address = String(live ? kLiveEngine : kTestEngine) + path;
      settings.SetSetting(key, address);
    }
  });
  return address;
}

String clsSOAPInterface::GetSubmissionGatewayUrl() {
  return AddressOf("Sub GetSubmissionGatewayUrl", "GovGatewayURL_Live", "GovGatewayURL_Test", "/submission");
}

String clsSOAPInterface::GetPollGatewayUrl() {
  return AddressOf("Sub GetPollGatewayUrl", "GovGatewayPollURL_Live", "GovGatewayPollURL_Test", "/poll");
}

String clsSOAPInterface::SelectGatewayUrl(eRTISUBMISSIONTYPE type) {
  return type == eRTISUBMISSIONTYPE::IsPollDoc ? GetPollGatewayUrl() : GetSubmissionGatewayUrl();
}

void clsSOAPInterface::Renew() {
  processing_status_ = SEND_STATUS::Unsent;
  status_.clear();
  gateway_errors_.clear();
  gateway_errors_collection_ = MakeCollection<clsGTMGovTalkError>();
  employees_ = MakeCollection<clsEmployee>();
  success_text_.clear();
  last_failure_.clear();
  username_.clear();
  password_.clear();
  class_.clear();
  mode_ = RTI_SEND_MODE::Live;
  cancel_ = false;
  response_files_ = 0;
  polls_ = 0;
}

void clsSOAPInterface::SetStatus(const String& status) {
  status_ = status;
  events.StatusChanged(status_);
}

void clsSOAPInterface::SaveAs(clsGovTalkMessage& message, const String& name) {
  message.Document().Save(SavePath() + name + ".xml");
}

}  // namespace zelnor
