#include "zelnor/cli/interrupt.h"

#include <csignal>
#include <initializer_list>

namespace zelnor::cli {
namespace {

volatile std::sig_atomic_t caught_signal = 0;

void Remember(int signal) { caught_signal = signal; }

}  // namespace

void RememberSignals() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, Remember);
}

int CaughtSignal() { return caught_signal; }

void ObeySignal() { caught_signal = 0; }

void EndBySignal() {
  if (caught_signal == 0) return;
  std::signal(caught_signal, SIG_DFL);
  std::raise(caught_signal);
}

}  // namespace zelnor::cli
