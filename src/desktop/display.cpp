#include "zelnor/desktop/display.h"

#include <FL/x.H>

namespace zelnor {

bool OpenDisplay() {
  if (fl_display != nullptr) return true;
  Display* const display = XOpenDisplay(nullptr);
  if (display == nullptr) return false;
  fl_open_display(display);
  return true;
}

}  // namespace zelnor
