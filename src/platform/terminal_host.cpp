#include "zelnor/platform/terminal_host.h"

#include "zelnor/platform/dialog.h"
#include "zelnor/platform/text.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#include <vector>

namespace zelnor {
namespace {

constexpr int kEndOfInput = -1;
constexpr int kInterrupt = 3;
constexpr int kEndOfText = 4;
constexpr int kEscape = 27;
constexpr int kWithoutLimit = -1;

// The bytes of one key come together; a person's Escape comes alone.
constexpr int kEscapeWait = 100;

void Write(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(file, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

/// The next byte, or kEndOfInput: also when the terminal has gone, a signal came, or nothing came in time.
int ReadByte(int file, int milliseconds = kWithoutLimit) {
  pollfd ready{file, POLLIN, 0};
  if (poll(&ready, 1, milliseconds) <= 0) return kEndOfInput;
  unsigned char byte = 0;
  return read(file, &byte, 1) == 1 ? byte : kEndOfInput;
}

/// Without what could steer the terminal: controls but the line end, in their short and long form.
String Plain(std::string_view text) {
  String plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool long_control =
        byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
    if (byte == '\r') continue;
    if (long_control) ++i;
    plain += byte == '\n' || (byte >= 32 && byte != 127 && !long_control) ? text[i] : ' ';
  }
  return plain;
}

String OnOneLine(std::string_view text) {
  String line = Plain(text);
  for (char& c : line) {
    if (c == '\n') c = ' ';
  }
  return line;
}

struct Button {
  String name;   ///< "Combine"
  String shown;  ///< "(C)ombine"
  char key = 0;  ///< 'c'
  Long result = 0;
};

std::vector<Button> ButtonsOf(Long style) {
  std::vector<Button> buttons;
  for (const std::string_view caption : DialogCaptions(DialogButtonPart(style))) {
    const std::size_t access = caption.find('&') + 1;
    Button button;
    button.name = String(caption.substr(access));
    button.shown = String("(") + caption[access] + ")" + String(caption.substr(access + 1));
    button.key = static_cast<char>(std::tolower(caption[access]));
    button.result = DialogResult(caption);
    buttons.push_back(button);
  }
  return buttons;
}

const char* IconWord(Long style) {
  switch (DialogIconPart(style)) {
    case kDialogHand:
      return "Stop";
    case kDialogQuestion:
      return "Question";
    case kDialogExclamation:
      return "Warning";
    default:
      return "Note";
  }
}

/// Keys one by one and unseen, as long as it lives. What was typed before the question was there is dropped.
class KeyByKey {
 public:
  explicit KeyByKey(int terminal) : terminal_(terminal), changed_(tcgetattr(terminal, &before_) == 0) {
    if (!changed_) return;
    termios now = before_;
    now.c_iflag &= ~static_cast<tcflag_t>(IXON);
    now.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | ISIG | IEXTEN);
    now.c_cc[VMIN] = 1;
    now.c_cc[VTIME] = 0;
    changed_ = tcsetattr(terminal_, TCSAFLUSH, &now) == 0;
  }
  KeyByKey(const KeyByKey&) = delete;
  KeyByKey& operator=(const KeyByKey&) = delete;
  ~KeyByKey() {
    if (changed_) tcsetattr(terminal_, TCSADRAIN, &before_);
  }
  bool Works() const { return changed_; }

 private:
  int terminal_;
  termios before_{};
  bool changed_;
};

/// One question on the terminal.
class Question {
 public:
  Question(int input, int output, const DialogRequest& request)
      : input_(input),
        output_(output),
        buttons_(ButtonsOf(request.style)),
        with_check_box_(request.style_ext == 1),
        check_text_(OnOneLine(request.checkbox_text)) {
    String text = "\n";
    text += IconWord(request.style);
    if (!request.title.empty()) text += ": " + OnOneLine(request.title);
    text += "\n\n" + Plain(request.message);
    if (!text.ends_with('\n')) text += '\n';
    Write(output_, text + "\n");
  }

  DialogAnswer Ask() {
    if (CanMoveTheCursor()) {
      const KeyByKey keys(input_);
      if (keys.Works()) return AskByKeys();
    }
    return AskByLines();
  }

  bool Interrupted() const { return interrupted_; }

 private:
  // What is drawn again and again must stay on its lines.
  bool CanMoveTheCursor() const {
    const char* kind = std::getenv("TERM");
    if (kind == nullptr || *kind == '\0' || std::strcmp(kind, "dumb") == 0) return false;
    winsize size{};
    if (ioctl(output_, TIOCGWINSZ, &size) != 0) return false;
    const auto longest = std::max(Length(CheckLine(true)), Length(ButtonLine()));
    return size.ws_col == 0 ? longest < 80 : longest < size.ws_col;
  }

  String CheckLine(bool by_keys) const {
    return String(checked_ ? "[x] " : "[ ] ") + check_text_ + (by_keys ? "  (space bar)" : "  (X)");
  }

  String ButtonLine() const {
    String line;
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
      line += i == marked_ ? "> " + buttons_[i].shown + " <   " : "  " + buttons_[i].shown + "     ";
    }
    return TrimEnd(line);
  }

  static String TrimEnd(String line) {
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
  }

  // The cursor rests behind the buttons, which stand on the last line.
  void Draw(bool again) const {
    String text;
    if (again) text += with_check_box_ ? "\r\x1b[A" : "\r";
    if (with_check_box_) text += CheckLine(true) + "\x1b[K\n";
    Write(output_, text + ButtonLine() + "\x1b[K");
  }

  DialogAnswer AskByKeys() {
    Draw(false);
    for (;;) {
      const int key = ReadByte(input_);
      if (key == kInterrupt) interrupted_ = true;
      if (key == kEndOfInput || key == kInterrupt || key == kEndOfText) return Cancelled();
      if (key == kEscape) {
        if (!FollowArrow()) return Cancelled();
      } else if (key == '\r' || key == '\n') {
        return Pressed(marked_);
      } else if (key == '\t') {
        Mark(1);
      } else if (key == ' ') {
        if (with_check_box_) checked_ = !checked_;
      } else if (const std::size_t button = ButtonOfKey(key); button < buttons_.size()) {
        marked_ = button;
        Draw(true);
        return Pressed(button);
      }
      Draw(true);
    }
  }

  // The rest of a key that begins with Escape; False when it was Escape itself.
  bool FollowArrow() {
    const int kind = ReadByte(input_, kEscapeWait);
    if (kind == kEndOfInput || kind == kEscape) return false;
    if (kind != '[' && kind != 'O') return true;
    int last = ReadByte(input_, kEscapeWait);
    while (last != kEndOfInput && (last < '@' || last > '~')) last = ReadByte(input_, kEscapeWait);
    if (last == 'C' || last == 'B') Mark(1);
    if (last == 'D' || last == 'A' || last == 'Z') Mark(buttons_.size() - 1);
    return true;
  }

  void Mark(std::size_t further) { marked_ = (marked_ + further) % buttons_.size(); }

  std::size_t ButtonOfKey(int key) const {
    std::size_t button = 0;
    while (button < buttons_.size() && buttons_[button].key != std::tolower(key)) ++button;
    return button;
  }

  DialogAnswer AskByLines() {
    for (;;) {
      String prompt = with_check_box_ ? CheckLine(false) + "\n" : String();
      for (const Button& each : buttons_) prompt += each.shown + "  ";
      Write(output_, prompt + "\nType a letter, then Enter: ");
      bool ended = false;
      const String line = ReadLine(ended);
      if (line.find(static_cast<char>(kEscape)) != String::npos) return Cancelled();
      // "xr" ticks and replaces in one go.
      for (const char c : line) {
        if (with_check_box_ && std::tolower(static_cast<unsigned char>(c)) == 'x') {
          checked_ = !checked_;
        } else if (c != ' ') {
          const std::size_t button = ButtonOfKey(static_cast<unsigned char>(c));
          if (button < buttons_.size() && !ended) return Pressed(button);
          break;
        }
      }
      if (ended) return Cancelled();
    }
  }

  String ReadLine(bool& ended) const {
    String line;
    for (;;) {
      const int byte = ReadByte(input_);
      ended = byte == kEndOfInput || byte == kEndOfText;
      if (ended || byte == '\n' || byte == '\r') return line;
      line += static_cast<char>(byte);
    }
  }

  DialogAnswer Pressed(std::size_t button) const {
    Write(output_, "\nAnswer: " + buttons_[button].name + "\n");
    return {buttons_[button].result, checked_};
  }

  DialogAnswer Cancelled() const {
    Write(output_, "\nAnswer: none\n");
    return {kDialogCancelled, checked_};
  }

  int input_;
  int output_;
  std::vector<Button> buttons_;
  bool with_check_box_;
  String check_text_;
  std::size_t marked_ = 0;
  bool checked_ = false;
  bool interrupted_ = false;
};

}  // namespace

TerminalHost::TerminalHost(int input, int output) : input_(input), output_(output) {}

bool TerminalHost::IsOnTerminal() { return isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1; }

DialogAnswer TerminalHost::ShowDialog(const DialogRequest& request) {
  if (isatty(input_) != 1 || isatty(output_) != 1) return DefaultHost::ShowDialog(request);
  Keep({request.message, request.style, request.title});
  const std::lock_guard lock(asking_);
  Question question(input_, output_, request);
  const DialogAnswer answer = question.Ask();
  if (question.Interrupted()) std::raise(SIGINT);
  return answer;
}

}  // namespace zelnor
