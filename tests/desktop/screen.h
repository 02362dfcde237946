#pragma once

/// @file
/// A screen in memory with a person in front of it, and programs that show windows there.

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "support/shell.h"

namespace zelnor::test {

/// Xvfb on a display that it chooses itself, as long as the object lives.
class Screen {
 public:
  Screen() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    server_ = fork();
    if (server_ == 0) {
      dup2(ends[1], 3);
      const int nothing = open("/dev/null", O_RDWR);
      dup2(nothing, STDOUT_FILENO);
      dup2(nothing, STDERR_FILENO);
      execlp("Xvfb", "Xvfb", "-displayfd", "3", "-screen", "0", "1024x768x24", "-dpi", "96", "-nolisten",
             "tcp", "-noreset", static_cast<char*>(nullptr));
      _exit(127);
    }
    close(ends[1]);
    char number = 0;
    while (read(ends[0], &number, 1) == 1 && number != '\n') display_ += number;
    close(ends[0]);
    if (display_ == ":") throw std::runtime_error("Xvfb doesn't start");
  }
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  ~Screen() {
    kill(server_, SIGTERM);
    waitpid(server_, nullptr, 0);
  }

  /// What is needed beside the tests, or an empty text when all is there.
  static std::string Missing() {
    for (const char* const name : {"Xvfb", "xdotool", "scrot"}) {
      if (!HasPrograms(name)) return name;
    }
    return {};
  }

  /// The output of a shell command that sees the screen.
  std::string Run(const std::string& command) const {
    return OutputOf("DISPLAY=" + display_ + " " + command);
  }

  /// Begins a shell command that sees the screen.
  FILE* Begin(const std::string& command) const {
    // What the system's libraries for windows never give back is none of ours.
    return popen(("DISPLAY=" + display_ + " ASAN_OPTIONS=detect_leaks=0 exec timeout 60 " + command).c_str(),
                 "r");
  }

  /// Keeps a picture of the screen as a PNG file.
  void Photograph(const std::string& path) const { Run("scrot -o '" + path + "'"); }

 private:
  pid_t server_ = -1;
  std::string display_ = ":";
};

/// A program that shows a window, and a person who uses it.
class Shown {
 public:
  Shown(const Screen& screen, const std::string& arguments, const std::string& title = "ZELNOR")
      : screen_(screen), program_(screen.Begin(ZELNOR_DIALOG_SHOWER " " + arguments)) {
    FindWindow(title);
  }
  Shown(const Shown&) = delete;
  Shown& operator=(const Shown&) = delete;
  ~Shown() {
    if (program_ != nullptr) pclose(program_);
  }

  /// Waits for a window of that title and gives it the keyboard, as there is nobody who manages windows.
  void FindWindow(const std::string& title) {
    window_ = screen_.Run("timeout 30 xdotool search --sync --onlyvisible --name '^" + title + "$'");
    screen_.Run("timeout 30 xdotool windowfocus --sync " + window_);
  }

  /// Presses keys, named as xdotool has them: "alt+r", "Tab".
  void Press(const std::string& keys) const { screen_.Run("xdotool key --delay 60 " + keys); }

  /// Clicks at a place in the window.
  void Click(int x, int y) const {
    screen_.Run("xdotool mousemove --window " + window_ + " " + std::to_string(x) + " " + std::to_string(y) +
                " sleep 0.1 click 1");
  }

  /// The window's width and height.
  std::string Size() const {
    return screen_.Run("xdotool getwindowgeometry " + window_ + " | sed -n 's/.*Geometry: //p' | tr x ' '");
  }

  /// Asks the window to close, as its frame does.
  void Close() const { screen_.Run(ZELNOR_WINDOW_CLOSER " " + window_); }

  /// The next line that the program prints; it waits until the person is done.
  std::string Line() const {
    std::string line;
    pollfd ready{fileno(program_), POLLIN, 0};
    char c = 0;
    while (poll(&ready, 1, 30000) == 1 && read(ready.fd, &c, 1) == 1 && c != '\n') line += c;
    return line;
  }

 private:
  const Screen& screen_;
  FILE* program_;
  std::string window_;
};

}  // namespace zelnor::test
