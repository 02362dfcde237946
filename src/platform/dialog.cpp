#include "zelnor/platform/dialog.h"

#include "zelnor/platform/text.h"

#include <algorithm>

namespace zelnor {
namespace {

constexpr std::string_view kOk[] = {"&Ok"};
constexpr std::string_view kOkCancel[] = {"&Ok", "&Cancel"};
constexpr std::string_view kAbortRetryIgnore[] = {"&Abort", "&Retry", "&Ignore"};
constexpr std::string_view kYesNoCancel[] = {"&Yes", "&No", "&Cancel"};
constexpr std::string_view kYesNo[] = {"&Yes", "&No"};
constexpr std::string_view kRetryCancel[] = {"&Retry", "&Cancel"};
constexpr std::string_view kCombineReplaceIgnore[] = {"&Combine", "&Replace", "&Ignore"};

struct NamedResult {
  std::string_view name;
  Long result;
};

constexpr NamedResult kResults[] = {
    {"ok", 1},  {"cancel", 2}, {"abort", 3},   {"retry", 4},   {"ignore", 5},
    {"yes", 6}, {"no", 7},     {"combine", 8}, {"replace", 9},
};

}  // namespace

Long DialogIconPart(Long style) {
  if (style < 0 || style >= 65) return kDialogAsterisk;
  if (style >= 49) return kDialogExclamation;
  if (style >= 33) return kDialogQuestion;
  return kDialogHand;
}

Long DialogButtonPart(Long style) { return style < 0 ? 0 : style - DialogIconPart(style); }

std::span<const std::string_view> DialogCaptions(Long button_part) {
  switch (button_part) {
    case 1:
      return kOkCancel;
    case 2:
      return kAbortRetryIgnore;
    case 3:
      return kYesNoCancel;
    case 4:
      return kYesNo;
    case 5:
      return kRetryCancel;
    case 6:
      return kCombineReplaceIgnore;
    default:
      return kOk;
  }
}

Long DialogResult(std::string_view caption) {
  String name(caption);
  std::erase(name, '&');
  name = LowerCase(name);
  for (const NamedResult& each : kResults) {
    if (each.name == name) return each.result;
  }
  return kDialogCancelled;
}

}  // namespace zelnor
