#include "zelnor/cli/command.h"

#include "zelnor/cli/interrupt.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/documents/clsCompressedEmployees.h"
#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/host.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/clsException.h"
#include "zelnor/validation/vlsSchemaValidator.h"

#include <cstdio>
#include <filesystem>
#include <unistd.h>

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

// Keeps the first messages and tells nobody.
class Complaints : public DefaultHost {
 public:
  Long MessageBox(const String& text, Long style, const String& title) override {
    if (++count_ == 1) Keep({text, style, title});
    return 1;
  }
  Long Count() const { return count_; }

 private:
  Long count_ = 0;
};

// Without its compressed employees a submission would pass for one of no employees.
void RequireEmployees(clsSubmission& submission, const String& path) {
  Ref<EmployeeSection> section = submission.FPS();
  if (!section) section = submission.EYU();
  if (!section) section = submission.EAS();
  const Ref<clsCompressedEmployees> part = section ? section->CompressedPart() : nullptr;
  if (!part) return;
  String failure = part->Failure();
  if (failure.empty() && part->EmployeeCount() == 0) failure = "they hold no Employee";
  if (failure.empty()) return;
  throw CommandError(kUnreadableInput,
                     ShownName(path) + ": the compressed employees can't be read (" + failure +
                         ").\nGive the document as it was saved, or one with plain employees.");
}

// What the schema says of a document, in one sentence with its place; empty where it says nothing.
String SchemasComplaint(const String& document_class, const XmlDocument& document) {
  const std::shared_ptr<Host> host = CurrentHost();
  SetHost(std::make_shared<Complaints>());
  vlsSchemaValidator schema;
  schema.ValidateSchema(document_class, document);
  SetHost(host);
  if (!schema.HasErrors()) return {};
  return "The schema says: " +
         Replace(String(TrimXmlSpace(schema.Exception()->Description())), "\n: ", "\n  at ");
}

// What would else come up again with each setting and each line of the log.
void RequireWritableHome() {
  const String home = SystemPath(ProgramFolder());
  if (!std::filesystem::exists(home) || access(home.c_str(), W_OK) == 0) return;
  throw CommandError(kUnknownError, "The program's folder " + home +
                                        " can't be written to. Name another by --home or in ZELNOR_HOME.");
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
  RequireWritableHome();
}

void RequireSchemas() {
  const String folder = SystemPath(ProgramFolder() + "/xsd");
  if (std::filesystem::is_directory(folder)) return;
  throw CommandError(kUnknownError, "The folder of the schemas, " + folder +
                                        ", isn't there. Name another folder by --home: one that is new or "
                                        "empty gets all that the program needs.");
}

String AbsolutePath(const String& path) {
  if (path.empty() || path == "-" || path.starts_with('\\')) return path;
  return std::filesystem::absolute(path).string();
}

XmlDocument ReadMessage(const String& path) {
  XmlDocument document;
  const SignalsEndAtOnce nothing_is_lost;
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

void RefuseToOverwrite(const String& out, const String& file) {
  std::error_code none;
  if (out.empty() || file == "-" || !std::filesystem::equivalent(SystemPath(out), file, none)) return;
  throw CommandError(kWrongUsage, out + " is the document itself, which would be lost. Name another file.");
}

String ReadInto(clsRTIController& controller, const String& path, const XmlDocument& document) {
  const std::shared_ptr<Host> host = CurrentHost();
  const auto complaints = std::make_shared<Complaints>();
  SetHost(complaints);
  controller.ReadXMLDoc(document);
  SetHost(host);
  clsSubmission& submission = *controller.Submission();
  RequireEmployees(submission, path);
  if (complaints->Count() == 0) return {};
  String message = ShownName(path) + ": " + std::to_string(complaints->Count()) +
                   (complaints->Count() == 1 ? " record" : " records") +
                   " can't be read to the end. The first: " + complaints->Messages().front().text;
  const String place = SchemasComplaint(submission.Class(), document);
  return place.empty() ? message : message + "\n" + place;
}

void Print(const CommonOptions& options, const Json& json, const String& text) {
  const String out = options.json ? json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n" : text;
  std::fwrite(out.data(), 1, out.size(), stdout);
  std::fflush(stdout);
}

}  // namespace zelnor::cli
