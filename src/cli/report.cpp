#include "zelnor/cli/log_files.h"
#include "zelnor/platform/files.h"

namespace zelnor::cli {
namespace {

String Rendered(const XmlDocument& log, const String& format, report::Order order) {
  if (format == "html") return report::LogAsHtml(log, order);
  const report::LogFacts facts = report::FactsOfLog(log);
  if (format == "text") return report::FactsAsText(facts, order);
  return JsonOf(facts).dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

int RunReport(const CommonOptions& options, const ReportOptions& report) {
  const String format = !report.format.empty() ? report.format : options.json ? "json" : "html";
  if (options.json && format != "json" && report.out.empty()) {
    throw CommandError(kWrongUsage, "--json leaves no room for " + format +
                                        " on standard output. Name a file with -o, or leave --json out.");
  }
  PrepareHome(options);
  const String path = PathOfLog(report.log);
  const String out = AbsolutePath(report.out);
  RefuseToOverwrite(out, path);
  const XmlDocument log = ReadLog(path);
  const String text = Rendered(log, format, OrderOf(report.sort));
  if (report.out.empty()) {
    Print({}, {}, text);
    return kSuccessful;
  }
  WriteOutput(out, text);
  Print(options, {{"report", out}, {"format", format}}, "Report   " + out + "\n");
  return kSuccessful;
}

}  // namespace zelnor::cli
