#pragma once

/// @file
/// What the dialog with a check box shows for a style: which icon, which buttons, and what each button
/// answers. For hosts that show the dialog.
///
/// @code
/// for (std::string_view caption : DialogCaptions(DialogButtonPart(request.style))) AddButton(caption);
/// @endcode

#include "zelnor/platform/values.h"

#include <span>
#include <string_view>

namespace zelnor {

/// The dialog's icons, as they stand in a style.
inline constexpr Long kDialogHand = 16;
inline constexpr Long kDialogQuestion = 32;
inline constexpr Long kDialogExclamation = 48;
inline constexpr Long kDialogAsterisk = 64;

/// The answer of a dialog that is closed without any button.
inline constexpr Long kDialogCancelled = 2;

/// The icon of a style: 64 from 65 up, 48 from 49 up, 32 from 33 up, else 16, so that a bare icon is taken
/// for the one below it. A negative style, which stands for none, has the asterisk.
ZELNOR_API Long DialogIconPart(Long style);

/// What is left of a style without its icon: 0 to 6 choose a set of buttons. 0 for a negative style.
ZELNOR_API Long DialogButtonPart(Long style);

/// The captions of a set of buttons in their order, at most three: 0 "&Ok"; 1 "&Ok", "&Cancel"; 2 "&Abort",
/// "&Retry", "&Ignore"; 3 "&Yes", "&No", "&Cancel"; 4 "&Yes", "&No"; 5 "&Retry", "&Cancel"; 6 "&Combine",
/// "&Replace", "&Ignore". Any other number is 0. The letter behind "&" is the button's access key.
ZELNOR_API std::span<const std::string_view> DialogCaptions(Long button_part);

/// What a button answers, by its caption without "&" and whatever its case: ok 1, cancel 2, abort 3, retry 4,
/// ignore 5, yes 6, no 7, combine 8, replace 9, and 2 for any other.
ZELNOR_API Long DialogResult(std::string_view caption);

}  // namespace zelnor
