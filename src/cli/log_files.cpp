#include "zelnor/cli/log_files.h"

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"

#include <algorithm>
#include <optional>

#include <re2/re2.h>

namespace zelnor::cli {
namespace {

String SettingOr(const String& key, const String& default_value) {
  const String value = alsAppSettings().ReadSetting(key);
  return value.empty() ? default_value : value;
}

// When the log began, by its name; nothing for a file of another name.
std::optional<Date> BegunOf(const String& name, const String& prefix) {
  static const re2::RE2 kPattern(R"(_(\d{4})_(\d\d)_(\d\d)_(\d\d)(\d\d)(\d\d)\.xml)");
  String year, month, day, hour, minute, second;
  if (!name.starts_with(prefix) || !re2::RE2::FullMatch(name.substr(prefix.size()), kPattern, &year, &month,
                                                        &day, &hour, &minute, &second))
    return std::nullopt;
  const String text = year + "-" + month + "-" + day + " " + hour + ":" + minute + ":" + second;
  if (!IsDate(text)) return std::nullopt;
  return ToDate(text);
}

Json OrNull(const String& text) { return text.empty() ? Json() : Json(text); }

}  // namespace

String LogFolder() {
  return WithTrailingSeparator(ResolveProgramPath(SettingOr("LogPath", "\\xml\\logs\\")));
}

std::vector<LogFile> LogFiles() {
  const String folder = LogFolder();
  const String prefix = SettingOr("LogPrefix", "Log");
  std::vector<LogFile> files;
  if (!FolderExists(folder)) return files;
  for (const String& name : FileNames(folder)) {
    if (const std::optional<Date> begun = BegunOf(name, prefix))
      files.push_back({name, SystemPath(folder + name), *begun});
  }
  std::sort(files.begin(), files.end(), [](const LogFile& a, const LogFile& b) { return a.name > b.name; });
  return files;
}

String PathOfLog(const String& given) {
  if (given == "-") return given;
  if (given.empty()) {
    const std::vector<LogFile> files = LogFiles();
    if (files.empty())
      throw CommandError(kUnreadableInput, "There are no logs in " + SystemPath(LogFolder()) + ".");
    return files.front().path;
  }
  String path = AbsolutePath(given);
  if (PlainFileExists(path)) return path;
  if (given.find_first_of("/\\") == String::npos) {
    for (const String& name : {given, given + ".xml"}) {
      if (PlainFileExists(LogFolder() + name)) return SystemPath(LogFolder() + name);
    }
  }
  return path;  // whose absence the reader reports
}

XmlDocument ReadLog(const String& path) {
  const String shown = path == "-" ? "standard input" : path;
  XmlDocument document;
  if (!document.Load(path == "-" ? "/dev/stdin" : path)) {
    const XmlParseError& error = document.ParseError();
    const String line = error.line > 0 ? ", line " + std::to_string(error.line) : String();
    throw CommandError(kUnreadableInput, shown + line + ": " + String(TrimXmlSpace(error.reason)) +
                                             "\nGive a processing log; \"zelnor log list\" names them.");
  }
  if (!report::IsLog(document)) {
    throw CommandError(kUnreadableInput,
                       shown + ": the root element is <" + document.DocumentElement().NodeName() +
                           ">, not <Log>.\nGive a processing log; \"zelnor log list\" names them.");
  }
  return document;
}

report::Order OrderOf(const String& name) {
  if (name == "employee") return report::Order::kEmployee;
  if (name == "field") return report::Order::kField;
  if (name == "severity") return report::Order::kSeverity;
  return report::Order::kOfTheLog;
}

Json JsonOf(const report::LogFacts& facts) {
  Json json;
  json["outcome"] = facts.outcome;
  json["headline"] = facts.headline;
  json["advice"] = OrNull(facts.advice);
  json["type"] = OrNull(facts.type);
  json["company"] = OrNull(facts.company);
  json["paye_ref"] = OrNull(facts.paye_ref);
  json["operator"] = OrNull(facts.op);
  json["mode"] = OrNull(facts.mode);
  json["test"] = facts.test;
  json["local"] = facts.local;
  json["tax_year"] = OrNull(facts.year);
  json["periods"] = OrNull(facts.periods);
  json["correlation_id"] = OrNull(facts.correlation_id);
  json["irmark"] = {{"base64", OrNull(facts.base64)}, {"base32", OrNull(facts.base32)}};
  json["receipt_mark"] = OrNull(facts.receipt);
  json["began"] = OrNull(facts.began);
  json["errors"] = Json::array();
  for (const report::Finding& finding : facts.findings) {
    json["errors"].push_back({{"from", finding.from_hmrc ? "hmrc" : "check"},
                              {"employee", finding.employee},
                              {"field", finding.field},
                              {"value", finding.value},
                              {"severity", finding.severity},
                              {"code", finding.code},
                              {"text", finding.text}});
  }
  json["messages"] = Json::array();
  for (const report::Message& message : facts.messages) {
    json["messages"].push_back({{"direction", message.to_hmrc ? "to" : "from"},
                                {"time", message.time},
                                {"seconds", message.seconds},
                                {"url", OrNull(message.url)},
                                {"words", message.words}});
  }
  json["steps"] = Json::array();
  for (const report::Step& step : facts.steps)
    json["steps"].push_back({{"time", step.time}, {"seconds", step.seconds}, {"text", step.text}});
  return json;
}

}  // namespace zelnor::cli
