#include "zelnor/cli/conversation.h"
#include "zelnor/cli/interrupt.h"
#include "zelnor/cli/program_host.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/host.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <malloc.h>
#include <sstream>

#include <CLI/CLI.hpp>

namespace zelnor::cli {
namespace {

// The error as JSON for whoever asked for that; where it can't be written, standard error has told it
// already.
void PrintError(const CommonOptions& options, const String& message) {
  if (!options.json) return;
  try {
    Print(options, {{"error", message}}, {});
  } catch (const CommandError& error) {
    Tell(error.what());
  }
}

int ReportFailure(const CommonOptions& options, const String& message, ExitStatus status) {
  Tell(message);
  PrintError(options, message);
  return status;
}

// What is wrong with the command line. A word where a command should stand is named.
String Complaint(const CLI::App& app, const CLI::ParseError& error) {
  const std::vector<String> left = app.remaining(true);
  const auto word =
      std::find_if(left.begin(), left.end(), [](const String& each) { return !each.starts_with('-'); });
  if (error.get_name() != "RequiredError" || word == left.end() ||
      String(error.what()).find("subcommand") == String::npos)
    return error.what();
  String inside;
  for (const CLI::App* chosen : app.get_subcommands()) inside += " " + chosen->get_name();
  return "\"" + *word + "\" is no command of zelnor" + inside + ".";
}

// An empty value, such as that of a script's variable without one, is never taken as an option left out.
String RefuseEmpty(const std::string& value) { return value.empty() ? "a value is missing." : ""; }

void AddGatewayOptions(CLI::App& command, GatewayOptions& options) {
  command
      .add_option(
          "--gateway", options.gateway,
          "local: one inside the program (the default of send); hmrc: the addresses of the settings, HMRC's "
          "own at first; hmrc needs --mode")
      ->check(RefuseEmpty);
  command.add_option("--submission-url", options.submission_url, "The address that takes submissions")
      ->type_name("URL")
      ->check(RefuseEmpty);
  command.add_option("--poll-url", options.poll_url, "The address that answers polls")
      ->type_name("URL")
      ->check(RefuseEmpty);
  command
      .add_option("--mode", options.mode,
                  "Live (the default), Test, FileOnly, DevLive, DevTest, DevFileLive or DevFileTest")
      ->check(RefuseEmpty);
  command
      .add_option("--user", options.user, "The sender's id; it replaces the sender's details of the document")
      ->check(RefuseEmpty)
      ->type_name("NAME");
  command
      .add_option("--password-file", options.password_file,
                  "The file of the password, \"-\" for standard input. Else: $ZELNOR_PASSWORD, else a prompt")
      ->type_name("F");
  command.add_flag("--no-connection-test", options.no_connection_test,
                   "Try it even where the machine seems to be offline");
}

// The options of every command, which only the program's own help lists.
void AddFooter(CLI::App& command) {
  const String before = command.get_footer();
  command.footer((before.empty() ? String() : before + "\n") +
                 "Every command takes --home DIR, the program's folder, and --json, for one JSON object on "
                 "standard output.");
  for (CLI::App* below : command.get_subcommands({})) AddFooter(*below);
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

  String new_type;
  String new_out;
  CLI::App* new_document =
      app.add_subcommand("new", "Write a small, valid, commented document to start from");
  new_document->add_option("TYPE", new_type, "fps, eps, eas, eyu or nvr")->required();
  new_document->add_option("-o,--out", new_out, "The file to write; standard output without it")
      ->type_name("FILE");

  ValidateOptions validate_options;
  CLI::App* validate =
      app.add_subcommand("validate", "Check a document by HMRC's rules and against its schema");
  validate->add_option("FILE", validate_options.file, "A GovTalk message")->required();
  validate->add_option("--today", validate_options.today, "The date that the rules take as today")
      ->type_name("YYYY-MM-DD");
  validate
      ->add_option("--max-errors", validate_options.max_errors,
                   "Stop counting at so many errors; 0, the default, for all")
      ->check(CLI::Range(0, 32767));
  validate
      ->add_option("--stages", validate_options.stages,
                   "Only these of envelope, company, employees, payment, schema, separated by commas")
      ->type_name("LIST");
  validate->add_option("--format", validate_options.format, "text (the default), json, csv or junit")
      ->check(CLI::IsMember({"text", "json", "csv", "junit"}));
  CLI::Option* validate_compressed = validate->add_flag("--compress", validate_options.compress,
                                                        "Check the document with its employees compressed");
  validate->add_flag("--plain", validate_options.plain, "Check it with its employees plain")
      ->excludes(validate_compressed);

  SendOptions send_options;
  CLI::App* send = app.add_subcommand("send", "Send a document to a gateway and wait for the answer");
  send->add_option("FILE", send_options.file, "A GovTalk message")->required();
  AddGatewayOptions(*send, send_options.gateway);
  send->add_option("--save-copy", send_options.save_copy, "A file for a copy of the marked document")
      ->type_name("F");
  send->add_option("--save-another-copy", send_options.save_another_copy, "A file for one more copy")
      ->type_name("F")
      ->needs("--save-copy");
  send->add_flag("--no-validation", send_options.no_validation, "Don't validate before sending");
  send->add_option("--today", send_options.today, "The date that the rules take as today")
      ->type_name("YYYY-MM-DD");
  CLI::Option* send_compressed =
      send->add_flag("--compress", send_options.compress, "Send the employees compressed");
  send->add_flag("--plain", send_options.plain, "Send the employees plain, however many they are")
      ->excludes(send_compressed);

  PollOptions poll_options;
  CLI::App* poll = app.add_subcommand("poll", "Ask a gateway for the answer to an earlier submission");
  poll->add_option("--class", poll_options.document_class,
                   "The submission's class, such as HMRC-PAYE-RTI-FPS")
      ->required()
      ->type_name("C");
  poll->add_option("--correlation-id", poll_options.correlation_id, "The id that the gateway gave to it")
      ->required()
      ->type_name("ID");
  AddGatewayOptions(*poll, poll_options.gateway);
  poll->add_flag("--wait", poll_options.wait,
                 "Ask again, at the gateway's interval, until the answer is final");

  GatewayCommandOptions gateway_options;
  CLI::App* gateway = app.add_subcommand(
      "gateway",
      "Run a Transaction Engine on this machine, for development and tests, until SIGTERM or Ctrl-C");
  gateway
      ->add_option("--port", gateway_options.port, "The port to listen on; 0, the default, picks a free one")
      ->check(CLI::Range(0, 65535));
  gateway->add_option("--tls", gateway_options.tls, "Speak https with this certificate and key (PEM files)")
      ->expected(2)
      ->type_name("CERT KEY");
  gateway
      ->add_option("--scenario", gateway_options.scenario,
                   "What to answer, line by line, as docs/guide/local-gateway.md tells; Debian has it in "
                   "/usr/share/doc/libzelnor-dev")
      ->type_name("FILE");
  gateway->add_option("--record", gateway_options.record, "A folder for each request and answer")
      ->type_name("DIR");
  gateway->add_option("--user", gateway_options.user, "The only sender id that passes; anybody's without it")
      ->type_name("NAME");
  gateway
      ->add_option(
          "--password-file", gateway_options.password_file,
          "The file of the password that passes, \"-\" for standard input. Else: $ZELNOR_PASSWORD, else a "
          "prompt")
      ->type_name("F");
  gateway->add_option("--interval", gateway_options.interval, "Seconds between polls that it asks for (5)")
      ->check(CLI::Range(-1, 32767));
  gateway
      ->add_option("--provisional", gateway_options.provisional,
                   "How many polls it answers provisionally before the final answer (1)")
      ->check(CLI::Range(0, 1000));

  ReportOptions report_options;
  CLI::App* report = app.add_subcommand("report", "Make a page of a processing log that a person can read");
  report->add_option("LOG", report_options.log, "A log's file, or its name in the log folder")->required();
  report->add_option("-o,--out", report_options.out, "The file to write; standard output without it")
      ->type_name("FILE");
  report->add_option("--format", report_options.format, "html (the default), text or json")
      ->check(CLI::IsMember({"html", "text", "json"}));
  report->add_option("--sort", report_options.sort, "Group the errors by employee, field or severity first")
      ->check(CLI::IsMember({"employee", "field", "severity"}));

  LogOptions log_options;
  CLI::App* log = app.add_subcommand("log", "The processing logs of the program's folder");
  log->require_subcommand(1);
  const char* const which = "A log's file, or its name in the log folder; the newest without it";
  CLI::App* log_list = log->add_subcommand("list", "List the logs, newest first");
  CLI::App* log_show = log->add_subcommand("show", "Show a log as text");
  log_show->add_option("LOG", log_options.log, which);
  CLI::App* log_open = log->add_subcommand("open", "Show a log as a page in the browser");
  log_open->add_option("LOG", log_options.log, which);
  CLI::App* log_prune = log->add_subcommand("prune", "Delete old logs");
  constexpr int kMostDays = 100 * 366;
  log_prune
      ->add_option("--older-than", log_options.older_than, "Delete logs begun more than so many days ago")
      ->type_name("DAYS")
      ->required()
      ->check(CLI::Range(0, kMostDays));
  log_prune->add_flag("--dry-run", log_options.dry_run, "Only tell what would be deleted");

  SupportOptions support_options;
  CLI::App* support =
      app.add_subcommand("support", "Send a saved document and a log of it to a support site over FTP");
  support->add_option("FILE", support_options.file, "The document's file")->required();
  support->add_option("--server", support_options.server, "The FTP server; 21 is the port if none is given")
      ->type_name("HOST[:PORT]")
      ->required();
  support->add_option("--user", support_options.user, "The account on the server")
      ->type_name("NAME")
      ->required();
  support
      ->add_option("--password-file", support_options.password_file,
                   "A file whose first line is the password; \"-\" for standard input. Default: "
                   "$ZELNOR_PASSWORD, else the program asks")
      ->type_name("F");

  support->add_flag(
      "--allow-clear", support_options.allow_clear,
      "Also to a server that offers no encryption. Without it the program asks on a terminal, and else "
      "refuses");
  support->footer(
      support->get_footer() +
      "\n"
      "The archive holds people's data and, where the document has one, the sender's password for HMRC's "
      "gateway.");

  for (CLI::App* command : app.get_subcommands({})) AddFooter(*command);

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& success) {
    std::ostringstream text;
    app.exit(success, text, text);
    try {
      WriteOut(text.str());
    } catch (const CommandError& error) {
      return ReportFailure({}, error.what(), error.Status());
    }
    return kSuccessful;
  } catch (const CLI::ParseError& error) {
    const String complaint = Complaint(app, error);
    std::cerr << complaint << "\nRun with --help for more information.\n";
    PrintError(options, complaint);
    return kWrongUsage;
  }
  try {
    if (*show) return RunShow(options, file);
    if (*irmark) return RunIRmark(options, file);
    if (*new_document) return RunNew(options, new_type, new_out);
    if (*validate) return RunValidate(options, validate_options);
    if (*send) return RunSend(options, send_options);
    if (*poll) return RunPoll(options, poll_options);
    if (*gateway) return RunGateway(options, gateway_options);
    if (*report) return RunReport(options, report_options);
    if (*log_list) return RunLogList(options);
    if (*log_show) return RunLogShow(options, log_options);
    if (*log_open) return RunLogOpen(options, log_options);
    if (*log_prune) return RunLogPrune(options, log_options);
    if (*support) return RunSupport(options, support_options);
    return RunSave(options, save_options);
  } catch (const OutputError& error) {
    return ReportFailure({}, error.what(), error.Status());
  } catch (const CommandError& error) {
    return ReportFailure(options, error.what(), error.Status());
  } catch (...) {
    return ReportFailure(options, CurrentError().Description(), kUnknownError);
  }
}

}  // namespace

}  // namespace zelnor::cli

int main(int argc, char** argv) {
  std::signal(SIGXFSZ, SIG_IGN);  // a file beyond the limit is an error to report
  zelnor::cli::RememberSignals();
  zelnor::SetHost(std::make_shared<zelnor::cli::ProgramHost>());
  // Whole documents come and go: the memory of one serves the next, and isn't handed back in between.
  constexpr int kKeptMemory = 1 << 30;
  mallopt(M_TRIM_THRESHOLD, kKeptMemory);
  mallopt(M_MXFAST, 0);
  const int status = zelnor::cli::Run(argc, argv);
  zelnor::cli::EndBySignal();
  return status;
}
