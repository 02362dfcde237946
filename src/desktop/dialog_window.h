#pragma once

#include "zelnor/platform/host.h"

#include <FL/Fl_Button.H>
#include <FL/Fl_Check_Button.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Widget.H>
#include <span>
#include <string_view>
#include <vector>

namespace zelnor {

/// What a dialog's window shows.
struct DialogContents {
  String title;
  String message;
  Long icon = 0;  ///< one of dialog.h's
  std::span<const std::string_view> captions;
  bool with_check_box = false;
  String check_text;
};

/// The message, as it stands: no sign in it means anything to the drawing. A message with columns is drawn
/// in a font of fixed width.
class DialogMessage : public Fl_Widget {
 public:
  DialogMessage(String text, int text_size);

  /// Takes the size of the text, its lines broken where they would be wider.
  void Fit(int widest, int least_height);

  /// The text's font.
  Fl_Font Font() const { return font_; }

 private:
  void draw() override;

  String text_;
  int text_size_;
  Fl_Font font_;
};

/// The dialog's window: icon, message, check box, buttons, laid out in that order.
class DialogWindow : public Fl_Double_Window {
 public:
  /// The screen must be open, see display.h.
  DialogWindow(const DialogContents& contents, int text_size);

  /// Shows the window before all others until it is answered.
  DialogAnswer Ask();

  const DialogMessage& Message() const { return *message_; }
  const Fl_Check_Button* CheckBox() const { return check_box_; }
  const std::vector<Fl_Button*>& Buttons() const { return buttons_; }

 private:
  int handle(int event) override;
  int Pixels(int twips) const;
  void AddMessage(const DialogContents& contents, int room_below);
  void AddCheckBox(const String& text);
  void AddButtons(std::span<const std::string_view> captions);
  void LayOut();
  static void Press(Fl_Widget* button, void* window);

  int text_size_;
  DialogMessage* message_ = nullptr;
  Fl_Widget* message_area_ = nullptr;  ///< the message, or what it is scrolled in
  Fl_Check_Button* check_box_ = nullptr;
  std::vector<Fl_Button*> buttons_;
  std::vector<Long> results_;
  Long result_;
};

}  // namespace zelnor
