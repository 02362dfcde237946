#include "zelnor/platform/host.h"

#include "zelnor/platform/connection.h"
#include "zelnor/platform/dialog.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/local_time.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <ifaddrs.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;  // NOLINT(readability-redundant-declaration)

namespace zelnor {
namespace {

/// The result of a button set's last button.
Long LastButton(Long button_part) { return DialogResult(DialogCaptions(button_part).back()); }

/// Control characters could steer the terminal that shows the line, and a line end would make it two.
void WriteLine(const String& text, const String& title) {
  String line = title.empty() ? text : title + ": " + text;
  std::replace_if(
      line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < 32 || c == 127; }, ' ');
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

bool HasProxy() {
  constexpr std::array kVariables = {"http_proxy", "https_proxy", "all_proxy",
                                     "HTTP_PROXY", "HTTPS_PROXY", "ALL_PROXY"};
  return std::any_of(kVariables.begin(), kVariables.end(), IsSet);
}

/// How a viewer is started: in a session of its own, with the usual signals, and with nothing of ours open. A
/// viewer that held our standard output open would keep whoever reads that waiting.
class ViewerSetting {
 public:
  ViewerSetting() {
    posix_spawn_file_actions_init(&actions_);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDWR, 0);
    }
    posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
    posix_spawnattr_init(&attributes_);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    sigaddset(&signals, SIGPIPE);
    sigaddset(&signals, SIGCHLD);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    posix_spawnattr_setflags(&attributes_,
                             POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  ViewerSetting(const ViewerSetting&) = delete;
  ViewerSetting& operator=(const ViewerSetting&) = delete;
  ~ViewerSetting() {
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&actions_);
  }

  /// Starts the program, looked up in PATH; False when that fails.
  bool Start(const char* program, char* const* arguments) const {
    pid_t viewer = 0;
    return posix_spawnp(&viewer, program, &actions_, &attributes_, arguments, environ) == 0;
  }

 private:
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

/// Starts a program from a process between, which ends at once: the program then belongs to the system, which
/// takes note of its end, and leaves no zombie here.
bool StartDetached(const String& program, const String& argument) {
  // The process between may call little, so all that takes memory is made before.
  String name = program;
  String file = argument;
  std::array<char*, 3> arguments = {name.data(), file.data(), nullptr};
  const ViewerSetting setting;
  std::array<int, 2> answer{};
  if (pipe2(answer.data(), O_CLOEXEC) != 0) return false;
  const pid_t between = fork();
  if (between == 0) {
    const char started = setting.Start(name.c_str(), arguments.data()) ? 1 : 0;
    const bool told = write(answer[1], &started, 1) == 1;
    _exit(told ? 0 : 1);
  }
  close(answer[1]);
  char started = 0;
  // The answer comes by pipe: the application may have taken away our right to ask how a child ended.
  while (between > 0 && read(answer[0], &started, 1) < 0 && errno == EINTR) {
  }
  close(answer[0]);
  while (between > 0 && waitpid(between, nullptr, 0) < 0 && errno == EINTR) {
  }
  return started == 1;
}

struct HostPlace {
  std::mutex mutex;
  std::shared_ptr<Host> host = std::make_shared<DefaultHost>();
};

/// Never destroyed, since objects that outlive the library's end may have something to say.
HostPlace& Place() {
  static auto* place = new HostPlace;
  return *place;
}

}  // namespace

Host::~Host() = default;

Long DefaultHost::MessageBox(const String& text, Long style, const String& title) {
  WriteLine(text, title);
  Keep({text, style, title});
  return LastButton(style & 0xF);
}

DialogAnswer DefaultHost::ShowDialog(const DialogRequest& request) {
  WriteLine(request.message, request.title);
  Keep({request.message, request.style, request.title});
  return {LastButton(DialogButtonPart(request.style)), false};
}

void DefaultHost::Yield() {}

Date DefaultHost::Now() {
  std::timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  now.tv_nsec -= now.tv_nsec % 1'000'000;
  return LocalDate(now);
}

std::int64_t DefaultHost::Tick() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

void DefaultHost::Sleep(std::int64_t milliseconds) {
  if (milliseconds > 0) std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

bool DefaultHost::OpenFile(const String& program, const String& path) {
  try {
    String file = SystemPath(path);
    // A name that begins like an option would be taken for one.
    if (file.starts_with('-')) file.insert(0, "./");
    return StartDetached(program.empty() ? "xdg-open" : SystemPath(program), file);
  } catch (const RuntimeError&) {
    return false;
  }
}

HttpAnswer DefaultHost::Exchange(const HttpMessage& message) { return ExchangeHttp(message); }

ConnectionState DefaultHost::Connection() {
  ConnectionState state;
  state.flags = kConnectionConfigured;
  ifaddrs* interfaces = nullptr;
  if (getifaddrs(&interfaces) == 0) {
    state.connected = AnyInterfaceConnected(interfaces);
    freeifaddrs(interfaces);
  }
  if (state.connected) state.flags |= kConnectionLan;
  if (HasProxy()) state.flags |= kConnectionProxy;
  return state;
}

void DefaultHost::ClearMessages() {
  const std::lock_guard lock(keeping_);
  messages_.clear();
}

void DefaultHost::Keep(const ShownMessage& message) {
  const std::lock_guard lock(keeping_);
  messages_.push_back(message);
  if (messages_.size() > kKeptMessages) messages_.pop_front();
}

std::shared_ptr<Host> CurrentHost() {
  HostPlace& place = Place();
  const std::lock_guard lock(place.mutex);
  return place.host;
}

void SetHost(std::shared_ptr<Host> host) {
  if (!host) host = std::make_shared<DefaultHost>();
  HostPlace& place = Place();
  // The old host is destroyed behind the lock: its destructor is the application's and may come back here.
  {
    const std::lock_guard lock(place.mutex);
    place.host.swap(host);
  }
}

}  // namespace zelnor
