#include "zelnor/common/frmMsgBox2.h"

#include "zelnor/platform/dialog.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/host.h"

namespace zelnor {

Long frmMsgBox2::ShowMessageBox(const String& strMessage, Long lngStyle, const String& strTitle,
                                Long lngStyleExt, const String& strCheckboxText) {
  PassedOn("[ZELNOR.dll::frmMsgBox2]: ShowMessageBox", [&] {
    message_ = strMessage;
    if (!strTitle.empty()) title_ = strTitle;
    if (lngStyleExt != -1) {
      style_ext_ = lngStyleExt;
      if (!strCheckboxText.empty()) checkbox_text_ = strCheckboxText;
    }
    if (lngStyle >= 0) Style(lngStyle);
    const bool styled = icon_part_ != 0;
    const DialogAnswer answer = CurrentHost()->ShowDialog({.message = message_,
                                                           .style = styled ? icon_part_ + button_part_ : -1,
                                                           .title = title_,
                                                           .style_ext = style_ext_,
                                                           .checkbox_text = checkbox_text_});
    // No caption of the application's own has a result of its own.
    const bool known = answer.result >= 1 && answer.result <= 9;
    result_ = known ? answer.result : kDialogCancelled;
    dont_show_again_ = style_ext_ == 1 && answer.checked;
  });
  return result_;
}

String frmMsgBox2::CheckboxText() const { return checkbox_text_; }
void frmMsgBox2::CheckboxText(String value) { checkbox_text_ = std::move(value); }

String frmMsgBox2::Title() const { return title_; }
void frmMsgBox2::Title(String value) { title_ = std::move(value); }

String frmMsgBox2::Message() const { return message_; }
void frmMsgBox2::Message(String value) { message_ = std::move(value); }

Long frmMsgBox2::StyleExt() const { return style_ext_; }
void frmMsgBox2::StyleExt(Long value) { style_ext_ = value; }

Long frmMsgBox2::Style() const { return style_; }
void frmMsgBox2::Style(Long value) {
  style_ = value;
  if (value >= 0) ProcessButtons(value);
}

void frmMsgBox2::ProcessButtons(Long style) {
  icon_part_ = DialogIconPart(style);
  button_part_ = DialogButtonPart(style);
}

Long frmMsgBox2::IconPart() const { return icon_part_; }
Long frmMsgBox2::ButtonPart() const { return button_part_; }

bool frmMsgBox2::DontShowAgain() const { return dont_show_again_; }

Long frmMsgBox2::Result() const { return result_; }

}  // namespace zelnor
