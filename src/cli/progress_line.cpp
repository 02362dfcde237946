#include "zelnor/cli/progress_line.h"

#include "zelnor/platform/conversions.h"
#include "zelnor/platform/text.h"

#include <algorithm>
#include <cstdio>
#include <sys/ioctl.h>
#include <unistd.h>

namespace zelnor::cli {

ProgressLine::ProgressLine() : on_terminal_(isatty(STDERR_FILENO) == 1) {}

void ProgressLine::Show(const String& text, Long percent) {
  if (!on_terminal_) return;
  winsize size{};
  const bool known = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 1;
  const String end = percent > 0 ? " " + ToText(percent) + "%" : String();
  const auto room = (known ? size.ws_col - 1 : 79) - static_cast<std::ptrdiff_t>(Length(end));
  const String line = Left(text, std::max<std::ptrdiff_t>(room, 0)) + end;
  const auto width = static_cast<std::size_t>(Length(line));
  const String blanks(shown_ > width ? shown_ - width : 0, ' ');
  std::fprintf(stderr, "\r%s%s", line.c_str(), blanks.c_str());
  std::fflush(stderr);
  shown_ = width;
}

void ProgressLine::End() {
  if (shown_ == 0) return;
  std::fprintf(stderr, "\r%s\r", String(shown_, ' ').c_str());
  std::fflush(stderr);
  shown_ = 0;
}

}  // namespace zelnor::cli
