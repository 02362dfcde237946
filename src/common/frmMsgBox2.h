#pragma once

#include "zelnor/platform/values.h"

namespace zelnor {

/// A question with buttons of its own words and a check box whose state can be read afterwards. The host
/// shows it.
///
/// @code
/// frmMsgBox2 question;
/// Long answer = question.ShowMessageBox("Combine the two?", 38, "ZELNOR", 1, "Don't ask again");
/// if (question.DontShowAgain()) Remember(answer);
/// @endcode
class ZELNOR_API frmMsgBox2 {
 public:
  /// Shows a message and waits for the answer: ok 1, cancel 2, abort 3, retry 4, ignore 5, yes 6, no 7,
  /// combine 8, replace 9.
  ///
  /// A style of 0 or more replaces the one before, a negative one leaves icon and buttons as they were. An
  /// empty title or check box text leaves the one before, as does an extended style of -1; the check box text
  /// is looked at only with another extended style. An error of the host's dialog goes on to the caller with
  /// the source "[ZELNOR.dll::frmMsgBox2]: ShowMessageBox".
  Long ShowMessageBox(const String& strMessage, Long lngStyle = -1, const String& strTitle = {},
                      Long lngStyleExt = -1, const String& strCheckboxText = {});

  /// The text beside the check box.
  ///@{
  String CheckboxText() const;
  void CheckboxText(String value);
  ///@}

  /// The title.
  ///@{
  String Title() const;
  void Title(String value);
  ///@}

  /// The message.
  ///@{
  String Message() const;
  void Message(String value);
  ///@}

  /// 1 shows the check box.
  ///@{
  Long StyleExt() const;
  void StyleExt(Long value);
  ///@}

  /// The icon (16 hand, 32 question, 48 exclamation, 64 asterisk) plus the buttons: 0 Ok; 1 Ok, Cancel;
  /// 2 Abort, Retry, Ignore; 3 Yes, No, Cancel; 4 Yes, No; 5 Retry, Cancel; 6 Combine, Replace, Ignore.
  /// A bare icon counts as the icon below it, with the Ok button; any number for the buttons that isn't in
  /// this list does, too, mean Ok.
  ///@{
  Long Style() const;
  void Style(Long value);
  ///@}

  /// The icon of the style: 16, 32, 48 or 64; 0 before the first style.
  ZELNOR_INTERNAL Long IconPart() const;

  /// What is left of the style without its icon, see Style.
  ZELNOR_INTERNAL Long ButtonPart() const;

  /// Whether the check box was ticked when the message was last answered.
  bool DontShowAgain() const;

  /// The last answer; 0 before the first.
  Long Result() const;

 private:
  void ProcessButtons(Long style);

  Long style_ = 0;
  Long icon_part_ = 0;
  Long button_part_ = 0;
  Long style_ext_ = 0;
  Long result_ = 0;
  bool dont_show_again_ = false;
  String checkbox_text_;
  String title_;
  String message_;
};

}  // namespace zelnor
