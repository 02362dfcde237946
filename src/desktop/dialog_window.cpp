#include "zelnor/desktop/dialog_window.h"

#include "zelnor/desktop/dialog_icon.h"
#include "zelnor/platform/dialog.h"

#include <FL/Fl.H>
#include <FL/Fl_Scroll.H>
#include <FL/fl_draw.H>
#include <algorithm>

namespace zelnor {
namespace {

// Distances are in twips, of which 15 make a pixel beside text of the usual size.
constexpr int kTwipsToPixel = 15;
constexpr int kUsualTextSize = 14;

constexpr int kMargin = 225;
constexpr int kIconSize = 480;
constexpr int kBelow = 120;
constexpr int kBetweenButtons = 80;
constexpr int kButtonPadding = 180;
constexpr int kLeastButtonWidth = 1200;

constexpr Fl_Align kMessageAlign = FL_ALIGN_LEFT | FL_ALIGN_TOP | FL_ALIGN_WRAP | FL_ALIGN_INSIDE;
constexpr int kMostColumns = 64;

// Line ends are "\n" alone, and no other control is drawn.
String Drawable(const String& text) {
  String drawable;
  for (const char c : text) {
    if (c == '\r') continue;
    const auto byte = static_cast<unsigned char>(c);
    drawable += (byte < 32 && c != '\n') || byte == 127 ? ' ' : c;
  }
  return drawable;
}

// A label's "@" would begin a drawn symbol.
String Label(std::string_view text) {
  String label;
  for (const char c : Drawable(String(text))) {
    label += c;
    if (c == '@') label += c;
  }
  return label;
}

bool HasColumns(const String& text) { return text.find("   ") != String::npos; }

}  // namespace

// ---- the message

DialogMessage::DialogMessage(String text, int text_size)
    : Fl_Widget(0, 0, 0, 0),
      text_(std::move(text)),
      text_size_(text_size),
      font_(HasColumns(text_) ? FL_COURIER : FL_HELVETICA) {}

void DialogMessage::Fit(int widest, int least_height) {
  fl_font(font_, text_size_);
  int width = widest;
  int height = 0;
  fl_measure(text_.c_str(), width, height, 0);
  // A pixel more, since a line that just fits is broken by some fonts.
  size(width + 1, std::max(height, least_height));
}

void DialogMessage::draw() {
  fl_font(font_, text_size_);
  fl_color(FL_FOREGROUND_COLOR);
  int width = w();
  int height = 0;
  fl_measure(text_.c_str(), width, height, 0);
  // What is lower than the icon stands beside its middle.
  fl_draw(text_.c_str(), x(), y() + std::max(0, h() - height) / 2, w(), h(), kMessageAlign, nullptr, 0);
}

// ---- the window

DialogWindow::DialogWindow(const DialogContents& contents, int text_size)
    : Fl_Double_Window(1, 1), text_size_(text_size), result_(kDialogCancelled) {
  copy_label(contents.title.c_str());
  xclass("Zelnor");
  const int margin = Pixels(kMargin);
  new DialogIcon(margin, margin, Pixels(kIconSize), contents.icon);
  if (contents.with_check_box) AddCheckBox(contents.check_text);
  AddButtons(contents.captions);
  int room_below = Pixels(kBelow) + buttons_.front()->h() + margin;
  if (check_box_ != nullptr) room_below += Pixels(kBelow) + check_box_->h();
  AddMessage(contents, room_below);
  LayOut();
  end();
  set_modal();
}

int DialogWindow::Pixels(int twips) const { return twips * text_size_ / (kTwipsToPixel * kUsualTextSize); }

void DialogWindow::AddMessage(const DialogContents& contents, int room_below) {
  message_ = new DialogMessage(Drawable(contents.message), text_size_);
  message_area_ = message_;
  fl_font(message_->Font(), text_size_);
  int left, top, screen_width, screen_height;
  Fl::screen_work_area(left, top, screen_width, screen_height);
  const int beside = 3 * Pixels(kMargin) + Pixels(kIconSize) + Fl::scrollbar_size();
  const int widest = static_cast<int>(fl_width("0")) * kMostColumns;
  message_->Fit(std::min(widest, screen_width - beside), Pixels(kIconSize));
  // A tenth of the screen is for its bars and the window's title.
  const int highest = screen_height * 9 / 10 - Pixels(kMargin) - room_below;
  if (message_->h() <= highest) return;
  auto* const scroll = new Fl_Scroll(0, 0, message_->w() + Fl::scrollbar_size(), highest);
  scroll->type(Fl_Scroll::VERTICAL);
  scroll->add(message_);
  scroll->end();
  message_area_ = scroll;
}

void DialogWindow::AddCheckBox(const String& text) {
  check_box_ = new Fl_Check_Button(0, 0, 0, 0);
  check_box_->copy_label(Label(text).c_str());
  check_box_->labelsize(text_size_);
  int width = 0;
  int height = 0;
  check_box_->measure_label(width, height);
  // The box is as wide as a line is high, and stands a little off its text.
  check_box_->size(width + height + Pixels(kBelow), height + Pixels(kBetweenButtons));
}

void DialogWindow::AddButtons(std::span<const std::string_view> captions) {
  int widest = Pixels(kLeastButtonWidth);
  int highest = 0;
  for (const std::string_view caption : captions) {
    auto* const button = new Fl_Button(0, 0, 0, 0);
    button->copy_label(Label(caption).c_str());
    button->labelsize(text_size_);
    button->callback(Press, this);
    int width = 0;
    button->measure_label(width, highest);
    widest = std::max(widest, width + 2 * Pixels(kButtonPadding));
    buttons_.push_back(button);
    results_.push_back(DialogResult(caption));
  }
  for (Fl_Button* const button : buttons_) button->size(widest, highest + Pixels(kButtonPadding));
}

void DialogWindow::LayOut() {
  const int margin = Pixels(kMargin);
  const int left = 2 * margin + Pixels(kIconSize);
  const int gap = Pixels(kBetweenButtons);
  const int buttons = static_cast<int>(buttons_.size());
  const int row = buttons * buttons_.front()->w() + (buttons - 1) * gap;

  message_area_->position(left, margin);
  if (message_area_ != message_) message_->position(left, margin);
  int width = std::max(left + message_area_->w(), row + margin);
  int bottom = margin + message_area_->h();
  if (check_box_ != nullptr) {
    check_box_->position(left, bottom + Pixels(kBelow));
    width = std::max(width, left + check_box_->w());
    bottom = check_box_->y() + check_box_->h();
  }
  width += margin;
  int next = (width - row) / 2;
  for (Fl_Button* const button : buttons_) {
    button->position(next, bottom + Pixels(kBelow));
    next += button->w() + gap;
  }
  bottom = buttons_.front()->y() + buttons_.front()->h();
  size(width, bottom + margin);
}

DialogAnswer DialogWindow::Ask() {
  int left, top, screen_width, screen_height;
  Fl::screen_work_area(left, top, screen_width, screen_height);
  position(left + std::max(0, screen_width - w()) / 2, top + std::max(0, screen_height - h()) / 2);
  buttons_.front()->take_focus();
  show();
  while (shown() != 0) Fl::wait();
  return {result_, check_box_ != nullptr && check_box_->value() != 0};
}

// Enter presses the button that has the focus, or else the first.
int DialogWindow::handle(int event) {
  const bool enter = event == FL_SHORTCUT && (Fl::event_key() == FL_Enter || Fl::event_key() == FL_KP_Enter);
  if (!enter) return Fl_Double_Window::handle(event);
  const auto focused = std::find(buttons_.begin(), buttons_.end(), Fl::focus());
  Press(focused == buttons_.end() ? buttons_.front() : *focused, this);
  return 1;
}

void DialogWindow::Press(Fl_Widget* button, void* window) {
  auto* const self = static_cast<DialogWindow*>(window);
  const auto place = std::find(self->buttons_.begin(), self->buttons_.end(), button);
  self->result_ = self->results_[static_cast<std::size_t>(place - self->buttons_.begin())];
  self->hide();
}

}  // namespace zelnor
