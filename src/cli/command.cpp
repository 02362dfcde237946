#include "zelnor/cli/command.h"

#include "zelnor/cli/interrupt.h"
#include "zelnor/common/clsLog.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/documents/clsCompressedEmployees.h"
#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/host.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/clsException.h"
#include "zelnor/validation/vlsSchemaValidator.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace zelnor::cli {
namespace {

constexpr std::string_view kEnvelopeNamespace = "http://www.govtalk.gov.uk/CM/envelope";

String ShownName(const String& path) { return path == "-" ? "standard input" : path; }

// What is to be done about a document that can't be read.
String Remedy(const String& path, const XmlParseError& error) {
  if (error.line > 0 || path == "-") return "Give a file that holds one GovTalk message as well-formed XML.";
  std::error_code ignored;
  const std::filesystem::path file(SystemPath(AbsolutePath(path)));
  if (!std::filesystem::exists(file, ignored)) return "There is no such file: look to its name and folder.";
  if (std::filesystem::is_directory(file, ignored)) return "It is a folder: name a file in it.";
  if (access(file.c_str(), R_OK) != 0) return "You have no right to read it: have its owner give you that.";
  if (std::filesystem::is_regular_file(file, ignored) &&
      std::filesystem::file_size(file, ignored) > kMaxXmlBytes)
    return "Send so many employees in several documents.";
  return "Give a file that holds one GovTalk message as well-formed XML.";
}

// Why a path can't be used, in more than the error's words where a look tells more.
String Cause(const String& path, const String& error) {
  std::error_code ignored;
  if (std::filesystem::is_regular_file(SystemPath(path), ignored) && error == DescriptionOf(75))
    return "there is a file of that name, or it may not be written";
  if (std::filesystem::is_directory(SystemPath(path), ignored) && error == DescriptionOf(75))
    return "it is a folder";
  return error;
}

// What is to be done about a path, by the error's words, which are those of its number.
String RemedyOf(const String& path, const String& error) {
  if (error == DescriptionOf(76)) {
    const std::filesystem::path folder = std::filesystem::path(SystemPath(path)).parent_path();
    std::filesystem::path there = folder;
    std::error_code ignored;
    while (there.has_relative_path() && !std::filesystem::exists(there, ignored)) there = there.parent_path();
    if (!std::filesystem::is_directory(there, ignored))
      return there.string() + " is no folder: name a file in another.";
    if (there == folder)
      return "Nothing can be made in " + folder.string() + ": name a file in another folder.";
    return "Make the folder " + folder.string() + " first, or name a file in another.";
  }
  if (error == DescriptionOf(70)) return "Name a file in a folder where you may write.";
  if (error == DescriptionOf(61)) return "Make room, or name a file on another disk.";
  if (error == DescriptionOf(53)) return "Look to its name and folder.";
  return "Name a plain file that you may write.";
}

// What went wrong, where, and what to do.
[[noreturn]] void Refuse(const String& path, const XmlParseError& error) {
  String place = ShownName(path);
  if (error.line > 0) place += ", line " + std::to_string(error.line);
  String message = place + ": " + String(TrimXmlSpace(error.reason));
  if (!error.srcText.empty() && error.line > 0) message += "\n  at: " + String(TrimXmlSpace(error.srcText));
  message += "\n" + Remedy(path, error);
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
  try {
    FurnishProgramFolder();
  } catch (const RuntimeError& error) {
    throw CommandError(kUnknownError, "cannot use the program's folder " + ProgramFolder() + ": " +
                                          Cause(ProgramFolder(), error.Description()) +
                                          ". Give a folder of your own by --home or ZELNOR_HOME.");
  }
}

void PrepareWritableHome(const CommonOptions& options) {
  PrepareHome(options);
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
  if (out == "-")
    throw CommandError(kWrongUsage, "It is written to a file, not to standard output. Name one.");
  std::error_code none;
  if (out.empty() || file == "-" || !std::filesystem::equivalent(SystemPath(out), file, none)) return;
  throw CommandError(kWrongUsage,
                     out + " is the file itself that is read, which would be lost. Name another.");
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

void Touching(const String& path, const char* deed, const std::function<void()>& body) {
  try {
    body();
  } catch (const RuntimeError& error) {
    throw CommandError(kUnknownError, String("cannot ") + deed + " " + path + ": " +
                                          Cause(path, error.Description()) + ". " +
                                          RemedyOf(path, error.Description()));
  }
}

void WriteOutput(const String& path, std::string_view bytes) {
  Touching(path, "write", [&] { WriteFile(path, bytes); });
}

String LoggedTrouble(clsLog& log, const String& path) {
  constexpr std::string_view kBegins = "An error occurred while attempting to ";
  const XmlNode last =
      log.GetAsXML().SelectSingleNode("LogRecords/*[starts-with(., '" + String(kBegins) + "')][last()]");
  const String line = last ? last.Text() : String();
  const std::size_t colon = line.find(": ");
  if (colon == String::npos) return {};
  String cause = line.substr(colon + 2);
  while (cause.ends_with('.')) cause.pop_back();
  const std::array<Long, 4> of_files = {61, 70, 75, 76};
  const bool of_the_file = std::any_of(of_files.begin(), of_files.end(),
                                       [&](Long number) { return cause == DescriptionOf(number); });
  if (!of_the_file) return "cannot make " + path + ": " + cause + ". The log tells how far it came.";
  return "cannot write " + path + ": " + Cause(path, cause) + ". " + RemedyOf(path, cause);
}

String WrittenLog(clsLog& log) {
  const String path = log.LogFilePath();
  return log.IsSavedToDate() && PlainFileExists(path) ? SystemPath(path) : String();
}

String LogLine(const String& written_log) {
  return "Log      " + (written_log.empty() ? kNoLog : written_log) + "\n";
}

Json LogAsJson(const String& written_log) { return written_log.empty() ? Json() : Json(written_log); }

void WriteOut(std::string_view text, std::size_t told) {
  errno = 0;
  const bool taken = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (taken && std::fflush(stdout) == 0) return;
  const String cause = errno == 0 ? "it is closed" : std::generic_category().message(errno);
  std::clearerr(stdout);
  String message = "cannot write standard output: " + cause + ". Make room, or send it to another file.";
  // What a command has done is done, and its correlation id must not be lost.
  if (text.size() <= told) message += "\nThis should stand there:\n" + String(TrimXmlSpace(text));
  throw OutputError(message);
}

void Print(const CommonOptions& options, const Json& json, const String& text) {
  constexpr std::size_t kAccount = 65536;
  if (!options.json) return WriteOut(text);
  WriteOut(json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n", kAccount);
}

}  // namespace zelnor::cli
