#include "zelnor/cli/conversation.h"
#include "zelnor/cli/interrupt.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/formats.h"
#include "zelnor/platform/host.h"

#include <cstdio>
#include <mutex>

namespace zelnor::cli {
namespace {

// A line at once, for whoever reads along: with --json an object of its own.
void PrintLine(const CommonOptions& options, const Json& json, const String& text) {
  WriteOut((options.json ? json.dump(-1, ' ', false, Json::error_handler_t::replace) : text) + "\n");
}

}  // namespace

int RunGateway(const CommonOptions& options, const GatewayCommandOptions& command) {
  PrepareHome(options);
  standin::GatewayOptions gateway;
  gateway.port = command.port;
  if (!command.tls.empty()) {
    gateway.certificate = command.tls.at(0);
    gateway.key = command.tls.at(1);
  }
  if (!command.scenario.empty()) {
    try {
      gateway.scenario = ReadFile(AbsolutePath(command.scenario));
    } catch (const RuntimeError& error) {
      throw CommandError(kWrongUsage, "--scenario: " + command.scenario + ": " + error.Description() + ".");
    }
  }
  gateway.record_folder = AbsolutePath(command.record);
  GatewayOptions credentials;
  credentials.user = command.user;
  credentials.password_file = command.password_file;
  gateway.user = command.user;
  gateway.password = PasswordOf(credentials);
  gateway.poll_interval = command.interval;
  gateway.provisional = command.provisional;
  gateway.schema_folder = SystemPath(ProgramFolder() + "/xsd");
  std::mutex printing;
  gateway.log = [&](const String& what) {
    const std::lock_guard lock(printing);
    const String moment = Format(CurrentHost()->Now(), "Hh:Nn:Ss");
    PrintLine(options, {{"time", moment}, {"exchange", what}}, moment + "  " + what);
  };
  standin::LocalGateway local(std::move(gateway));
  try {
    local.Start();
  } catch (const std::runtime_error& error) {
    throw CommandError(kWrongUsage, error.what());
  }
  {
    const std::lock_guard lock(printing);
    PrintLine(options, {{"url", local.url()}, {"port", local.port()}},
              "Local gateway listening on " + local.url());
  }
  constexpr std::int64_t kGlance = 50;
  while (CaughtSignal() == 0) CurrentHost()->Sleep(kGlance);
  ObeySignal();
  local.Stop();
  return kSuccessful;
}

}  // namespace zelnor::cli
