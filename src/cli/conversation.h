#pragma once

/// @file
/// What `send` and `poll` share: which gateway they talk to, the host that follows a conversation on the
/// terminal, and the account of what happened.

#include "zelnor/cli/command.h"
#include "zelnor/cli/program_host.h"
#include "zelnor/cli/progress_line.h"
#include "zelnor/common/own_setting.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/standin/local_gateway.h"

#include <map>
#include <memory>
#include <optional>

namespace zelnor::cli {

/// Options of every command that talks to a gateway.
struct GatewayOptions {
  String gateway;         ///< "local", "hmrc", or empty
  String submission_url;  ///< both or neither
  String poll_url;
  String mode;  ///< a name of RTI_SEND_MODE; empty for Live
  String user;
  String password_file;  ///< a file, "-" for standard input
  bool no_connection_test = false;
};

/// The password: of the file or standard input that the options name, else of the environment
/// (`ZELNOR_PASSWORD`), else asked for on the terminal without echo. Empty without a user.
String PasswordOf(const GatewayOptions& options);

/// The gateway of one run: the local one started inside the program, or another. Its addresses are this
/// process's own settings for as long as this object lives; HMRC's are those of the file.
class GatewayInUse {
 public:
  /// Raises CommandError for options that contradict each other, for addresses that are none or hold a user,
  /// and for a distant gateway without a mode.
  explicit GatewayInUse(const GatewayOptions& options);
  ~GatewayInUse();
  GatewayInUse(const GatewayInUse&) = delete;
  GatewayInUse& operator=(const GatewayInUse&) = delete;

  RTI_SEND_MODE Mode() const { return mode_; }

  /// Whether nothing leaves this machine.
  bool IsLoopback() const { return loopback_; }

  /// Whether it is the program's own, which goes with this object.
  bool IsOwn() const { return local_ != nullptr; }

  /// What to tell the person about it; empty when there is nothing to tell.
  String Remark() const { return remark_; }

 private:
  void SetAddresses(const String& submission_url, const String& poll_url);

  RTI_SEND_MODE mode_;
  bool loopback_ = false;
  String remark_;
  std::vector<std::unique_ptr<OwnSetting>> addresses_;
  std::unique_ptr<standin::LocalGateway> local_;
};

/// What a person who interrupts a conversation is told at once.
inline constexpr const char* kCancelling =
    "\nzelnor: Cancelling, behind the answer that is being waited for. Once more, after two seconds, ends "
    "the "
    "program at once.\n";

/// The host of a conversation: a loopback target counts as connected, an interrupt cancels.
class ConversationHost : public ProgramHost {
 public:
  ConversationHost(clsRTIController& controller, bool loopback)
      : controller_(controller), loopback_(loopback) {}
  void Yield() override;
  ConnectionState Connection() override;

  /// Whether the person has interrupted the program.
  bool Interrupted() const { return interrupted_; }

 private:
  clsRTIController& controller_;
  bool loopback_;
  bool interrupted_ = false;
};

/// Follows a controller through a conversation: the progress line on a terminal, and the account of it all.
class Account {
 public:
  explicit Account(clsRTIController& controller);
  Account(const Account&) = delete;
  Account& operator=(const Account&) = delete;

  /// Shows this on the progress line.
  void ShowProgress(const String& text) { progress_.Show(text); }

  /// Ends the progress line.
  void EndProgress() { progress_.End(); }

  /// The account as JSON.
  Json AsJson(SUBMISSION_RESULT result);

  /// The account for people.
  String AsText(SUBMISSION_RESULT result);

  /// Tells the person, on standard error, why the last attempt brought no answer; nothing where it did.
  void TellCause();

  /// Names a copy that was asked for, where it has been written.
  void AddCopy(const String& path);

  /// Whether any message went out, or might have.
  bool HasTriedToSend() const;

  /// Whether a provisional answer has come since the last call; and the interval in seconds that it told.
  bool TakeProvisionalAnswer() { return std::exchange(provisional_, false); }
  Long ToldInterval() const { return told_interval_; }

 private:
  void Note(const char* event, Json args) {
    events_.push_back({{"event", event}, {"args", std::move(args)}});
  }
  void FollowTransport();
  std::map<String, std::int64_t> FilesInFolder() const;
  std::vector<String> NewFiles() const;
  Json Errors() const;
  Json Mark() const;

  clsRTIController& controller_;
  String folder_;
  std::map<String, std::int64_t> before_;
  std::vector<String> copies_;
  Json events_ = Json::array();
  Json own_errors_ = Json::array();
  std::pair<String, String> mark_;
  bool sent_ = false;
  bool provisional_ = false;
  Long told_interval_ = 0;
  ProgressLine progress_;
};

/// Loads the message of a file for sending or saving: an old mark goes, since the body is written anew.
/// Returns and raises what ReadInto does.
String LoadDocument(clsRTIController& controller, const String& path, XmlDocument document);

/// LoadDocument for a command that has no use for a part of a document: raises CommandError
/// (kUnreadableInput) when anything couldn't be read.
void LoadWholeDocument(clsRTIController& controller, const String& path, XmlDocument document);

/// Has the document's employees go compressed or plain; where neither is asked for, in the form in which they
/// were read, and compressed from the document's limit on.
void ChooseForm(clsRTIController& controller, bool compress, bool plain);

/// A date of the command line; zero for an empty text.
Date TodayOf(const String& text);

/// Options of `zelnor send`.
struct SendOptions {
  String file;
  GatewayOptions gateway;
  String save_copy;
  String save_another_copy;
  String today;
  bool no_validation = false;
  bool compress = false;
  bool plain = false;
};
int RunSend(const CommonOptions& options, const SendOptions& send);

/// Options of `zelnor validate`.
struct ValidateOptions {
  String file;
  String today;
  int max_errors = 0;
  String stages;  ///< names, separated by commas; empty for all
  String format;  ///< text, json, csv or junit; empty for text, or json with --json
  bool compress = false;
  bool plain = false;
};
int RunValidate(const CommonOptions& options, const ValidateOptions& validate);

/// Options of `zelnor poll`.
struct PollOptions {
  String document_class;
  String correlation_id;
  GatewayOptions gateway;
  bool wait = false;
};
int RunPoll(const CommonOptions& options, const PollOptions& poll);

/// Options of `zelnor gateway`.
struct GatewayCommandOptions {
  int port = 0;
  std::vector<String> tls;  ///< certificate and key
  String scenario;
  String record;
  String user;
  String password_file;
  int interval = 5;
  int provisional = 1;
};
int RunGateway(const CommonOptions& options, const GatewayCommandOptions& command);

}  // namespace zelnor::cli
