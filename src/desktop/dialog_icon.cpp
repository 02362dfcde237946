#include "zelnor/desktop/dialog_icon.h"

#include "zelnor/platform/dialog.h"

#include <FL/fl_draw.H>

namespace zelnor {
namespace {

const Fl_Color kRed = fl_rgb_color(192, 32, 32);
const Fl_Color kBlue = fl_rgb_color(32, 90, 170);
const Fl_Color kYellow = fl_rgb_color(250, 200, 40);

}  // namespace

DialogIcon::DialogIcon(int x, int y, int size, Long icon) : Fl_Widget(x, y, size, size), icon_(icon) {}

void DialogIcon::draw() {
  switch (icon_) {
    case kDialogHand:
      Disc(kRed);
      Cross();
      break;
    case kDialogQuestion:
      Disc(kBlue);
      Sign("?", FL_WHITE, 0);
      break;
    case kDialogExclamation:
      Triangle(kYellow);
      Sign("!", FL_BLACK, h() / 10);
      break;
    default:
      Disc(kBlue);
      Sign("i", FL_WHITE, 0);
      break;
  }
}

void DialogIcon::Disc(Fl_Color colour) const {
  fl_color(colour);
  fl_pie(x(), y(), w(), h(), 0, 360);
}

void DialogIcon::Triangle(Fl_Color colour) const {
  fl_color(colour);
  fl_polygon(x() + w() / 2, y(), x() + w() - 1, y() + h() - 1, x(), y() + h() - 1);
  fl_color(FL_BLACK);
  fl_loop(x() + w() / 2, y(), x() + w() - 1, y() + h() - 1, x(), y() + h() - 1);
}

void DialogIcon::Cross() const {
  const int near = w() * 3 / 10;
  const int far = w() - 1 - near;
  fl_color(FL_WHITE);
  fl_line_style(FL_SOLID | FL_CAP_ROUND, w() / 8);
  fl_line(x() + near, y() + near, x() + far, y() + far);
  fl_line(x() + far, y() + near, x() + near, y() + far);
  fl_line_style(0);
}

void DialogIcon::Sign(const char* sign, Fl_Color colour, int down) const {
  fl_color(colour);
  fl_font(FL_HELVETICA_BOLD, h() * 3 / 4);
  fl_draw(sign, x(), y() + down, w(), h(), FL_ALIGN_CENTER, nullptr, 0);
}

}  // namespace zelnor
