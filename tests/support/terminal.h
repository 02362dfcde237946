#pragma once

/// @file
/// A terminal of a test's own, with the test in the place of the person.

#include <chrono>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <string>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace zelnor::test {

/// A pseudo-terminal: what is tested has the program's side, the test the keys and the screen.
class Terminal {
 public:
  explicit Terminal(unsigned short columns = 80) {
    winsize size{};
    size.ws_row = 25;
    size.ws_col = columns;
    if (openpty(&person_, &program_, nullptr, nullptr, &size) != 0) throw std::runtime_error("no terminal");
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal() {
    HangUp();
    close(program_);
  }

  /// The program's side.
  int Program() const { return program_; }

  /// Presses keys.
  void Type(const std::string& keys) const {
    if (write(person_, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size())) {
      throw std::runtime_error("the terminal takes no keys");
    }
  }

  /// Waits until the text has come up since the last wait, and returns all up to and with it; all there was
  /// when it doesn't come.
  std::string WaitFor(const std::string& text) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (unread_.find(text) == std::string::npos) {
      pollfd ready{person_, POLLIN, 0};
      char block[4096];
      if (std::chrono::steady_clock::now() > end) return std::exchange(unread_, {});
      if (poll(&ready, 1, 100) <= 0) continue;
      const ssize_t count = read(person_, block, sizeof block);
      if (count <= 0) return std::exchange(unread_, {});
      unread_.append(block, static_cast<std::size_t>(count));
    }
    const std::size_t length = unread_.find(text) + text.size();
    std::string seen = unread_.substr(0, length);
    unread_.erase(0, length);
    return seen;
  }

  /// The person goes away.
  void HangUp() {
    if (person_ >= 0) close(person_);
    person_ = -1;
  }

  /// Whether keys are shown and sent off by line, as a shell expects to find its terminal.
  bool IsByLine() const {
    termios now{};
    return tcgetattr(program_, &now) == 0 && (now.c_lflag & ICANON) != 0 && (now.c_lflag & ECHO) != 0 &&
           (now.c_lflag & ISIG) != 0;
  }

 private:
  int person_ = -1;
  int program_ = -1;
  std::string unread_;
};

}  // namespace zelnor::test
