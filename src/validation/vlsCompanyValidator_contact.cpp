#include "zelnor/documents/clsContact.h"
#include "zelnor/documents/clsNameType.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/validation/pattern.h"
#include "zelnor/validation/vlsCompanyValidator.h"

namespace zelnor {
namespace {

const Pattern kSurname(R"(^[A-Za-z0-9 \-‘',\.&/\(\)]{1,35}$)");

}  // namespace

bool vlsCompanyValidator::ValidateContactSurname(const Ref<clsSectionIRHeader>& objIRHeader,
                                                 const String& strErrKey) {
  static constexpr Rule kRule{.key = "ContactSurname", .field = "Contact Surname", .code = "E5.1.0"};
  return Check(kRule, strErrKey, [&](Finding& found) {
    const String& surname = found.value =
        Required(Required(Required(objIRHeader).PrincipalContact()).ContactName()).Surname();
    if (surname.empty()) found.Fail("E5.1.1", "Mandatory", "Contact Surname must be present");
    if (Length(surname) > 35) {
      found.Fail("E5.1.1", "Invalid Contact Surname", "Contact Surname must not exceed 35 characters");
    }
    if (!surname.empty() && !ValidatePattern(surname, kSurname)) {
      found.Fail("E5.1.2", "Invalid characters",
                 "Invalid characters in Contact Surname. Field must contain at least one character, begin "
                 "with a letter and only contain the following characters:-  A-Z, a-z, 0-9, space, hyphen "
                 "(-), comma(,), full stop(.), ampersand (&), forward slash (/) and brackets ()");
    }
  });
}

}  // namespace zelnor
