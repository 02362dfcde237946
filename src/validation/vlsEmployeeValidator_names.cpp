// Names, NINO, birth date, gender and passport of employees and partners.

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployeeNameType.h"
#include "zelnor/documents/clsEmployeePartnerDetails.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/employee_characters.h"
#include "zelnor/validation/employee_parts.h"
#include "zelnor/validation/pattern.h"
#include "zelnor/validation/today.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

namespace zelnor {
namespace {

const String kWholeNameText = "^[" + kFirstLetters + "]{1}[" + kNameSet + "]{0,34}$";
const Pattern kWholeName(kWholeNameText);
const Pattern kFirstCharacter("^[" + kFirstLetters + "]{1}$");
const Pattern kSecondForename("^(([" + kNameSet + "]{0,35})|([" + kFirstLetters + "]{1}[" + kNameSet +
                              "]{0,34}))$");
// The alternatives aren't enclosed, so that the first matches nothing at the beginning of any text.
const Pattern kPartnerSecondForename("^([" + kNameSet + "]{0,35})|([" + kFirstLetters + "]{1}[" + kNameSet +
                                     "]{0,34})$");

const Pattern kGender("^(M|F|m|f)$");
const Pattern kPassportStart("^[" + WithoutBlanks(kAddressSet) + "]{1}[" + kAddressSet + "]{0,34}$");
const Pattern kPassport("^[" + kAddressSet + "]{1,35}$");

/// The prefixes that NINOs have.
const String kNINOPrefixes =
    "^(AA|AB|AC|AE|AG|AH|AJ|AK|AL|AM|AN|AP|AR|AS|AT|AW|AX|AY|AZ|"
    "BA|BB|BC|BE|BH|BJ|BK|BL|BM|BN|BP|BR|BS|BT|BW|BX|BY|BZ|"
    "CA|CB|CC|CE|CG|CH|CJ|CK|CL|CM|CN|CP|CR|CS|CT|CW|CX|CY|CZ|"
    "EA|EB|EC|EE|EG|EH|EJ|EK|EL|EM|EN|EP|ER|ES|ET|EW|EX|EY|EZ|"
    "GA|GC|GE|GG|GH|GJ|GK|GL|GM|GN|GP|GR|GS|GT|GW|GX|GY|GZ|"
    "HA|HB|HC|HE|HG|HH|HJ|HK|HL|HM|HN|HP|HR|HS|HT|HW|HX|HY|HZ|"
    "JA|JB|JC|JE|JG|JH|JJ|JK|JL|JM|JN|JP|JR|JS|JT|JW|JX|JY|JZ|"
    "KA|KB|KC|KE|KG|KH|KJ|KK|KL|KM|KP|KR|KS|KT|KW|KX|KY|KZ|"
    "LA|LB|LC|LE|LG|LH|LJ|LK|LL|LM|LN|LP|LR|LS|LT|LW|LX|LY|LZ|"
    "MA|MB|MC|ME|MG|MH|MJ|MK|ML|MM|MN|MP|MR|MS|MT|MW|MX|MY|MZ|"
    "NA|NB|NC|NE|NG|NH|NJ|NL|NM|NN|NP|NR|NS|NW|NX|NY|NZ|"
    "OA|OB|OC|OE|OG|OH|OJ|OK|OL|OM|ON|OP|OR|OS|OT|OW|OX|OY|OZ|"
    "PA|PB|PC|PE|PG|PH|PJ|PK|PL|PM|PN|PP|PR|PS|PT|PW|PX|PY|PZ|"
    "RA|RB|RC|RE|RG|RH|RJ|RK|RL|RM|RN|RP|RR|RS|RT|RW|RX|RY|RZ|"
    "SA|SB|SC|SE|SG|SH|SJ|SK|SL|SM|SN|SP|SR|SS|ST|SW|SX|SY|SZ|"
    "TA|TB|TC|TE|TG|TH|TJ|TK|TL|TM|TP|TR|TS|TT|TW|TX|TY|TZ|"
    "WA|WB|WC|WE|WG|WH|WJ|WK|WL|WM|WN|WP|WR|WS|WT|WW|WX|WY|WZ|"
    "XA|XB|XC|XE|XG|XH|XJ|XK|XL|XM|XN|XP|XR|XS|XT|XW|XX|XY|XZ|"
    "YA|YB|YC|YE|YG|YH|YJ|YK|YL|YM|YN|YP|YR|YS|YT|YW|YX|YY|YZ|"
    "ZA|ZB|ZC|ZE|ZG|ZH|ZJ|ZK|ZL|ZM|ZN|ZP|ZR|ZS|ZT|ZW|ZX|ZY)";
const Pattern kNINOWithoutSuffix(kNINOPrefixes + "[0-9]{6}$");
const Pattern kNINO(kNINOPrefixes + "[0-9]{6}[ A-D]{1}$");
const Pattern kNINOCharacters("^[A-Z0-9 ]{1,9}$");
const Pattern kNINOForm("^[A-Z]{2}[0-9]{6}[A-D ]{1}$");
const Pattern kNINOPrefix(kNINOPrefixes);

clsEmployeeNameType& NameOf(const Ref<clsEmployee>& employee) {
  return Required(DetailsOf(employee).Contact());
}

clsEmployeePartnerDetails& PartnerOf(const Ref<clsEmployee>& employee) {
  return Required(DetailsOf(employee).PartnerDetails());
}

clsEmployeeNameType& PartnerNameOf(const Ref<clsEmployee>& employee) {
  return Required(PartnerOf(employee).Contact());
}

/// The NINO of employee or partner, with the blank for a missing suffix behind it, in the record as well.
template <class Details>
String CompletedNINO(Details& details) {
  String nino = details.NINO();
  if (Length(nino) == 8 && kNINOWithoutSuffix.Test(nino)) {
    nino += " ";
    details.NINO(nino);
  }
  return nino;
}

}  // namespace

/// What tells the employee's NINO rule from the partner's.
struct vlsEmployeeValidator::NINOCodes {
  std::string_view characters;
  std::string_view form;
  std::string_view prefix;
  std::string_view prefix_message;
};

bool vlsEmployeeValidator::BeginsWithLetter(const String& text) const {
  return ValidatePattern(Left(text, 1), kFirstCharacter);
}

bool vlsEmployeeValidator::ValidateSurname(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors,
                                           const String& strErrKey) {
  static constexpr Rule kRule{.key = "Surname", .field = "Surname", .code = "E4.1.0"};
  return CheckOf(
      objEmployee, kRule, strErrKey,
      [&](Finding& found) {
        const String surname = found.value = NameOf(objEmployee).Surname();
        if (surname.empty()) {
          found.Fail("E4.1.1", "Mandatory", "Surname must be present");
        } else if (Length(surname) > 35) {
          found.Fail("E4.1.2a", "Invalid length", "Employee Surname must not exceed 35 characters");
        } else if (!BeginsWithLetter(surname) || !ValidatePattern(surname, kWholeName)) {
          found.Fail("E4.1.2", "Invalid characters",
                     "Invalid characters in Employee Surname. Field must contain at least one character, "
                     "begin with a letter and only contain the following characters:-  A-Z, a-z, space, "
                     "hyphen (-) or apostrophe (')");
        }
      },
      blnRaiseErrors);
}

bool vlsEmployeeValidator::ValidateForename(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors,
                                            const String& strErrKey) {
  static constexpr Rule kRule{.key = "Forename", .field = "Forename", .code = "E4.2.0"};
  return CheckOf(
      objEmployee, kRule, strErrKey,
      [&](Finding& found) {
        const String forename = found.value = NameOf(objEmployee).Forename();
        if (ValidatePattern(forename, kWholeName)) return;
        if (forename.empty() || Length(forename) > 35) {
          found.Fail("E4.2.1", "Mandatory", "Forename must be present");
        } else {
          found.Fail("E4.2.2", "Invalid characters",
                     "Invalid characters in Forename. Field must contain at least one character, begin with "
                     "a letter and only contain the following characters:-  A-Z, a-z, space, hyphen (-) or "
                     "apostrophe (')");
        }
      },
      blnRaiseErrors);
}

bool vlsEmployeeValidator::ValidateForename1(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors,
                                             const String& strErrKey) {
  static constexpr Rule kRule{
      .key = "Forename1", .field = "Forename1", .code = "E4.3.0", .what = "the Supplementary Forename. "};
  return CheckOf(
      objEmployee, kRule, strErrKey,
      [&](Finding& found) {
        const String forename = found.value = NameOf(objEmployee).Forename1();
        if (forename.empty()) return;
        const bool matches = ValidatePattern(forename, kSecondForename);
        const bool too_long = Length(forename) > 35;
        if (!matches && too_long) {
          found.Fail("E4.3.1a", "Invalid format",
                     "Invalid Employee Forename. Field must not exceed 35 characters");
        }
        if ((!matches && !too_long) || !BeginsWithLetter(forename)) {
          found.Fail("E4.3.1", "Invalid characters",
                     "Invalid characters in Forename. Field must contain at least one character, begin with "
                     "a letter and only contain the following characters:-  A-Z, a-z, space, hyphen (-) or "
                     "apostrophe (')");
        }
      },
      blnRaiseErrors);
}

// The message allows a full stop, which the rule doesn't.
bool vlsEmployeeValidator::ValidateTitle(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors,
                                         const String& strErrKey) {
  static constexpr Rule kRule{.key = "Title", .field = "Title", .code = "E4.5.0"};
  return CheckOf(
      objEmployee, kRule, strErrKey,
      [&](Finding& found) {
        const String title = found.value = NameOf(objEmployee).Title();
        if (title.empty()) return;
        if (Length(title) > 35) {
          found.Fail("E4.5.1a", "Invalid format",
                     "Invalid Employee Title. Field must not exceed 35 characters");
        } else if (!BeginsWithLetter(title) || !ValidatePattern(title, kWholeName)) {
          found.Fail("E4.5.1", "Invalid characters",
                     "Invalid characters in Employee Title. Field must begin with a letter and only contain "
                     "the following characters:-  A-Z, a-z, space, hyphen (-)  apostrophe (') or full stop");
        }
      },
      blnRaiseErrors);
}

// Three failures of one Source are one too many: the third is a processing error.
void vlsEmployeeValidator::CheckNINO(Finding& found, const NINOCodes& codes) const {
  if (ValidatePattern(found.value, kNINO)) return;
  if (!ValidatePattern(found.value, kNINOCharacters)) {
    found.Fail(codes.characters, "Invalid characters",
               "Invalid characters in NI Number. Field must contain the following characters:-  A-Z, a-z, "
               "0-9 or space");
  }
  if (!ValidatePattern(found.value, kNINOForm)) {
    found.Fail(codes.form, "Invalid characters",
               "Invalid format. NI Number must be in format AA99999X where A is a letter and 9 is a number "
               "and X is A, B, C, D or Space.");
  }
  if (!ValidatePattern(found.value, kNINOPrefix)) {
    found.Fail(codes.prefix, "Invalid Prefix", codes.prefix_message);
  }
}

bool vlsEmployeeValidator::ValidateEmployeeNINO(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors,
                                                const String& strErrKey) {
  static constexpr Rule kRule{.key = "NINO", .field = "NI Number", .code = "E4.9.0"};
  static constexpr NINOCodes kCodes{"E4.9.1", "E4.9.2", "E4.9.3", "Invalid NI Number Prefix."};
  return CheckOf(
      objEmployee, kRule, strErrKey,
      [&](Finding& found) {
        found.value = CompletedNINO(DetailsOf(objEmployee));
        if (!found.value.empty()) CheckNINO(found, kCodes);
      },
      blnRaiseErrors);
}

bool vlsEmployeeValidator::ValidateEmployeeDateOfBirth(const Ref<clsEmployee>& objEmployee,
                                                       bool blnRaiseErrors, const String& strErrKey) {
  static constexpr Rule kRule{.key = "DateOfBirth", .field = "Date of Birth", .code = "E4.10.0"};
  return CheckOf(
      objEmployee, kRule, strErrKey,
      [&](Finding& found) {
        const Date birth = DetailsOf(objEmployee).DateOfBirth();
        if (birth.IsZero()) {
          if (objEmployee->HasPaymentToANonIndividualSet()) return;
          found.Fail("E4.10.1", "Mandatory Field", "Date of Birth must be present");
          return;
        }
        const Date today = Today();
        const bool later_than_today = birth > today;
        const bool too_long_ago = birth < today.AddMonths(-130 * 12);
        if (!later_than_today && !too_long_ago) return;
        found.value = DayText(birth);
        if (later_than_today) found.Fail("E4.10.2", "Today", "Date of birth must be earlier than today");
        if (too_long_ago) {
          found.Fail("E4.10.3", "130 Years",
                     "Date of birth must be later than 130 years before today’s date");
        }
      },
      blnRaiseErrors);
}

// Any value but 0 is "F", so that none fails.
bool vlsEmployeeValidator::ValidateEmployeeGender(const Ref<clsEmployee>& objEmployee,
                                                  const String& strErrKey) {
  static constexpr Rule kRule{.key = "Gender", .field = "Gender", .code = "E4.11.0"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    found.value = DetailsOf(objEmployee).Gender() == EMPLOYEE_GENDER::M ? "M" : "F";
    if (!ValidatePattern(found.value, kGender)) {
      found.Fail("E4.11.1", "Mandatory", "Gender must be present");
    }
  });
}

bool vlsEmployeeValidator::ValidateEmployeePassportNo(const Ref<clsEmployee>& objEmployee,
                                                      const String& strErrKey) {
  static constexpr Rule kRule{.key = "PassportNo", .field = "Passport No", .code = "E4.12.0"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const String passport = found.value = DetailsOf(objEmployee).PassportNo();
    if (passport.empty() || ValidatePattern(passport, kPassportStart)) return;
    if (Length(passport) > 35) {
      found.Fail("E4.12.1a", "Invalid Passport No", "Passport No must not exceed 35 characters");
    }
    if (!ValidatePattern(passport, kPassport) || passport.starts_with(" ")) {
      found.Fail("E4.12.1", "Invalid format",
                 "Invalid characters in Passport Number. Field must not begin with a space and only contain "
                 "the following characters:-  A-Z, a-z, 0-9, hyphen (-)  apostrophe ('),  full stop, "
                 "comma(,), forward slash (/), equals sign (=), exclamation mark (!), quotes (\"), percent "
                 "(%), ampersand (&), asterisk (*), greater than (>), less than(<), plus(+), colon(:), "
                 "question mark (?), space ( ), semi-colon (;) or brackets ()");
    }
  });
}

// --- The partner ---

bool vlsEmployeeValidator::ValidatePartnerSurname(const Ref<clsEmployee>& objEmployee,
                                                  const String& strErrKey) {
  static constexpr Rule kRule{.key = "PartnerSurname",
                              .field = "Partner Surname",
                              .code = "E4.13.2.0",
                              .what = "the Employee Partner Surname. "};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const String surname = found.value = PartnerNameOf(objEmployee).Surname();
    if (ValidatePattern(surname, kWholeName)) return;
    if (surname.empty()) {
      found.Fail("E4.13.2.1", "Mandatory", "Partner Surname must be present");
    } else if (Length(surname) > 35) {
      found.Fail("E4.13.2.3", "Invalid Surname", "Partner Surname must not exceed 35 characters");
    } else {
      found.Fail("E4.13.2.2", "Invalid characters",
                 "Invalid characters in Employee Partner Surname. Field must contain at least one "
                 "character, begin with a letter and only contain the following characters:-  A-Z, a-z, "
                 "space, hyphen (-) or apostrophe (')");
    }
  });
}

bool vlsEmployeeValidator::ValidatePartnerForename(const Ref<clsEmployee>& objEmployee,
                                                   const String& strErrKey) {
  static constexpr Rule kRule{.key = "PartnerForename", .field = "Partner Forename", .code = "E4.13.3.0"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const String forename = found.value = PartnerNameOf(objEmployee).Forename();
    if (forename.empty() || ValidatePattern(forename, kWholeName)) return;
    if (Length(forename) > 35) {
      found.Fail("E4.13.3.3", "Invalid Forename", "Partner Forename must not exceed 35 characters");
    } else {
      found.Fail("E4.13.3.2", "Invalid characters",
                 "Invalid characters in Partner Forename. Field must contain at least one character, begin "
                 "with a letter and only contain the following characters:-  A-Z, a-z, space, hyphen (-) or "
                 "apostrophe (')");
    }
  });
}

bool vlsEmployeeValidator::ValidatePartnerForename1(const Ref<clsEmployee>& objEmployee,
                                                    const String& strErrKey) {
  static constexpr Rule kRule{.key = "PartnerForename1",
                              .field = "Partner Forename1",
                              .code = "E4.13.4.0",
                              .what = "the Partner Supplementary Forename. "};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const String forename = found.value = PartnerNameOf(objEmployee).Forename1();
    if (ValidatePattern(forename, kPartnerSecondForename)) return;
    if (Length(forename) > 35) {
      found.Fail("E4.13.4.1a", "Invalid format",
                 "Invalid Employee Partner Forename1. Field must not exceed 35 characters");
    } else {
      found.Fail("E4.13.4.1", "Invalid characters",
                 "Invalid characters in Partner Forename1. Field must contain at least one character, begin "
                 "with a letter and only contain the following characters:-  A-Z, a-z, space, hyphen (-) or "
                 "apostrophe (')");
    }
  });
}

bool vlsEmployeeValidator::ValidatePartnerNINO(const Ref<clsEmployee>& objEmployee, const String& strErrKey) {
  static constexpr Rule kRule{
      .key = "PartnerNINO", .field = "Partner NI Number", .code = "E4.13.1.0", .what = "the NI Number. "};
  static constexpr NINOCodes kCodes{"E4.13.1.1", "E4.13.1.2", "E4.13.1.3",
                                    "Invalid NI Number Prefix- Partner Details."};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    found.value = CompletedNINO(PartnerOf(objEmployee));
    if (Length(found.value) == 9) CheckNINO(found, kCodes);
  });
}

bool vlsEmployeeValidator::ValidatePartnerNameRule(const Ref<clsEmployee>& objEmployee,
                                                   const String& strErrKey) {
  static constexpr Rule kRule{.key = "PartnerNameRule", .field = "Partner Name", .code = "E4.13.3.0"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    if (!DetailsOf(objEmployee).HasPartnerDetails()) return;
    const clsEmployeeNameType& name = PartnerNameOf(objEmployee);
    if (name.Surname().empty()) {
      found.Fail("E4.13.2.1", "Error - Mandatory",
                 "Partner Surname must be present when Partner Details are included in file.");
    }
    if (name.Forename().empty()) {
      found.Fail("E4.13.3.1", "Error - Mandatory",
                 "Partner Forename must be present when Partner Details are included in file.");
    }
  });
}

}  // namespace zelnor
