// Measures how a program fares that holds conversations with a gateway, and prints a line for each figure:
//   conversation_benchmark HOME SLOW_GATEWAY QUICK_GATEWAY DOCUMENT CONVERSATIONS
// HOME is an empty folder for settings and logs. The slow gateway tells an interval of ten seconds and more;
// the quick one answers at once. DOCUMENT is sent to both, not validated.

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/host.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using zelnor::clsRTIController;
using zelnor::SUBMISSION_RESULT;

// Does something at each turn that the program is given.
class TurnHost : public zelnor::DefaultHost {
 public:
  void Yield() override {
    if (on_turn) on_turn();
  }

  std::function<void()> on_turn;
};

double WallMilliseconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double, std::milli>(now).count();
}

double CpuMilliseconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// The memory that the process has in RAM now, in KB.
long ResidentKilobytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmRSS:")) return std::atol(line.c_str() + 6);
  }
  throw std::runtime_error("no VmRSS in /proc/self/status");
}

long OpenDescriptors() {
  const std::filesystem::directory_iterator open("/proc/self/fd");
  return std::distance(begin(open), end(open));
}

void UseGateway(const std::string& url) {
  zelnor::alsAppSettings settings;
  settings.SetSetting("GovGatewayURL_Live", url + "/submission");
  settings.SetSetting("GovGatewayPollURL_Live", url + "/poll");
}

std::unique_ptr<clsRTIController> Loaded(const std::string& document) {
  auto rti = std::make_unique<clsRTIController>();
  rti->ReadXML(document);
  rti->Submission()->Header()->DocIRMark();
  rti->OverrideCompression(true);
  rti->ValidationRequired(false);
  rti->DoInternetConnectionTest(false);
  return rti;
}

void Expect(SUBMISSION_RESULT expected, SUBMISSION_RESULT result) {
  if (result != expected)
    throw std::runtime_error("a conversation ended with " + std::to_string(static_cast<int>(result)));
}

// Waits for the first poll, `wait` milliseconds of it unmeasured for the send to settle and as many measured,
// and cancels then. Returns the share of a core that the wait took and the milliseconds from the cancel to
// the return.
struct Waited {
  double share_of_core;
  double cancel_ms;
};
Waited WaitAndCancel(TurnHost& host, const std::string& document, double wait) {
  const auto rti = Loaded(document);
  double waiting_since = 0;
  double wall = 0;
  double cpu = 0;
  double share = 0;
  double cancelled = 0;
  rti->events.ControllerStatus.connect([&](const zelnor::String& stage, const zelnor::String&, zelnor::Long) {
    if (waiting_since == 0 && stage.starts_with("Polling for results")) waiting_since = WallMilliseconds();
  });
  host.on_turn = [&] {
    if (waiting_since == 0 || cancelled != 0) return;
    const double now = WallMilliseconds();
    if (wall == 0 && now >= waiting_since + wait) {
      wall = now;
      cpu = CpuMilliseconds();
    } else if (wall != 0 && now >= wall + wait) {
      share = (CpuMilliseconds() - cpu) / (now - wall);
      cancelled = WallMilliseconds();
      rti->Cancel();
    }
  };
  const SUBMISSION_RESULT result = rti->SendSubmission("sender", "password");
  const double returned = WallMilliseconds();
  host.on_turn = nullptr;
  Expect(SUBMISSION_RESULT::Pending, result);
  if (cancelled == 0) throw std::runtime_error("the wait ended before its cancel");
  return {.share_of_core = share, .cancel_ms = returned - cancelled};
}

void Measure(const char* const* arguments) {
  const std::string home = arguments[0];
  const std::string document = zelnor::ReadFile(arguments[3]);
  const int conversations = std::atoi(arguments[4]);
  zelnor::SetProgramFolder(home);
  zelnor::FurnishProgramFolder();
  const auto host = std::make_shared<TurnHost>();
  zelnor::SetHost(host);

  UseGateway(arguments[1]);
  std::printf("%-44s %8.2f %%\n", "CPU while waiting, of one core",
              100 * WaitAndCancel(*host, document, 4000).share_of_core);
  std::vector<double> cancels;
  for (int i = 0; i < 11; ++i) cancels.push_back(WaitAndCancel(*host, document, 40 + 7 * i).cancel_ms);
  std::sort(cancels.begin(), cancels.end());
  std::printf("%-44s %8.1f ms %8.1f ms\n", "from a cancel to the return, median, longest",
              cancels[cancels.size() / 2], cancels.back());

  UseGateway(arguments[2]);
  const auto converse = [&](int times) {
    for (int i = 0; i < times; ++i)
      Expect(SUBMISSION_RESULT::Successful, Loaded(document)->SendSubmission("sender", "password"));
  };
  const int warm_up = conversations / 10;
  converse(warm_up);
  const long memory = ResidentKilobytes();
  const long descriptors = OpenDescriptors();
  const double cpu = CpuMilliseconds();
  converse(conversations - warm_up);
  const double cpu_each = (CpuMilliseconds() - cpu) / (conversations - warm_up);
  std::printf("of %d conversations, after %d and after all\n", conversations, warm_up);
  std::printf("%-44s %8ld KB %8ld KB\n", "  memory", memory, ResidentKilobytes());
  std::printf("%-44s %8ld    %8ld\n", "  open files and sockets", descriptors, OpenDescriptors());
  std::printf("%-44s %8.2f ms\n", "  CPU of each", cpu_each);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 6) {
    std::fprintf(stderr,
                 "usage: conversation_benchmark HOME SLOW_GATEWAY QUICK_GATEWAY DOCUMENT CONVERSATIONS\n");
    return 2;
  }
  try {
    Measure(arguments + 1);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "conversation_benchmark: %s\n", error.what());
    return 1;
  }
}
