#include "zelnor/cli/log_files.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/formats.h"
#include "zelnor/platform/host.h"

#include <fmt/format.h>

namespace zelnor::cli {
namespace {

constexpr const char* kUnreadable = "unreadable";

// The page that `log open` shows; the next one takes its place.
String PagePath() { return SystemPath(ResolveProgramPath("\\xml\\report.html")); }

// What a list tells of a log. One that can't be read is listed all the same.
Json EntryOf(const LogFile& file) {
  report::LogFacts facts;
  try {
    facts = report::FactsOfLog(ReadLog(file.path));
  } catch (const CommandError&) {
    facts.outcome = kUnreadable;
  }
  const auto or_null = [](const String& text) { return text.empty() ? Json() : Json(text); };
  return {{"file", file.name},
          {"path", file.path},
          {"begun", Format(file.begun, "yyyy-mm-ddTHh:Nn:Ss")},
          {"type", or_null(facts.type)},
          {"mode", or_null(facts.mode)},
          {"company", or_null(facts.company)},
          {"paye_ref", or_null(facts.paye_ref)},
          {"result", facts.outcome},
          {"headline", or_null(facts.headline)}};
}

String Word(const Json& value) { return value.is_null() ? "-" : value.get<String>(); }

}  // namespace

int RunLogList(const CommonOptions& options) {
  PrepareHome(options);
  Json logs = Json::array();
  for (const LogFile& file : LogFiles()) logs.push_back(EntryOf(file));
  String text;
  constexpr auto kLine = "{:<19}  {:<13}  {:<11}  {:<29}  {:<24}  {}\n";
  if (logs.empty()) {
    text = "There are no logs in " + SystemPath(LogFolder()) + ".\n";
  } else {
    text = fmt::format(kLine, "Begun", "Result", "Mode", "Type", "Employer", "File");
  }
  for (const Json& log : logs) {
    String begun = log["begun"].get<String>();
    begun[10] = ' ';
    text += fmt::format(kLine, begun, Word(log["result"]), Word(log["mode"]), Word(log["type"]),
                        Word(log["company"].is_null() ? log["paye_ref"] : log["company"]), Word(log["file"]));
  }
  Print(options, {{"folder", SystemPath(LogFolder())}, {"logs", logs}}, text);
  return kSuccessful;
}

int RunLogShow(const CommonOptions& options, const LogOptions& log) {
  PrepareHome(options);
  const report::LogFacts facts = report::FactsOfLog(ReadLog(PathOfLog(log.log)));
  Print(options, JsonOf(facts), report::FactsAsText(facts));
  return kSuccessful;
}

int RunLogOpen(const CommonOptions& options, const LogOptions& log) {
  PrepareHome(options);
  const String path = PathOfLog(log.log);
  const String page = PagePath();
  const String html = report::LogAsHtml(ReadLog(path));
  if (!FolderExists(ResolveProgramPath("\\xml"))) MakeFolder(ResolveProgramPath("\\xml"));
  WriteOutput(page, html);
  if (!CurrentHost()->OpenFile({}, page)) {
    throw CommandError(kUnknownError,
                       "No browser could be started: xdg-open is missing. The page is " + page + ".");
  }
  Print(options, {{"log", path}, {"page", page}}, "Log      " + path + "\nPage     " + page + "\n");
  return kSuccessful;
}

int RunLogPrune(const CommonOptions& options, const LogOptions& log) {
  PrepareHome(options);
  const double limit = CurrentHost()->Now().Serial() - log.older_than;
  std::vector<String> old;
  Json kept = Json::array();
  for (const LogFile& file : LogFiles()) {
    if (file.begun.Serial() < limit) {
      old.push_back(file.path);
    } else {
      kept.push_back(file.path);
    }
  }
  // The page that "log open" left holds what its log held.
  if (PlainFileExists(PagePath()) && FileDate(PagePath()).Serial() < limit) old.push_back(PagePath());
  String text;
  for (const String& path : old) {
    if (!log.dry_run) Touching(path, "delete", [&] { DeleteFile(path); });
    text += (log.dry_run ? "Would delete  " : "Deleted  ") + path + "\n";
  }
  text += fmt::format("{} {}, {} kept\n", old.size(), log.dry_run ? "to delete" : "deleted", kept.size());
  Print(options, {{"deleted", old}, {"kept", kept}, {"dry_run", log.dry_run}}, text);
  return kSuccessful;
}

}  // namespace zelnor::cli
