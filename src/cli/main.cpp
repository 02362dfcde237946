#include "zelnor/cli/command.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/host.h"

#include <csignal>
#include <cstdio>
#include <malloc.h>

#include <CLI/CLI.hpp>

namespace zelnor::cli {
namespace {

volatile std::sig_atomic_t caught_signal = 0;

// A command that is asked to stop ends in good order, so that the settings it changed are put back.
void Remember(int signal) { caught_signal = signal; }

void Tell(const String& message) { std::fprintf(stderr, "zelnor: %s\n", message.c_str()); }

int ReportFailure(const CommonOptions& options, const String& message, ExitStatus status) {
  Tell(message);
  if (options.json) Print(options, {{"error", message}}, {});
  return status;
}

int Run(int argc, char** argv) {
  CLI::App app{
      "Reports payroll information in real time to HMRC: reads, shows, marks and saves RTI documents.\n"
      "FILE may be \"-\" for standard input."};
  app.name("zelnor");
  app.set_version_flag("--version", "zelnor " ZELNOR_VERSION);
  app.require_subcommand(1);
  app.fallthrough();
  CommonOptions options;
  app.add_option(
         "--home", options.home,
         "The program's folder, with rti.config, schemas and logs; made and furnished when missing or empty. "
         "Default: $ZELNOR_HOME, else ~/.local/share/zelnor")
      ->type_name("DIR");
  app.add_flag("--json", options.json,
               "One JSON object on standard output; text for people goes to standard error");
  app.footer(
      "Exit status: 0 successful, 2 wrong usage, 3 input that can't be read as a GovTalk message, 10 "
      "pending,\n"
      "11 failed validation, 12 failed send, 13 connection failed, 14 cancelled, 15 unknown error.\n"
      "See zelnor(1).");

  String file;
  CLI::App* show =
      app.add_subcommand("show", "Show what a document is: kind, employer, employees, totals, mark");
  show->add_option("FILE", file, "A GovTalk message")->required();
  CLI::App* irmark = app.add_subcommand("irmark", "Compute the IRmark of a document as it stands");
  irmark->add_option("FILE", file, "A GovTalk message")->required();

  SaveOptions save_options;
  CLI::App* save = app.add_subcommand("save", "Read a document, write it anew with its IRmark, and save it");
  save->add_option("FILE", save_options.file, "A GovTalk message")->required();
  save->add_option("OUT", save_options.out, "The file to write; a folder when it ends in \"/\"")->required();
  save->add_flag("--no-validation", save_options.no_validation, "Don't validate before saving");
  save->add_option("--today", save_options.today, "The date that the rules take as today")
      ->type_name("YYYY-MM-DD");
  CLI::Option* compress =
      save->add_flag("--compress", save_options.compress, "Write the employees compressed");
  save->add_flag("--plain", save_options.plain, "Write the employees plain, however many they are")
      ->excludes(compress);

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& success) {
    return app.exit(success);
  } catch (const CLI::ParseError& error) {
    app.exit(error, std::cerr, std::cerr);
    if (options.json) Print(options, {{"error", error.what()}}, {});
    return kWrongUsage;
  }
  try {
    if (*show) return RunShow(options, file);
    if (*irmark) return RunIRmark(options, file);
    return RunSave(options, save_options);
  } catch (const CommandError& error) {
    return ReportFailure(options, error.what(), error.Status());
  } catch (...) {
    return ReportFailure(options, CurrentError().Description(), kUnknownError);
  }
}

}  // namespace
}  // namespace zelnor::cli

int main(int argc, char** argv) {
  using zelnor::cli::caught_signal;
  std::signal(SIGXFSZ, SIG_IGN);  // a file beyond the limit is an error to report
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, zelnor::cli::Remember);
  // Whole documents come and go: the memory of one serves the next, and isn't handed back in between.
  constexpr int kKeptMemory = 1 << 30;
  mallopt(M_TRIM_THRESHOLD, kKeptMemory);
  mallopt(M_MXFAST, 0);
  const int status = zelnor::cli::Run(argc, argv);
  if (caught_signal != 0) {
    std::signal(caught_signal, SIG_DFL);
    std::raise(caught_signal);
  }
  return status;
}
