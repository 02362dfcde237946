#include "zelnor/desktop/desktop_host.h"

#include "zelnor/desktop/dialog_window.h"
#include "zelnor/desktop/display.h"
#include "zelnor/platform/dialog.h"

#include <FL/Fl.H>
#include <cmath>

namespace zelnor {
namespace {

constexpr float kUsualTextSize = 14;
constexpr float kUsualDots = 96;
constexpr int kLeastTextSize = 8;

int TextSizeOfScreen() {
  float across = 0;
  float down = 0;
  Fl::screen_dpi(across, down);
  // Some screens don't know their size.
  if (down < kUsualDots / 2) return static_cast<int>(kUsualTextSize);
  return static_cast<int>(std::lround(kUsualTextSize * down / kUsualDots));
}

DialogAnswer AskInWindow(const DialogContents& contents, int text_size) {
  DialogWindow window(contents, text_size == 0 ? TextSizeOfScreen() : std::max(text_size, kLeastTextSize));
  const DialogAnswer answer = window.Ask();
  // The window is to be gone from the screen while its caller works on.
  Fl::flush();
  return answer;
}

}  // namespace

DesktopHost::DesktopHost(int text_size) : text_size_(text_size) {}

bool DesktopHost::HasScreen() { return OpenDisplay(); }

DialogAnswer DesktopHost::ShowDialog(const DialogRequest& request) {
  if (!OpenDisplay()) return DefaultHost::ShowDialog(request);
  Keep({request.message, request.style, request.title});
  return AskInWindow({.title = request.title,
                      .message = request.message,
                      .icon = DialogIconPart(request.style),
                      .captions = DialogCaptions(DialogButtonPart(request.style)),
                      .with_check_box = request.style_ext == 1,
                      .check_text = request.checkbox_text},
                     text_size_);
}

Long DesktopHost::MessageBox(const String& text, Long style, const String& title) {
  if (!OpenDisplay()) return DefaultHost::MessageBox(text, style, title);
  Keep({text, style, title});
  const auto captions = DialogCaptions(style & 0xF);
  const Long icon = style & 0x70;
  const Long answer = AskInWindow({.title = title,
                                   .message = text,
                                   .icon = icon == 0 ? kDialogAsterisk : icon,
                                   .captions = captions,
                                   .with_check_box = false,
                                   .check_text = {}},
                                  text_size_)
                          .result;
  return captions.size() == 1 ? DialogResult(captions.front()) : answer;
}

}  // namespace zelnor
