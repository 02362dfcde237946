#pragma once

/// @file
/// The dialog in a window, for applications with a desktop. Part of the library zelnor_desktop.
///
/// @code
/// if (zelnor::DesktopHost::HasScreen()) zelnor::SetHost(std::make_shared<zelnor::DesktopHost>());
/// @endcode

#include "zelnor/platform/host.h"

namespace zelnor {

/// A host that shows the dialog, and plain messages too, in a window and waits for the person; all else is as
/// with the DefaultHost. The library is to be called from one thread only, the one of the desktop's windows.
///
/// Escape and closing the window answer "cancel" (2); a plain message with nothing but OK is answered by OK
/// (1) that way.
class ZELNOR_API DesktopHost : public DefaultHost {
 public:
  /// The height of the text in pixels; 0 takes what suits the screen, 14 at 96 dots per inch. All distances
  /// grow with it.
  explicit DesktopHost(int text_size = 0);

  /// Whether there is a screen to show a window on.
  static bool HasScreen();

  /// Shows the window until it is answered, and keeps the message as the DefaultHost does, which answers
  /// where there is no screen.
  DialogAnswer ShowDialog(const DialogRequest& request) override;

  /// As ShowDialog. The style's icon (16, 32, 48, 64) and buttons (0 to 5) are added as in the system's own
  /// boxes.
  Long MessageBox(const String& text, Long style, const String& title) override;

 private:
  int text_size_;
};

}  // namespace zelnor
