#pragma once

/// @file
/// What the program's commands share: the options of every command, the exit statuses, and how results and
/// errors reach the person or, with --json, another program.

#include "zelnor/common/enumerations.h"
#include "zelnor/platform/xml.h"

#include <functional>
#include <stdexcept>
#include <string_view>

#include <nlohmann/json.hpp>

namespace zelnor {
class clsLog;
class clsRTIController;
}  // namespace zelnor

namespace zelnor::cli {

using Json = nlohmann::ordered_json;

/// The program's exit statuses.
enum ExitStatus : int {
  kSuccessful = 0,
  kWrongUsage = 2,
  kUnreadableInput = 3,
  kPending = 10,
  kFailedValidation = 11,
  kFailedSend = 12,
  kConnectionFailed = 13,
  kCancelledSend = 14,
  kUnknownError = 15
};

/// Options of every command.
struct CommonOptions {
  String home;        ///< the program's folder; empty for the default
  bool json = false;  ///< one JSON object on standard output, and nothing else there
};

/// Ends a command with a message for the person and an exit status.
class CommandError : public std::runtime_error {
 public:
  CommandError(ExitStatus status, const String& message) : std::runtime_error(message), status_(status) {}
  ExitStatus Status() const { return status_; }

 private:
  ExitStatus status_;
};

/// Standard output takes nothing: what should stand there is in the message.
class OutputError : public CommandError {
 public:
  explicit OutputError(const String& message) : CommandError(kUnknownError, message) {}
};

/// The exit status of a result.
ExitStatus StatusOf(SUBMISSION_RESULT result);

/// The name of a result as in SUBMISSION_RESULT.
String NameOf(SUBMISSION_RESULT result);

/// Tells the person something, on standard error.
void Tell(const String& message);

/// Chooses the program's folder and furnishes it when it is missing or empty. Raises CommandError for one
/// that can't be used.
void PrepareHome(const CommonOptions& options);

/// PrepareHome for a command that keeps a log or messages: raises CommandError for a folder that can't be
/// written to.
void PrepareWritableHome(const CommonOptions& options);

/// Raises CommandError when the program's folder has no schemas.
void RequireSchemas();

/// The path made absolute; a trailing separator stays. "-" stays as it is.
String AbsolutePath(const String& path);

/// Reads a file, or standard input for "-", that holds a GovTalk message. Raises CommandError
/// (kUnreadableInput) that names file, line and remedy for anything else.
XmlDocument ReadMessage(const String& path);

/// Raises CommandError (kWrongUsage) when `out` is "-", or the file `file` itself: what a person wrote isn't
/// to be lost for what the writer makes of it.
void RefuseToOverwrite(const String& out, const String& file);

/// Has the controller read the message of a file. Returns what couldn't be read, such as an amount that is no
/// number, and where; empty where all was read. Raises CommandError (kUnreadableInput) for compressed
/// employees that can't be read: what is left would pass for a submission of no employees.
String ReadInto(clsRTIController& controller, const String& path, const XmlDocument& document);

/// Does what touches a file or folder. An error becomes a CommandError (kUnknownError) "cannot write FILE:
/// cause. Remedy.", with `deed` in place of "write".
void Touching(const String& path, const char* deed, const std::function<void()>& body);

/// Writes a file whole, errors as Touching.
void WriteOutput(const String& path, std::string_view bytes);

/// What the log's last line of a failed save or send tells of the cause, with what to do; empty where it
/// tells of none. `path` is the file that was to be written.
String LoggedTrouble(clsLog& log, const String& path);

/// Where the log was written; empty where it couldn't be.
String WrittenLog(clsLog& log);

/// What is told to people in place of a log that couldn't be written.
inline constexpr const char* kNoLog = "none: it could not be written";

/// The last line for people: where the log is, or that there is none.
String LogLine(const String& written_log);

/// The same for other programs: null where there is none.
Json LogAsJson(const String& written_log);

/// Writes text to standard output. Raises OutputError where not all of it arrives, with the text itself where
/// that has no more than `told` bytes.
void WriteOut(std::string_view text, std::size_t told = 4096);

/// Writes the JSON object, or the lines for people, to standard output. Errors as WriteOut.
void Print(const CommonOptions& options, const Json& json, const String& text);

int RunShow(const CommonOptions& options, const String& file);
/// `zelnor new`: writes a document to start from, to a file or, with no name, to standard output.
int RunNew(const CommonOptions& options, const String& type, const String& out);

int RunIRmark(const CommonOptions& options, const String& file);

/// Options of `zelnor save`.
struct SaveOptions {
  String file;
  String out;
  String today;
  bool no_validation = false;
  bool compress = false;
  bool plain = false;
};
int RunSave(const CommonOptions& options, const SaveOptions& save);

/// Options of `zelnor report`.
struct ReportOptions {
  String log;
  String out;     ///< empty for standard output
  String format;  ///< html, text or json; empty for html, or json with --json
  String sort;    ///< employee, field or severity; empty for the log's own order
};
int RunReport(const CommonOptions& options, const ReportOptions& report);

/// Options of `zelnor log`.
struct LogOptions {
  String log;  ///< empty for the newest
  int older_than = 0;
  bool dry_run = false;
};
int RunLogList(const CommonOptions& options);
int RunLogShow(const CommonOptions& options, const LogOptions& log);
int RunLogOpen(const CommonOptions& options, const LogOptions& log);
int RunLogPrune(const CommonOptions& options, const LogOptions& log);

/// Options of `zelnor support`.
struct SupportOptions {
  String file;
  String server;
  String user;
  String password_file;
  bool allow_clear = false;  ///< also to a server that offers no encryption, without asking
};
int RunSupport(const CommonOptions& options, const SupportOptions& support);

}  // namespace zelnor::cli
