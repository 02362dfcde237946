// Shows a dialog in a window and prints what came of it, for a test that has the mouse and the keys.
//
//   dialog_shower conversation|message|layout|STYLE [text size]

#include "zelnor/desktop/desktop_host.h"
#include "zelnor/desktop/dialog_window.h"
#include "zelnor/desktop/display.h"
#include "zelnor/platform/dialog.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/duplicate_letter.h"

using namespace zelnor;

namespace {

const char* const kCheckText = "Do this for any further issues of this type";

void Print(const std::string& line) {
  std::printf("%s\n", line.c_str());
  std::fflush(stdout);
}

/// Three rows of one letter: the second raises the question, the third perhaps.
void HoldConversation() {
  test::DuplicateLetter conversation;
  conversation.AddRow(50);
  Print(conversation.Rows());
  conversation.AddRow(75);
  Print(conversation.Rows());
}

void PrintPlace(const char* what, const Fl_Widget& widget) {
  std::printf("%s %d %d %d %d\n", what, widget.x(), widget.y(), widget.w(), widget.h());
}

/// Where each part of the window lies: its name, x, y, width, height.
void PrintLayout(int text_size, const String& message, bool with_check_box) {
  const DialogWindow window({.title = "ZELNOR",
                             .message = message,
                             .icon = kDialogQuestion,
                             .captions = DialogCaptions(6),
                             .with_check_box = with_check_box,
                             .check_text = kCheckText},
                            text_size);
  std::printf("window 0 0 %d %d\n", window.w(), window.h());
  const Fl_Widget& around = *window.Message().parent();
  PrintPlace("message", &around == &window ? window.Message() : around);
  if (window.CheckBox() != nullptr) PrintPlace("check", *window.CheckBox());
  for (const Fl_Button* const button : window.Buttons()) PrintPlace(button->label() + 1, *button);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  const String what = argv[1];
  const int text_size = argc > 2 ? std::atoi(argv[2]) : 0;
  const auto host = std::make_shared<DesktopHost>(text_size);
  SetHost(host);
  if (what == "conversation") {
    HoldConversation();
  } else if (what == "message") {
    Print(std::to_string(host->MessageBox("Saved to a&b@c.", kExclamationIcon, "A message")));
  } else if (what == "layout") {
    if (!OpenDisplay()) return 3;
    PrintLayout(text_size, argc > 3 ? String(argv[3]) : "One line", argc <= 4);
  } else {
    const DialogAnswer answer =
        host->ShowDialog({"Sure?\tI am @home & \x1b awake.", std::stoi(what), "ZELNOR", 1, "a @ b"});
    Print(std::to_string(answer.result) + (answer.checked ? " checked" : ""));
  }
  SetHost(nullptr);
  return 0;
}
