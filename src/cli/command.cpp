#include "zelnor/cli/command.h"

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/documents/clsCompressedEmployees.h"
#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"

#include <cstdio>
#include <filesystem>

namespace zelnor::cli {
namespace {

constexpr std::string_view kEnvelopeNamespace = "http://www.govtalk.gov.uk/CM/envelope";

String ShownName(const String& path) { return path == "-" ? "standard input" : path; }

// What went wrong, where, and what to do.
[[noreturn]] void Refuse(const String& path, const XmlParseError& error) {
  String place = ShownName(path);
  if (error.line > 0) place += ", line " + std::to_string(error.line);
  String message = place + ": " + String(TrimXmlSpace(error.reason));
  if (!error.srcText.empty() && error.line > 0) message += "\n  at: " + String(TrimXmlSpace(error.srcText));
  message += "\nGive a file that holds one GovTalk message as well-formed XML.";
  throw CommandError(kUnreadableInput, message);
}

}  // namespace

ExitStatus StatusOf(SUBMISSION_RESULT result) {
  switch (result) {
    case SUBMISSION_RESULT::Successful:
      return kSuccessful;
    case SUBMISSION_RESULT::Pending:
      return kPending;
    case SUBMISSION_RESULT::FailedValidation:
      return kFailedValidation;
    case SUBMISSION_RESULT::FailedSend:
      return kFailedSend;
    case SUBMISSION_RESULT::ConnectionFailed:
      return kConnectionFailed;
    case SUBMISSION_RESULT::CancelledSend:
      return kCancelledSend;
    default:
      return kUnknownError;
  }
}

String NameOf(SUBMISSION_RESULT result) {
  switch (result) {
    case SUBMISSION_RESULT::Successful:
      return "Successful";
    case SUBMISSION_RESULT::Pending:
      return "Pending";
    case SUBMISSION_RESULT::FailedValidation:
      return "FailedValidation";
    case SUBMISSION_RESULT::FailedSend:
      return "FailedSend";
    case SUBMISSION_RESULT::ConnectionFailed:
      return "ConnectionFailed";
    case SUBMISSION_RESULT::CancelledSend:
      return "CancelledSend";
    default:
      return "UnknownError";
  }
}

void Tell(const String& message) { std::fprintf(stderr, "zelnor: %s\n", message.c_str()); }

void PrepareHome(const CommonOptions& options) {
  if (!options.home.empty()) SetProgramFolder(AbsolutePath(options.home));
  FurnishProgramFolder();
}

String AbsolutePath(const String& path) {
  if (path.empty() || path == "-" || path.starts_with('\\')) return path;
  return std::filesystem::absolute(path).string();
}

XmlDocument ReadMessage(const String& path) {
  XmlDocument document;
  if (!document.Load(path == "-" ? "/dev/stdin" : AbsolutePath(path))) Refuse(path, document.ParseError());
  const XmlNode root = document.DocumentElement();
  const String ns = root.NamespaceURI();
  if (root.NodeName() != "GovTalkMessage" || (!ns.empty() && ns != kEnvelopeNamespace)) {
    throw CommandError(
        kUnreadableInput,
        ShownName(path) + ": the root element is <" + root.NodeName() + ">" +
            (ns.empty() ? String() : " of the namespace \"" + ns + "\"") +
            ", not <GovTalkMessage>.\nGive the whole message, with its envelope in the namespace \"" +
            String(kEnvelopeNamespace) + "\" and without a prefix.");
  }
  return document;
}

void RequireEmployees(clsSubmission& submission) {
  Ref<EmployeeSection> section = submission.FPS();
  if (!section) section = submission.EYU();
  if (!section) section = submission.EAS();
  const Ref<clsCompressedEmployees> part = section ? section->CompressedPart() : nullptr;
  if (!part || part->Failure().empty()) return;
  throw CommandError(kUnreadableInput,
                     "The compressed employees can't be read (" + part->Failure() +
                         ").\nGive the document as it was saved, or one with plain employees.");
}

void Print(const CommonOptions& options, const Json& json, const String& text) {
  const String out = options.json ? json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n" : text;
  std::fwrite(out.data(), 1, out.size(), stdout);
  std::fflush(stdout);
}

KeptSetting::KeptSetting(String key) : key_(std::move(key)), value_(alsAppSettings().ReadSetting(key_)) {}

KeptSetting::~KeptSetting() {
  alsAppSettings settings;
  if (settings.ReadSetting(key_) != value_) settings.SetSetting(key_, value_);
}

}  // namespace zelnor::cli
