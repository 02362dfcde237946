#include "zelnor/cli/interrupt.h"

#include <array>
#include <csignal>
#include <cstring>
#include <ctime>
#include <initializer_list>
#include <poll.h>
#include <unistd.h>

namespace zelnor::cli {
namespace {

constexpr std::initializer_list<int> kSignals = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t caught_signal = 0;
volatile time_t caught_at = 0;
const char* volatile notice = nullptr;

void Handle(int signal, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, nullptr);
}

time_t Now() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return now.tv_sec;
}

// A further signal ends the program at once; not one that comes together with the first, as when a process
// group and its members are sent the same.
void Remember(int signal) {
  if (caught_signal != 0) {
    if (Now() - caught_at < 2) return;
    Handle(signal, SIG_DFL);
    std::raise(signal);
    return;
  }
  caught_signal = signal;
  caught_at = Now();
  const char* text = notice;
  if (text != nullptr && write(STDERR_FILENO, text, std::strlen(text)) < 0) notice = nullptr;
}

}  // namespace

void RememberSignals() {
  for (const int signal : kSignals) Handle(signal, Remember);
}

SignalsEndAtOnce::SignalsEndAtOnce() {
  for (const int signal : kSignals) Handle(signal, SIG_DFL);
}

SignalsEndAtOnce::~SignalsEndAtOnce() {
  if (caught_signal == 0) RememberSignals();
}

// A signal is only remembered, and wouldn't end a read that waits.
std::optional<std::string> TypedLine(std::FILE* terminal) {
  pollfd answer{fileno(terminal), POLLIN, 0};
  while (CaughtSignal() == 0 && poll(&answer, 1, 100) <= 0) {
  }
  std::array<char, 1024> line{};
  if (CaughtSignal() != 0 || std::fgets(line.data(), line.size(), terminal) == nullptr) return std::nullopt;
  return line.data();
}

void NoticeOfInterrupt(const char* text) { notice = text; }

int CaughtSignal() { return caught_signal; }

void ObeySignal() { caught_signal = 0; }

void EndBySignal() {
  if (caught_signal == 0) return;
  Handle(caught_signal, SIG_DFL);
  std::raise(caught_signal);
}

}  // namespace zelnor::cli
