#pragma once

#include "zelnor/platform/values.h"

#include <FL/Fl_Widget.H>

namespace zelnor {

/// One of the dialog's icons, told apart by shape and sign as well as by colour.
class DialogIcon : public Fl_Widget {
 public:
  /// `icon` is one of dialog.h's; the icon fills the square.
  DialogIcon(int x, int y, int size, Long icon);

 private:
  void draw() override;
  void Disc(Fl_Color colour) const;
  void Triangle(Fl_Color colour) const;
  void Cross() const;
  void Sign(const char* sign, Fl_Color colour, int down) const;

  Long icon_;
};

}  // namespace zelnor
