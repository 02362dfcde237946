#include "zelnor/documents/clsContact.h"
#include "zelnor/documents/clsEmailType.h"
#include "zelnor/documents/clsFaxType.h"
#include "zelnor/documents/clsNameType.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsTelephoneType.h"
#include "zelnor/validation/email_address.h"
#include "zelnor/validation/pattern.h"
#include "zelnor/validation/vlsCompanyValidator.h"

namespace zelnor {
namespace {

constexpr std::string_view kClass = "vlsCompanyValidator";

const Pattern kSurname(R"(^[A-Za-z0-9 \-‘',\.&/\(\)]{1,35}$)");
const Pattern kFirstLetter("^[a-zA-Z]{1}$");
const Pattern kName(R"(^[a-zA-Z\-']{1,35}$)");
const Pattern kTelephone(R"(^[0-9\(\)\-\s]{1,35}$)");
const Pattern kFax(R"(^[0-9\- \(\)]{1,35}$)");

Ref<clsContact> ContactOf(const Ref<clsSectionIRHeader>& header) {
  return Required(header).PrincipalContact();
}

Ref<clsNameType> NameOf(const Ref<clsSectionIRHeader>& header) {
  return Required(ContactOf(header)).ContactName();
}

}  // namespace

bool vlsCompanyValidator::ValidatePrincipalContact(const Ref<clsSectionIRHeader>& objIRHeader,
                                                   const String& strSourcePrefix) {
  bool result = false;
  Handled(kClass, "Function ValidatePrincipalContact", [&] {
    if (!Required(objIRHeader).HasPrincipalContact()) {
      result = true;
      return;
    }
    clsContact& contact = Required(ContactOf(objIRHeader));
    bool passed = true;
    if (!contact.Validated()) {
      passed &= ValidateContactSurname(objIRHeader, strSourcePrefix);
      passed &= ValidateContactForename(objIRHeader, strSourcePrefix);
      passed &= ValidateContactForename1(objIRHeader, strSourcePrefix);
      passed &= ValidateContactTitle(objIRHeader, strSourcePrefix);
      Required(contact.ContactName()).Validated(passed);
    }
    passed &= ValidateContactEmail(objIRHeader, strSourcePrefix);
    passed &= ValidateContactTelephone(objIRHeader, strSourcePrefix);
    passed &= ValidateContactFax(objIRHeader, strSourcePrefix);
    contact.Validated(passed);
    result = passed;
  });
  return result;
}

bool vlsCompanyValidator::ValidateContactSurname(const Ref<clsSectionIRHeader>& objIRHeader,
                                                 const String& strErrKey) {
  static constexpr Rule kRule{.key = "ContactSurname", .field = "Contact Surname", .code = "E5.1.0"};
  return Check(kRule, strErrKey, [&](Finding& found) {
    const String& surname = found.value = Required(NameOf(objIRHeader)).Surname();
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

bool vlsCompanyValidator::ValidateContactForename(const Ref<clsSectionIRHeader>& objIRHeader,
                                                  const String& strErrKey) {
  static constexpr Rule kRule{.key = "ContactForename", .field = "Contact Forename", .code = "E5.2.0"};
  return Check(kRule, strErrKey, [&](Finding& found) {
    const String& forename = found.value = Required(NameOf(objIRHeader)).Forename();
    // A forename of allowed characters passes here, one that begins with a hyphen among them.
    if (ValidatePattern(forename, kName)) return;
    if (forename.empty()) found.Fail("E5.2.1", "Mandatory", "Contact Forename must be present");
    if (Length(forename) > 35) {
      found.Fail("E5.2.1", "Invalid Contact Forename", "Contact Forename must not exceed 35 characters");
    }
    if (!IsPlainName(forename)) {
      found.Fail("E5.2.2", "Invalid characters",
                 "Invalid characters in Contact Forename1. Field must contain at least one character, begin "
                 "with a letter and only contain the following characters:-  A-Z, a-z, hyphen (-) or "
                 "apostrophe (')");
    }
  });
}

bool vlsCompanyValidator::ValidateContactForename1(const Ref<clsSectionIRHeader>& objIRHeader,
                                                   const String& strErrKey) {
  static constexpr Rule kRule{.key = "ContactForename2", .field = "Contact Forename2", .code = "E5.3.0"};
  return Check(kRule, strErrKey, [&](Finding& found) {
    const String& forename = found.value = Required(NameOf(objIRHeader)).Forename1();
    if (Length(forename) > 35) {
      found.Fail("E5.3.0", "Invalid Contact Forename2", "Contact Forename2 must not exceed 35 characters");
    }
    if (!forename.empty() && !IsPlainName(forename)) {
      found.Fail("E5.3.1", "Invalid characters",
                 "Invalid characters in Contact Forename2. Field must begin with a letter and only contain "
                 "the following characters:-  A-Z, a-z, hyphen (-) or apostrophe (')");
    }
  });
}

bool vlsCompanyValidator::ValidateContactTitle(const Ref<clsSectionIRHeader>& objIRHeader,
                                               const String& strErrKey) {
  static constexpr Rule kRule{.key = "Contact Title", .field = "Contact Title", .code = "E4.5.0"};
  return Check(kRule, strErrKey, [&](Finding& found) {
    const String& title = found.value = Required(NameOf(objIRHeader)).Title();
    if (Length(title) > 35) {
      found.Fail("E5.4.0", "Invalid Contact Title", "Contact Title must not exceed 35 characters");
    }
    if (!title.empty() && !IsPlainName(title)) {
      found.Fail("E5.4.1", "Invalid characters",
                 "Invalid characters in Contact Title. Field must, begin with a letter and only contain the "
                 "following characters:-  A-Z, a-z, hyphen (-) or apostrophe (')");
    }
  });
}

// The addresses share a Source, as the numbers do below: the third failure among them is a processing error,
// and ends the rule.
bool vlsCompanyValidator::ValidateContactEmail(const Ref<clsSectionIRHeader>& objIRHeader,
                                               const String& strErrKey) {
  static constexpr Rule kRule{.key = "Contact Email",
                              .field = "Contact Email Address",
                              .code = "E5.5.0",
                              .what = "the Contact Email Address(es). "};
  return Check(kRule, strErrKey, [&](Finding& found) {
    for (const Ref<clsEmailType>& email : *Required(ContactOf(objIRHeader)).EmailAddresses()) {
      if (Required(email).Validated()) continue;
      found.value = email->EmailAddress();
      email->Validated(CheckEmailAddress(found));
    }
  });
}

bool vlsCompanyValidator::ValidateContactTelephone(const Ref<clsSectionIRHeader>& objIRHeader,
                                                   const String& strErrKey) {
  static constexpr Rule kRule{.key = "Contact Telephone",
                              .field = "Contact Telephone Number",
                              .code = "E5.6.0",
                              .what = "the Contact Telephone Number(s). ",
                              .processing_field = "Contact Telephone"};
  return Check(kRule, strErrKey, [&](Finding& found) {
    for (const Ref<clsTelephoneType>& telephone : *Required(ContactOf(objIRHeader)).Telephone()) {
      if (Required(telephone).Validated()) continue;
      const String& number = found.value = telephone->Number();
      bool passed = true;
      if (!number.empty() && Trim(number).empty()) {
        passed = found.Fail("E5.6.2", "Invalid Contact Telephone",
                            "Contact Telephone Number '" + number +
                                "' is invalid. Please enter as a blank field value or a valid telephone "
                                "number containing the following characters:-  0-9,  hyphen (-) space ( ) or "
                                "brackets ()");
      }
      if (Length(number) > 35) {
        passed = found.Fail("E5.6.0", "Invalid Contact Telephone",
                            "Contact Telephone Number must be between 1 and 35 characters");
      }
      if (!ValidatePattern(number, kTelephone)) {
        passed = found.Fail("E5.6.1", "Error - Invalid characters",
                            "Invalid characters in Contact Telephone Number. Field must only contain the "
                            "following characters:-  0-9,  hyphen (-) space ( ) or brackets ()");
      }
      telephone->Validated(passed);
    }
  });
}

bool vlsCompanyValidator::ValidateContactFax(const Ref<clsSectionIRHeader>& objIRHeader,
                                             const String& strErrKey) {
  static constexpr Rule kRule{.key = "Contact Fax",
                              .field = "Contact Fax Number",
                              .code = "E5.7.0",
                              .what = "the Contact Fax Number(s). ",
                              .processing_field = "Contact Fax"};
  return Check(kRule, strErrKey, [&](Finding& found) {
    for (const Ref<clsFaxType>& fax : *Required(ContactOf(objIRHeader)).Fax()) {
      if (Required(fax).Validated()) continue;
      const String& number = found.value = fax->Number();
      bool passed = true;
      if (Length(number) >= 36) {
        passed = found.Fail("E5.7.0", "Invalid Contact Fax",
                            "Contact Fax Number must be between 1 and 35 characters");
      }
      if (!ValidatePattern(number, kFax)) {
        passed = found.Fail("E5.7.1", "Error - Invalid characters",
                            "Invalid characters in Contact Fax Number. Field must only contain the following "
                            "characters:-  0-9,  hyphen (-) space ( ) or brackets ()");
      }
      fax->Validated(passed);
    }
  });
}

bool vlsCompanyValidator::IsPlainName(const String& text) const {
  return ValidatePattern(Left(text, 1), kFirstLetter) && ValidatePattern(text, kName);
}

}  // namespace zelnor
