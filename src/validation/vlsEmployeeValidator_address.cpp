// The address of an employee.

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeAddress.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsStarter.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/employee_characters.h"
#include "zelnor/validation/employee_parts.h"
#include "zelnor/validation/pattern.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

#include <array>

namespace zelnor {
namespace {

const Pattern kGoodLine("^[" + kFirstOfAddress + "]{1}[" + kAddressSet + "]{0,34}$");
const Pattern kFirstOfLine("^[" + kFirstOfAddress + "]{0,35}$");
const Pattern kWholeLine("^[" + kAddressSet + "]{1,35}$");
const Pattern kForeignCountry("^[A-Za-z]{1,1}[" + kAddressSet + "]{0,34}$");

// "^" belongs to the first alternative alone: a text that ends in a postcode passes.
const Pattern kPostcode(
    "^(GIR[ ]{0,1}0AA)|([A-PR-UWYZa-pr-uwyz]{1}[A-HK-Ya-hk-y0-9]{1}[A-HJKSTUW0-9]{0,1}"
    "[ABEHMNPRVWXY0-9]{0,1}[ ]{0,1}[0-9]{1}[A-Za-z]{2})$");
const Pattern kInwardCode("[0-9]{1}[a-zA-Z]{2}$");

/// Whether the first character of a text is one of a set; False for no text.
bool BeginsWithOneOf(std::string_view text, std::string_view set) {
  return !text.empty() && set.find(text.front()) != std::string_view::npos;
}

}  // namespace

bool vlsEmployeeValidator::ValidateAddressLines(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors,
                                                const String& strErrKey) {
  static constexpr Rule kRule{.key = "AddressLine",
                              .field = "Address Line",
                              .code = "E4.6.0",
                              .what = "the Address Lines. ",
                              .processing_field = "Address Line"};
  return CheckOf(
      objEmployee, kRule, strErrKey,
      [&](Finding& found) {
        const bool has_address = DetailsOf(objEmployee).HasAddress();  // asked first: reading one makes one
        const clsEmployeeAddress& address = AddressOf(objEmployee);
        const std::array lines = {address.Address1(), address.Address2(), address.Address3(),
                                  address.Address4()};
        int first = 0;
        int count = 0;
        for (int number = 1; number <= 4; ++number) {
          const String& line = lines.at(static_cast<std::size_t>(number) - 1);
          if (line.empty()) continue;
          if (first == 0) first = number;
          ++count;
          if (ValidatePattern(line, kGoodLine)) continue;
          found.value = line;
          found.At("AddressLine" + ToText(number), "Address Line " + ToText(number));
          if (Length(line) > 35) {
            found.Fail("E4.6.1a", "Invalid characters",
                       "Invalid Employee Address Line. Field must not exceed 35 characters");
          }
          if (!ValidatePattern(Left(line, 1), kFirstOfLine) || !ValidatePattern(line, kWholeLine)) {
            found.Fail("E4.6.1", "Invalid characters",
                       "Invalid characters in Employee Address. Field must begin with a letter or number and "
                       "only contain the following characters:-  A-Z, a-z, 0-9, space, hyphen (-)  "
                       "apostrophe ('),  full stop, comma(,), forward slash (/), equals sign (=), "
                       "exclamation mark (!), quotes (\"), percent (%), ampersand (&), asterisk (*), greater "
                       "than (>), less than(<), plus(+), colon(:), question mark (?) or brackets ()");
          }
        }
        found.value.clear();
        if (first > 1) {
          found.At("BlankAddressLine", "Address Line " + ToText(first - 1));
          found.Fail("E4.6.1b", "Missing Address Line", "BlankAddressLine");
        }
        if (count > 0) return;
        if (!address.Postcode().empty()) {
          found.value = ToText(count);
          found.At("NoAddressLines", "Address Lines");
          found.Fail("E4.6.1c", "Invalid Address", "NoAddressLines");
        } else if (has_address) {
          found.At("AddressLine", "Address Line");
          found.Fail("E11.4.1.2", "Mandatory",
                     "If Address is present then an entry in AddressLine or Postcode must be present");
        }
      },
      blnRaiseErrors);
}

bool vlsEmployeeValidator::ValidateForeignCountry(const Ref<clsEmployee>& objEmployee,
                                                  const String& strErrKey) {
  static constexpr Rule kRule{.key = "ForeignCountry",
                              .field = "Foreign Country",
                              .code = "E4.8.0",
                              .what = "the Foreign Country. ",
                              .processing_field = "Foreign Country"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const clsEmployeeAddress& address = AddressOf(objEmployee);
    const String country = found.value = address.ForeignCountry();
    if (country.empty() || Length(country) >= 36) {
      found.Fail("E4.8.1", "Invalid Length",
                 "Invalid Employee Address. Foreign Country field length must be between 1 and 35 "
                 "characters.");
    }
    if (!ValidatePattern(country, kForeignCountry)) {
      found.Fail("E4.8.2", "Invalid characters",
                 "Invalid characters in Employee Address. Foreign Country field must begin with a letter and "
                 "only contain the following characters:-  A-Z, a-z, 0-9, space, hyphen (-)  apostrophe "
                 "('),  full stop, comma(,), forward slash (/), equals sign (=), exclamation mark (!), "
                 "quotes (\"), percent (%), ampersand (&), asterisk (*), greater than (>), less than(<), "
                 "plus(+), colon(:), question mark (?) or brackets ()");
    }
    if (!address.Postcode().empty() && !country.empty()) {
      found.value = address.Postcode() + " / " + country;
      found.At("ForeignCountry", "Postcode / Foreign Country");
      found.Fail("E4.8.3", "Invalid Address",
                 "Employee Address Postcode and Foreign Country fields are mutually exclusive but are both "
                 "populated.");
    }
    found.And(ValidateAddressCountryRule(objEmployee, strErrKey));
  });
}

bool vlsEmployeeValidator::ValidateAddressCountryRule(const Ref<clsEmployee>& objEmployee,
                                                      const String& strErrKey) {
  static constexpr Rule kRule{
      .key = "AddressCountryRule", .field = "Address / Foreign Country rule", .code = "E4.8.1.0"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const clsEmployeeAddress& address = AddressOf(objEmployee);
    if (!address.ForeignCountry().empty() && address.PopulatedAddressLineCount() < 2) {
      found.Fail("E4.7.3", "Error - Address Lines Missing",
                 "At least two address lines must be present when the Foreign Country is present.");
    }
  });
}

bool vlsEmployeeValidator::ValidatePostcode(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors,
                                            const String& strErrKey) {
  static constexpr Rule kRule{.key = "Postcode", .field = "Postcode", .code = "E4.7.0"};
  return CheckOf(
      objEmployee, kRule, strErrKey,
      [&](Finding& found) {
        const String postcode = found.value = AddressOf(objEmployee).Postcode();
        const std::size_t length = Length(postcode);
        if (!ValidatePattern(postcode, kPostcode) || postcode.starts_with(" ")) {
          if (length > 10) {
            found.Fail("E4.7.1a", "Invalid Format", "Postcode must not exceed 10 characters.");
          } else if (length > 0) {
            found.Fail("E4.7.1", "Invalid characters",
                       "Invalid characters in Postcode. Field must begin with a letter and only contain the "
                       "following characters:-  A-Z, a-z, 0-9 or space");
            if (!IsValidPostcode(postcode)) {
              found.Fail("E4.7.2", "Invalid Format", "Invalid Postcode format");
            }
          }
        }
        found.And(ValidateAddressPostcodeRule(objEmployee, blnRaiseErrors, strErrKey));
      },
      blnRaiseErrors);
}

bool vlsEmployeeValidator::ValidateAddressPostcodeRule(const Ref<clsEmployee>& objEmployee,
                                                       bool blnRaiseErrors, const String& strErrKey) {
  static constexpr Rule kRule{
      .key = "AddressPostcodeRule", .field = "Address / Postcode rule", .code = "E4.7.0"};
  return CheckOf(
      objEmployee, kRule, strErrKey,
      [&](Finding& found) {
        const clsEmployeeAddress& address = AddressOf(objEmployee);
        if (address.Postcode().empty() && address.PopulatedAddressLineCount() > 0) {
          found.Fail("E4.7.3", "Error - Postcode Missing",
                     "Postcode must be present when any other address line is present.");
        }
      },
      blnRaiseErrors);
}

bool vlsEmployeeValidator::ValidateAddressNINORule(const Ref<clsEmployee>& objEmployee,
                                                   const String& strErrKey) {
  static constexpr Rule kRule{.key = "AddressNINORule",
                              .field = "NI Number",
                              .code = "E16.1.0",
                              .what = "the Address/NINO Rule. ",
                              .processing_field = "Address/NINO Rule"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    found.value = DetailsOf(objEmployee).NINO();
    if (found.value.empty() && AddressOf(objEmployee).PopulatedAddressLineCount() < 2) {
      found.Fail("E16.1", "Error - NI Number",
                 "If NINO is blank at least two lines of address must be included.");
    }
  });
}

bool vlsEmployeeValidator::ValidateAddressStartDateRule(const Ref<clsEmployee>& objEmployee,
                                                        const Ref<clsEmployment>& objEmployment,
                                                        const String& strErrKey) {
  static constexpr Rule kRule{.key = "AddressStartDateRule",
                              .field = "Address Line / Starter Date",
                              .code = "E16.2.0",
                              .what = "the Address/Start Date rule. "};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const clsEmployeeAddress& address = AddressOf(objEmployee);
    int lines = 0;
    for (const String& line :
         {address.Address1(), address.Address2(), address.Address3(), address.Address4()}) {
      if (!Trim(line).empty()) ++lines;
    }
    if (lines < 2 && !Required(Required(objEmployment).Starter()).StartDate().IsZero()) {
      found.Fail("E16.2", "Error - Start Date",
                 "When Start Date is present at least two address lines must be completed");
    }
  });
}

// The positions of the third and fourth characters are counted with the blank.
bool vlsEmployeeValidator::IsValidPostcode(const String& text) const {
  const String postcode = UpperCase(text);
  if (postcode == "GIR 0AA") return true;
  static constexpr std::array kMasks = {"ANNAA", "ANNNAA", "AANNAA", "AANNNAA", "ANANAA", "AANANAA"};
  if (std::find(kMasks.begin(), kMasks.end(), PostcodeMask(postcode)) == kMasks.end()) return false;
  if (BeginsWithOneOf(postcode, "QVX")) return false;
  if (BeginsWithOneOf(Mid(postcode, 2), "IJZ")) return false;
  const String third = Mid(postcode, 3);
  if (!BeginsWithOneOf(third, "ABCDEFGHJKSTUW")) return false;
  if (!IsNumeric(Mid(postcode, 4, 1)) && !BeginsWithOneOf(third, "ABEJMNPRVWXY")) return false;
  const String inward = Right(postcode, 3);
  return ValidatePattern(inward, kInwardCode) && inward.find_first_of("OMKVCI") == String::npos;
}

String vlsEmployeeValidator::PostcodeMask(const String& text) {
  String mask;
  for (int i = 1; i <= static_cast<int>(Length(text)); ++i) {
    const String c = Mid(text, i, 1);
    if (c == " ") continue;
    mask += IsNumeric(c) ? "N" : "A";
  }
  return mask;
}

}  // namespace zelnor
