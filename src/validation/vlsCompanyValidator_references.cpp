#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/validation/contracting_out_number.h"
#include "zelnor/validation/pattern.h"
#include "zelnor/validation/vlsCompanyValidator.h"

#include <algorithm>
#include <array>

namespace zelnor {
namespace {

constexpr std::string_view kClass = "vlsCompanyValidator";

const Pattern kPayeRef(
    R"re(^[a-zA-Z0-9\.,\-\(\)/=!"%&\*;<>'\+:\?]{1}[a-zA-Z0-9  \.,\-\(\)/=!"%&\*;<>'\+:\?]{0,9}$)re");
const Pattern kAORef("^[0-9]{3}P[A-Z]{1}[0-9]{7}[0-9X]{1}[0-9]{0,4}$");
const Pattern kAORefWithLetter("^[0-9]{3}P[A-Z]{1}[0-9]{7}[A-Z][0-9]{0,4}$");
const Pattern kECON("E3[0-9]{6}[ABCDEFHJKLMNPQRTWXY]");
const Pattern kTenDigits("^[0-9]{10}$");

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Whether a text of ASCII has this length, so that its bytes are its characters.
bool IsAsciiOf(std::size_t length, const String& text) {
  return text.size() == length && Length(text) == length;
}

/// The accounts office's letter for a remainder on division by 23.
char AORefCheckLetter(int remainder) { return "ABCDEFGHXJKLMNYPQRSTZVW"[remainder]; }

/// Whether the fifth character is the check letter of an accounts office reference.
bool IsValidAORefCheckLetter(const String& reference) {
  if (!IsAsciiOf(13, reference) && !IsAsciiOf(17, reference)) return false;
  if (UpperCase(reference.substr(3, 1)) != "P") return false;
  int sum = 0;
  int value = 0;
  for (int position = 1; position <= 13; ++position) {
    if (position == 5) continue;
    const char c = reference[static_cast<std::size_t>(position) - 1];
    // Any other letter counts as much as what stands before it.
    if (IsDigit(c)) value = c - '0';
    if (c == 'P') value = 48;
    if (c == 'X') value = 41;
    sum += value * (position <= 4 ? position + 8 : 14 - position);
  }
  return reference[4] == AORefCheckLetter(sum % 23);
}

/// Whether the last character is the check letter of a contracting-out number.
bool IsValidECONCheckLetter(const String& econ) {
  return econ.starts_with("E3") && HasContractingOutCheckLetter(econ, 37);
}

/// Whether the first digit is the check digit of a tax reference. Both kinds have the same.
bool ValidateUTR(const String& reference, etaxEmpRefTaxRef /*type*/) {
  static constexpr std::array<int, 10> kWeights = {0, 6, 7, 8, 9, 10, 5, 4, 3, 2};
  if (!IsAsciiOf(kWeights.size(), reference) || !std::all_of(reference.begin(), reference.end(), IsDigit)) {
    return false;
  }
  int sum = 0;
  for (std::size_t i = 0; i < kWeights.size(); ++i) sum += (reference[i] - '0') * kWeights[i];
  int check = 11 - sum % 11;
  if (check > 9) check -= 9;
  return reference[0] - '0' == check;
}

}  // namespace

bool vlsCompanyValidator::ValidateEmployerRefs(const Ref<clsEmployerReferences>& objEmployerRefs,
                                               eRTISUBMISSIONTYPE eniType, const String& strSourcePrefix) {
  bool result = false;
  Handled(kClass, "Function ValidateEmployerRefs", [&] {
    const bool is_eyu = eniType == eRTISUBMISSIONTYPE::IsEYU;
    if (objEmployerRefs && objEmployerRefs->Validated()) {
      if (is_eyu) is_econ_present_ = !objEmployerRefs->ECON().empty();
      result = true;
      return;
    }
    bool passed = ValidateHMRCOfficeNumber(objEmployerRefs, strSourcePrefix);
    passed &= ValidateEmployerPAYERef(objEmployerRefs, strSourcePrefix);
    passed &= ValidateAccountsOfficeRef(objEmployerRefs, strSourcePrefix);
    if (is_eyu) {
      passed &= ValidateECON(objEmployerRefs, strSourcePrefix);
      is_econ_present_ = !Required(objEmployerRefs).ECON().empty();
    } else {
      passed &= ValidateSAUTROrCOTAXRef(objEmployerRefs, strSourcePrefix);
    }
    Required(objEmployerRefs).Validated(passed);
    result = passed;
  });
  return result;
}

bool vlsCompanyValidator::ValidateHMRCOfficeNumber(const Ref<clsEmployerReferences>& objEmployerRefs,
                                                   const String& strSourcePrefix) {
  static constexpr Rule kRule{.key = "HMRCOfficeNumber",
                              .field = "HMRCOfficeNumber",
                              .code = "E3.1.0",
                              .what = "the HMRC Office Number. "};
  return Check(kRule, strSourcePrefix, [&](Finding& found) {
    const String& number = found.value = Required(objEmployerRefs).OfficeNo();
    if (Length(number) != 3) {
      found.Fail("E3.1.1", "Mandatory", "HMRC Office Number must be present");
    } else if (!IsNumeric(number)) {
      found.Fail("E3.1.2", "Invalid Characters",
                 "Invalid characters in HMRC Office Number. Field must only contain the following "
                 "characters:-  0-9");
    }
    if (number == "000") {
      found.Fail("E3.1.3", "Invalid Office No.",
                 "Invalid HMRC Office Number. Office Number must be 3 integers e.g. ‘008’ and cannot be set "
                 "to 000");
    }
  });
}

bool vlsCompanyValidator::ValidateEmployerPAYERef(const Ref<clsEmployerReferences>& objEmployerRefs,
                                                  const String& strSourcePrefix) {
  static constexpr Rule kRule{.key = "EmployerPAYERef",
                              .field = "EmployerPAYERef",
                              .code = "E3.1.0",
                              .what = "the Employer PAYE Reference. ",
                              .title = "Mandatory"};
  return Check(kRule, strSourcePrefix, [&](Finding& found) {
    const String& reference = found.value = Required(objEmployerRefs).PayeRef();
    if (reference.empty() || Length(reference) > 10) {
      found.Fail("E3.2.1", "Mandatory",
                 "HMRC Employer PAYE Reference must be present and not exceed 10 characters in length");
    }
    if (!ValidatePattern(reference, kPayeRef) || reference.starts_with(' ')) {
      found.Fail("E3.2.2", "Invalid characters",
                 "Field must contain at least one character, not begin with a space and only contain the "
                 "following characters:-  A-Z, a-z, 0-9, hyphen (-)  apostrophe ('),  full stop, comma(,), "
                 "forward slash (/), equals sign (=), exclamation mark (!), quotes (“), percent (%), "
                 "ampersand (&), asterisk (*), greater than (>), less than(<), plus(+), colon(:), question "
                 "mark (?), space ( ) or brackets ()");
    }
  });
}

bool vlsCompanyValidator::ValidateAccountsOfficeRef(const Ref<clsEmployerReferences>& objEmployerRefs,
                                                    const String& strSourcePrefix) {
  static constexpr Rule kRule{.key = "AORef",
                              .field = "AORef",
                              .code = "E3.3.0",
                              .what = "the HMRC Employer Accounts Office Reference. "};
  static constexpr const char* kInvalid = "Invalid Accounts Office Reference";
  static constexpr const char* kInvalidText = "Invalid HMRC Employer Accounts Office Reference.";
  return Check(kRule, strSourcePrefix, [&](Finding& found) {
    const String& reference = found.value = Required(objEmployerRefs).AORef();
    if (reference.empty()) {
      found.Fail("E3.3.1", "Mandatory", "HMRC Employer Accounts Office Reference must be present");
    }
    const std::size_t length = Length(reference);
    if (length != 13 && length != 17) {
      found.Fail("E3.3.3", kInvalid, kInvalidText);
      return;
    }
    if (!ValidatePattern(reference, kAORef)) {
      found.Fail("E3.3.2", "Invalid characters",
                 "Field must contain thirteen characters and only contain the following characters:- A-Z, "
                 "a-z, 0-9");
    }
    // The check letter counts only where the thirteenth character is a letter.
    if (!IsValidAORefCheckLetter(reference) && ValidatePattern(reference, kAORefWithLetter)) {
      found.Fail("E3.3.3", kInvalid, kInvalidText);
    }
  });
}

bool vlsCompanyValidator::ValidateECON(const Ref<clsEmployerReferences>& objEmployerRefs,
                                       const String& strSourcePrefix) {
  static constexpr Rule kRule{.key = "ECON",
                              .field = "ECON",
                              .code = "E12.3.0",
                              .what = "the Employer Contracted Out Number [ECON]. "};
  return Check(kRule, strSourcePrefix, [&](Finding& found) {
    const String& econ = found.value = Required(objEmployerRefs).ECON();
    is_econ_present_ = !econ.empty();
    if (econ.empty()) return;
    if (!ValidatePattern(econ, kECON)) {
      found.Fail("E12.3.1", "Invalid Format",
                 "ECON Number must be in format E399999A where A is a letter and 9 is a number.");
    }
    if (!IsValidECONCheckLetter(econ)) {
      found.Fail("E12.3.2", "Modulus Invalid ECON Number", "ECON number has failed the Modulus 19 check.");
    }
  });
}

bool vlsCompanyValidator::ValidateSAUTROrCOTAXRef(const Ref<clsEmployerReferences>& objEmployerRefs,
                                                  const String& strSourcePrefix) {
  static constexpr Rule kRule{.key = "",
                              .field = "",
                              .code = "E3.4.0",
                              .what = "the SAUTR or COTAXRef fields. ",
                              .processing_field = "SAUTR or COTAXRef"};
  static constexpr const char* kTitle = "Mandatory";
  return Check(kRule, strSourcePrefix, [&](Finding& found) {
    const clsEmployerReferences& references = Required(objEmployerRefs);
    String name;
    if (references.HasCOTAXRef()) {
      name = "Company Tax Reference";
      found.At("COTAXRef", name);
    } else if (references.HasSAUTR()) {
      name = "Self Assessment Unique Tax Reference";
      found.At("SAUTR", name);
    }
    const etaxEmpRefTaxRef type = references.SAUTROrCOTAXRefType();
    if (type == etaxEmpRefTaxRef::extUndefined) return;
    const String& reference = found.value = references.SAUTROrCOTAXRef();
    if (reference.empty()) found.Fail("E3.4.1", kTitle, "HMRC " + name + " must be present");
    if (Length(reference) != 10) {
      found.Fail(
          "E3.4.2", kTitle,
          "HMRC " + name + " must be contain ten characters and only contain the following characters:- 0-9");
    } else if (!ValidatePattern(reference, kTenDigits)) {
      found.Fail("E3.4.3", kTitle, "HMRC " + name + " must only contain the following characters:- 0-9");
    }
    if (!ValidateUTR(reference, type)) found.Fail("E3.4.4", kTitle, "Invalid " + name + ".");
  });
}

}  // namespace zelnor
