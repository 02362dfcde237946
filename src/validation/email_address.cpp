#include "zelnor/validation/email_address.h"

#include "zelnor/platform/text.h"
#include "zelnor/validation/pattern.h"

namespace zelnor {
namespace {

const Pattern kPart(R"(^[A-Za-z0-9\.\-_]{1,64}$)");

constexpr const char* kForm =
    "Invalid characters in Contact Email Address. Online Services Configuration | E-mail Address  must be in "
    "the format of A@A, where A represents characters A-Z | a-z | 0-9 | full stop (.) | hyphen (-) or "
    "underscore (_)";

}  // namespace

bool CheckEmailAddress(Finding& found) {
  const std::string_view address = found.value;
  if (address.empty()) return true;
  bool passed = true;
  if (Length(address) < 3 || Length(address) > 254) {
    passed = found.Fail("E5.4.0", "Invalid Contact Email Address",
                        "Contact Email Address must be between 3 and 254 characters");
  }
  const std::size_t at = address.find('@');
  if (at == std::string_view::npos) {
    passed = found.Fail("E5.5.1", "Error – Format", kForm);
  } else if (!kPart.Test(address.substr(0, at)) || !kPart.Test(address.substr(at + 1))) {
    passed = found.Fail("E5.5.2", "Error - Invalid characters", kForm);
  }
  return passed;
}

}  // namespace zelnor
