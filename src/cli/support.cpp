#include "zelnor/cli/command.h"
#include "zelnor/cli/conversation.h"
#include "zelnor/cli/interrupt.h"
#include "zelnor/common/clsLog.h"
#include "zelnor/controller/clsFTP.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"

#include <array>
#include <cstdio>
#include <poll.h>
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

// What goes, and how, before any of it does.
String Notice(const SupportOptions& support, bool holds_password) {
  String text =
      "The archive holds people's data: the document with names, National Insurance numbers and pay";
  if (holds_password) text += ", with the sender's password for HMRC's gateway in it,";
  text += " and a log of it.\nIt goes to " + support.server;
  return text + (support.allow_clear ? ", in the clear if the server offers no encryption."
                                     : " under encryption only.");
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
  // A signal is only remembered, and wouldn't end a read that waits.
  pollfd answer{fileno(terminal), POLLIN, 0};
  while (CaughtSignal() == 0 && poll(&answer, 1, 100) <= 0) {
  }
  std::array<char, 64> line{};
  const bool read = CaughtSignal() == 0 && std::fgets(line.data(), line.size(), terminal) != nullptr;
  std::fclose(terminal);
  return read && (line[0] == 'y' || line[0] == 'Y');
}

}  // namespace

int RunSupport(const CommonOptions& options, const SupportOptions& support) {
  if (support.file == "-") {
    throw CommandError(kWrongUsage, "Standard input can't be sent. Give the file of the saved submission.");
  }
  PrepareHome(options);
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
  ftp.ProtectedOnly(!support.allow_clear);
  Tell(Notice(support, HoldsPassword(document)));
  clsRTIController::SupportUpload upload;
  Long bytes = 0;
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
