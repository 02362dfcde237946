#include "zelnor/cli/command.h"
#include "zelnor/cli/conversation.h"
#include "zelnor/cli/interrupt.h"
#include "zelnor/common/clsLog.h"
#include "zelnor/controller/clsFTP.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/platform/address.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"

#include <arpa/inet.h>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <unistd.h>

namespace zelnor::cli {
namespace {

// How far the upload is, in one line that is written over; nothing where nobody looks on.
class Progress {
 public:
  Progress(clsFTP& ftp, bool shown) {
    subscription_ =
        Subscription(ftp.events.FileTransferProgress.connect([this, shown](Long& sent, Long& total) {
          total_ = total;
          const Long percent = total == 0 ? 100 : static_cast<Long>(std::int64_t{sent} * 100 / total);
          if (!shown || percent == percent_) return;
          percent_ = percent;
          std::fprintf(stderr, "\rSending %d of %d bytes (%d%%)", sent, total, percent);
        }));
  }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() {
    if (percent_ >= 0) std::fputs("\n", stderr);
  }
  Long Total() const { return total_; }

 private:
  Long total_ = 0;
  Long percent_ = -1;
  Subscription subscription_;
};

[[noreturn]] void RefuseServer(const String& server, const String& reason) {
  throw CommandError(kWrongUsage,
                     "--server: " + (server.empty() ? String() : "\"" + server + "\": ") + reason +
                         " Give it as HOST or HOST:PORT; an IPv6 address with a port stands in [].");
}

void RequireHost(const String& server, const String& host) {
  if (host.empty()) RefuseServer(server, "the name of the server is missing.");
  for (const char c : host) {
    const bool of_a_name = std::isalnum(static_cast<unsigned char>(c)) != 0 ||
                           static_cast<signed char>(c) < 0 || c == '.' || c == '-' || c == '_';
    if (!of_a_name) RefuseServer(server, "\"" + String(1, c) + "\" is in no server's name.");
  }
}

void RequirePort(const String& server, const String& port) {
  const bool number =
      !port.empty() && port.size() <= 5 && port.find_first_not_of("0123456789") == String::npos;
  if (!number || std::stoi(port) < 1 || std::stoi(port) > 65535)
    RefuseServer(server, "the port \"" + port + "\" is no number from 1 to 65535.");
}

// What can't be a server is told before anything is read, made or asked for.
void RequireServer(const String& server) {
  if (server.find("://") != String::npos) RefuseServer(server, "leave the \"ftp://\" out.");
  in6_addr address{};
  if (inet_pton(AF_INET6, server.c_str(), &address) == 1) return;
  if (server.starts_with('[')) {
    const std::size_t end = server.find(']');
    if (end == String::npos || inet_pton(AF_INET6, server.substr(1, end - 1).c_str(), &address) != 1)
      RefuseServer(server, "what stands in [] is no IPv6 address.");
    const String behind = server.substr(end + 1);
    if (behind.empty()) return;
    if (!behind.starts_with(':')) RefuseServer(server, "only a port may stand behind the ].");
    RequirePort(server, behind.substr(1));
    return;
  }
  const std::size_t colon = server.find(':');
  RequireHost(server, server.substr(0, colon));
  if (colon != String::npos) RequirePort(server, server.substr(colon + 1));
}

// The folder in which the archive is made, where this run is the one to need it: it goes with the archive.
class ArchiveFolder {
 public:
  ArchiveFolder()
      : path_(SystemPath(ProgramFolder() + "/temp")), was_there_(std::filesystem::exists(path_)) {}
  ArchiveFolder(const ArchiveFolder&) = delete;
  ArchiveFolder& operator=(const ArchiveFolder&) = delete;
  ~ArchiveFolder() {
    std::error_code not_empty;
    if (!was_there_) std::filesystem::remove(path_, not_empty);
  }

 private:
  std::filesystem::path path_;
  bool was_there_;
};

// A failure of the way there can be tried again; a refusal wants something changed first.
SUBMISSION_RESULT ResultOf(bool sent, Long code) {
  if (sent) return SUBMISSION_RESULT::Successful;
  if (CaughtSignal() != 0) return SUBMISSION_RESULT::CancelledSend;
  switch (code) {
    case 0:
      return SUBMISSION_RESULT::UnknownError;
    case 12002:
    case 12007:
    case 12029:
    case 12031:
      return SUBMISSION_RESULT::ConnectionFailed;
    default:
      return SUBMISSION_RESULT::FailedSend;
  }
}

// Whether the document bears a password for HMRC's gateway.
bool HoldsPassword(const XmlDocument& document) {
  const XmlNode root = document.DocumentElement();
  for (const XmlNode& value : root.SelectNodes("//*[local-name()='Authentication']/*[local-name()='Value']"))
    if (!TrimXmlSpace(value.Text()).empty()) return true;
  return false;
}

// Whether the server is on this machine, so that nothing goes over a wire.
bool IsHere(const String& server) {
  const std::optional<AddressHost> host = HostOfAddress("http://" + server);
  return server == "::1" || (host && host->loopback);
}

// What goes, and how, before any of it does.
String Notice(const SupportOptions& support, bool may_go_clear, bool holds_password) {
  String text =
      "The archive holds people's data: the document with names, National Insurance numbers and pay";
  if (holds_password) text += ", with the sender's password for HMRC's gateway in it,";
  text += " and a log of it.\nIt goes to " + support.server;
  return text +
         (may_go_clear ? ", in the clear if the server offers no encryption." : " under encryption only.");
}

// The person's word that it may go in the clear. False where nobody can be asked.
bool AllowsClear(const String& server) {
  FILE* terminal = std::fopen("/dev/tty", "r+");
  if (terminal == nullptr) return false;
  std::fprintf(
      terminal,
      "%s offers no encryption: everybody on the way can read the archive, and your password there.\n"
      "Send it in the clear all the same? [y/N] ",
      server.c_str());
  std::fflush(terminal);
  const std::optional<std::string> line = TypedLine(terminal);
  std::fclose(terminal);
  return line && (line->starts_with('y') || line->starts_with('Y'));
}

}  // namespace

int RunSupport(const CommonOptions& options, const SupportOptions& support) {
  RequireServer(support.server);
  if (support.file == "-") {
    throw CommandError(kWrongUsage, "Standard input can't be sent. Give the file of the saved submission.");
  }
  PrepareWritableHome(options);
  const XmlDocument document = ReadMessage(support.file);
  GatewayOptions account;
  account.user = support.user;
  account.password_file = support.password_file;
  const String password = PasswordOf(account);
  clsRTIController rti;
  // The log that goes along holds what the rules find today.
  rti.ReadXMLDoc(document);
  rti.ProcessingLog()->SetSubmissionType(rti.SubmissionType());
  rti.Submission()->Header()->DocIRMark();  // reading it makes the record that the header's writer needs
  rti.Validate();
  rti.SubmissionFilePath(AbsolutePath(support.file));

  clsFTP ftp;
  ftp.StopWhen([] { return CaughtSignal() != 0; });
  const bool may_go_clear = support.allow_clear || IsHere(support.server);
  ftp.ProtectedOnly(!may_go_clear);
  Tell(Notice(support, may_go_clear, HoldsPassword(document)));
  clsRTIController::SupportUpload upload;
  Long bytes = 0;
  const ArchiveFolder folder;
  const auto send = [&] {
    const Progress progress(ftp, !options.json && isatty(STDERR_FILENO) != 0);
    upload = rti.SendToSupport(ftp, support.server, support.user, password);
    bytes = progress.Total();
  };
  send();
  SUBMISSION_RESULT result = ResultOf(upload.sent, ftp.LastErrorCode());
  String refusal;
  if (!upload.sent && ftp.LeftUnprotected() && CaughtSignal() == 0) {
    if (!options.json && isatty(STDERR_FILENO) != 0 && AllowsClear(support.server)) {
      ftp.ProtectedOnly(false);
      send();
      result = ResultOf(upload.sent, ftp.LastErrorCode());
    } else {
      if (CaughtSignal() != 0) result = SUBMISSION_RESULT::CancelledSend;
      refusal =
          "The server offers no encryption. Ask the support people for one that does; where the way there is "
          "safe in itself, give --allow-clear.";
    }
  }
  ObeySignal();
  const String log = WrittenLog(*rti.ProcessingLog());
  Json json = {{"result", NameOf(result)},
               {"server", support.server},
               {"name", upload.sent ? upload.remote_name : String()},
               {"bytes", upload.sent ? bytes : 0},
               {"encrypted", ftp.WasProtected()},
               {"log", LogAsJson(log)}};
  String text = "Result   " + NameOf(result) + "\n";
  if (upload.sent) {
    text += "Sent     " + upload.remote_name + ", " + std::to_string(bytes) + " bytes, " +
            (ftp.WasProtected() ? "encrypted" : "in the clear: the server offers no encryption") + "\n";
  } else {
    String error = refusal.empty() ? ftp.LastErrorMessage() : refusal;
    if (error.empty()) error = "The archive could not be made; see the log.";
    std::fprintf(stderr, "zelnor: %s: nothing was sent: %s\n", support.server.c_str(), error.c_str());
    json["error"] = error;
  }
  Print(options, json, text + LogLine(log));
  return StatusOf(result);
}

}  // namespace zelnor::cli
