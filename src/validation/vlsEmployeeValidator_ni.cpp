#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsNILettersAndValues.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/formats.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/contracting_out_number.h"
#include "zelnor/validation/employee_parts.h"
#include "zelnor/validation/pattern.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

#include <algorithm>
#include <vector>

namespace zelnor {
namespace {

using enum eRTISUBMISSIONTYPE;

const Pattern kSCON("^S[0-9]{7}[ABCDEFHJKLMNPQRTWXY]$");

/// Whether a text is one of these letters.
bool IsOneOf(std::string_view letter, std::string_view letters) {
  return letter.size() == 1 && letters.find(letter) != std::string_view::npos;
}

constexpr Currency Pence(std::int64_t pence) { return Currency::FromUnits(pence * 100); }

}  // namespace

/// A value of an NI letter, and its range.
struct vlsEmployeeValidator::NIRow {
  Rule rule;
  Currency (clsNILettersAndValues::*value)() const;
  std::string_view code;     ///< of a value out of its range
  std::string_view message;  ///< of one; empty for the range's own
  Currency low;
  Currency high;
  Currency low_of_eyu;
  Currency low_of_fps;
  bool whole_pounds = false;
  bool fps_only = false;  ///< whether documents other than an FPS have no range

  std::string_view zero_letters = {};  ///< the letters for which the value must be zero
  bool upper_cased = false;            ///< whether they are meant in any case
  std::string_view zero_code = {};
  std::string_view zero_title = "NI Letter";
  std::string_view zero_message = "Value must be zero when NI Letter is X";
};

bool vlsEmployeeValidator::CheckNI(const NIRow& row, const Ref<clsEmployee>& objEmployee,
                                   const Ref<clsNILettersAndValues>& objNILetter, eRTISUBMISSIONTYPE eniType,
                                   const String& strErrKey) {
  return CheckOf(objEmployee, row.rule, strErrKey, [&](Finding& found) {
    const Currency value = (Required(objNILetter).*row.value)();
    const Currency low = eniType == IsEYU ? row.low_of_eyu : eniType == IsFPS ? row.low_of_fps : row.low;
    if (!row.fps_only || eniType == IsFPS) {
      const bool in_range = value >= low && value <= row.high;
      if (!in_range || (row.whole_pounds && !IsWholePounds(value.ToDouble()))) {
        found.value = Format(value, "#0.00");
        found.Fail(row.code, "Invalid format",
                   row.message.empty() ? "Invalid value or format. Must be " + Format(low, "#0.00") + " to " +
                                             Format(row.high, "#0.00")
                                       : String(row.message));
      }
    }
    if (value.IsZero() || row.zero_letters.empty()) return;
    const String letter = objNILetter->NILetter();
    if (!IsOneOf(row.upper_cased ? UpperCase(letter) : letter, row.zero_letters)) return;
    found.value = Format(value, "#0.00");
    found.Fail(row.zero_code, row.zero_title, row.zero_message);
  });
}

bool vlsEmployeeValidator::ValidateNILettersAndValues(const Ref<clsEmployee>& objEmployee,
                                                      const Ref<clsEmployment>& objEmployment,
                                                      const Ref<clsNILettersAndValues>& /*objNILetter*/,
                                                      eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  static constexpr std::string_view kField = "NI Letters and Values";
  static constexpr std::string_view kProcessing = "E10.6.0";
  static constexpr Rule kMostLetters{.key = "MaxNILettersExceeded", .field = kField, .code = kProcessing};
  static constexpr Rule kDuplicate{.key = "DuplicateNILetter", .field = kField, .code = kProcessing};
  return Walk(strErrKey, [&] {
    const CollectionRef<clsNILettersAndValues> records = Required(objEmployment).NILettersAndValues();
    const Long count = records ? records->Count() : 0;
    bool all_passed = true;
    if (count >= 5) {
      all_passed = CheckOf(objEmployee, kMostLetters, strErrKey, [&](Finding& found) {
        found.value = ToText(count);
        found.Fail(
            "E10.6.0b", "Maximum NI Letters Exceeded",
            "Maximum NI Letter count has been exceeded. Only 4 are permitted by the HMRC schema, but " +
                found.value + " have been added for this Employee");
      });
    }
    std::vector<String> letters;
    for (Long i = 1; i <= count; ++i) {
      const Ref<clsNILettersAndValues> record = records->Item(i);
      const String letter = Required(record).NILetter();
      bool passed = true;
      if (!record->Validated()) {
        const String key = strErrKey + "_" + letter;
        passed &= ValidateNILetter(objEmployee, objEmployment, record, key);
        passed &= ValidatePaySubjToNIC(objEmployee, objEmployment, record, key);
        passed &= ValidatePaySubjToNICYTD(objEmployee, objEmployment, record, eniType, key);
        passed &= ValidateAtLEL(objEmployee, objEmployment, record, eniType, key);
        passed &= ValidateLELToPT(objEmployee, objEmployment, record, eniType, key);
        passed &= ValidatePTToUEL(objEmployee, objEmployment, record, eniType, key);
        passed &= ValidateTotalEmployerNIC(objEmployee, objEmployment, record, key);
        passed &= ValidateTotalEmployerNICYTD(objEmployee, objEmployment, record, eniType, key);
        passed &= ValidateTotalEmployeeNIC(objEmployee, objEmployment, record, key);
        passed &= ValidateTotalEmployeeNICYTD(objEmployee, objEmployment, record, eniType, key);
      }
      if (std::find(letters.begin(), letters.end(), letter) != letters.end()) {
        passed &= CheckOf(objEmployee, kDuplicate, strErrKey, [&](Finding& found) {
          found.Fail("E10.6.0a", "Duplicate NI Letters",
                     "Duplicate NI Letters exist for NI Letter " + letter);
        });
      } else {
        letters.push_back(letter);
      }
      record->Validated(passed);
      all_passed &= passed;
    }
    return all_passed;
  });
}

bool vlsEmployeeValidator::ValidateNILetter(const Ref<clsEmployee>& objEmployee,
                                            const Ref<clsEmployment>& objEmployment,
                                            const Ref<clsNILettersAndValues>& objNILetter,
                                            const String& strErrKey) {
  static constexpr Rule kRule{.key = "NILetter", .field = "NI Letter", .code = "E9.1.0"};
  static const Date kLastBirthDate = Date::FromParts(1961, 4, 5);
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const String& letter = found.value = Required(objNILetter).NILetter();
    const Ref<clsEmployeeDetails> details = Required(objEmployee).EmployeeDetails();
    const bool is_man = Required(details).Gender() == EMPLOYEE_GENDER::M;
    const bool is_young = details->DateOfBirth() > kLastBirthDate;
    const bool is_nowhere = Required(objEmployment).EmployeeWorkplacePostcode().empty();
    // K passes, which the message leaves out.
    if (!IsOneOf(letter, "ABCDEFGHIJKLMNPQRSTVWXYZ")) {
      if (letter.empty()) {
        found.Fail("E9.1.1", "Mandatory", "NI Letter missing");
      } else {
        found.Fail("E9.1.2", "Enumeration",
                   "NI Letter is  invalid, Must be A, B, C, D, E, F, G, H, I, J, L, M, N, P, Q, R, S, T, V, "
                   "W, X, Y or Z");
      }
    }
    const bool reduced = IsOneOf(letter, "BEIT");
    if (reduced && is_man) {
      found.Fail("E9.1.3", "Gender", "The NI Letter cannot be B, E, I or T if [GENDER] is shown as male");
    }
    if (is_nowhere && IsOneOf(letter, "FILSNEDK")) {
      found.Fail("E9.1.4", "Employee Workplace Postcode",
                 "If the [NILETTER] is 'F', 'I', 'L', 'S', 'N', 'E', 'D' or K', then "
                 "[EMPLOYEEWORKPLACEPOSTCODE] must be present");
    }
    if (reduced && is_young) {
      found.Fail("E9.1.5", "Date of Birth",
                 "The NI Letter cannot be B or E or I or T if [DATEOFBIRTH] is after 5 April 1961");
    }
  });
}

bool vlsEmployeeValidator::ValidateSCON(const Ref<clsEmployee>& objEmployee,
                                        const Ref<clsEmployment>& /*objEmployment*/,
                                        const Ref<clsNILettersAndValues>& objNILetter,
                                        eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  static constexpr Rule kRule{.key = "SCON", .field = "SCON", .code = "E9.7.0"};
  static constexpr std::string_view kInvalid =
      "SCON is invalid. Must be in the format S1234567A, where A is one of A, B, C, D, E, F, H, J, K, L, "
      "M, N, P, Q, R, T, W, X or Y";
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const String& scon = found.value = Required(objNILetter).SCON();
    if (scon.empty()) {
      if (eniType != IsFPS && IsOneOf(objNILetter->NILetter(), "DEIKLNOV")) {
        found.Fail("E9.7.3", "Mandatory",
                   "SCON is mandatory when the corresponding NI letter is one of D, E, I, K, L, N, O or V");
      }
      return;
    }
    if (!ValidatePattern(scon, kSCON)) found.Fail("E9.7.2", "Invalid Format", kInvalid);
    if (!HasContractingOutCheckLetter(scon, 51)) found.Fail("E9.7.1", "Modulus 19 Check", kInvalid);
    if (eniType != IsEYU && UpperCase(scon) == "S2769999P") {
      found.Fail("E9.7.4", "Invalid SCON", "The entry in SCON of 'S2769999P' is not an acceptable entry");
    }
  });
}

bool vlsEmployeeValidator::ValidatePaySubjToNIC(const Ref<clsEmployee>& objEmployee,
                                                const Ref<clsEmployment>& /*objEmployment*/,
                                                const Ref<clsNILettersAndValues>& objNILetter,
                                                const String& strErrKey) {
  static constexpr NIRow kRow{
      .rule = {.key = "PaySubjToNIC", .field = "Pay Subject to NIC", .code = "E9.2.0"},
      .value = &clsNILettersAndValues::PaySubjectToNIC,
      .code = "E9.2.1",
      .message = {},
      .low = kLeastPounds,
      .high = kMostPounds,
      .low_of_eyu = kLeastPounds,
      .low_of_fps = kLeastPounds};
  return CheckNI(kRow, objEmployee, objNILetter, IsUndefined, strErrKey);
}

// The message names the range of an FPS, even where an EYU has a wider one.
bool vlsEmployeeValidator::ValidatePaySubjToNICYTD(const Ref<clsEmployee>& objEmployee,
                                                   const Ref<clsEmployment>& /*objEmployment*/,
                                                   const Ref<clsNILettersAndValues>& objNILetter,
                                                   eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  static constexpr NIRow kRow{
      .rule = {.key = "PaySubjToNICYTD", .field = "Pay Subject to NIC YTD", .code = "E9.2A.0"},
      .value = &clsNILettersAndValues::PaySubjectToNICYTD,
      .code = "E9.2A.1",
      .message = "Invalid value or format. Must be 0.00 to 999999999.99",
      .low = 0,
      .high = kMostPounds,
      .low_of_eyu = kLeastPounds,
      .low_of_fps = 0};
  return CheckNI(kRow, objEmployee, objNILetter, eniType, strErrKey);
}

bool vlsEmployeeValidator::ValidateAtLEL(const Ref<clsEmployee>& objEmployee,
                                         const Ref<clsEmployment>& /*objEmployment*/,
                                         const Ref<clsNILettersAndValues>& objNILetter,
                                         eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  static constexpr NIRow kRow{
      .rule = {.key = "AtLEL", .field = "At LEL", .code = "E9.3.0", .ending = " value. "},
      .value = &clsNILettersAndValues::AtLEL,
      .code = "E9.3.1",
      .message = {},
      .low = 0,
      .high = 9999,
      .low_of_eyu = -9999,
      .low_of_fps = 0,
      .whole_pounds = true,
      .zero_letters = "X",
      .zero_code = "E9.3.2"};
  return CheckNI(kRow, objEmployee, objNILetter, eniType, strErrKey);
}

bool vlsEmployeeValidator::ValidateLELToPT(const Ref<clsEmployee>& objEmployee,
                                           const Ref<clsEmployment>& /*objEmployment*/,
                                           const Ref<clsNILettersAndValues>& objNILetter,
                                           eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  static constexpr NIRow kRow{
      .rule = {.key = "LELToPT", .field = "LEL To PT", .code = "E9.4.0", .ending = " value. "},
      .value = &clsNILettersAndValues::LELtoPT,
      .code = "E9.4.1",
      .message = {},
      .low = 0,
      .high = Pence(999'999),
      .low_of_eyu = Pence(-999'999),
      .low_of_fps = 0,
      .zero_letters = "X",
      .zero_code = "E9.4.2"};
  return CheckNI(kRow, objEmployee, objNILetter, eniType, strErrKey);
}

bool vlsEmployeeValidator::ValidatePTToUAP(const Ref<clsEmployee>& objEmployee,
                                           const Ref<clsEmployment>& /*objEmployment*/,
                                           const Ref<clsNILettersAndValues>& objNILetter,
                                           eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  static constexpr NIRow kRow{
      .rule = {.key = "PTToUAP", .field = "PT To UAP", .code = "E9.5.0", .ending = " value. "},
      .value = &clsNILettersAndValues::PTtoUAP,
      .code = "E9.5.1",
      .message = {},
      .low = 0,
      .high = Pence(9'999'999),
      .low_of_eyu = Pence(-9'999'999),
      .low_of_fps = 0,
      .zero_letters = "X",
      .zero_code = "E9.5.2"};
  return CheckNI(kRow, objEmployee, objNILetter, eniType, strErrKey);
}

bool vlsEmployeeValidator::ValidateUAPToUEL(const Ref<clsEmployee>& objEmployee,
                                            const Ref<clsEmployment>& /*objEmployment*/,
                                            const Ref<clsNILettersAndValues>& objNILetter,
                                            eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  static constexpr NIRow kRow{
      .rule = {.key = "UAPToUEL", .field = "UAP To UEL", .code = "E9.6.0", .ending = " value. "},
      .value = &clsNILettersAndValues::UAPtoUEL,
      .code = "E9.6.1",
      .message = {},
      .low = 0,
      .high = Pence(9'999'999),
      .low_of_eyu = Pence(-9'999'999),
      .low_of_fps = 0,
      .zero_letters = "X",
      .zero_code = "E9.6.2"};
  return CheckNI(kRow, objEmployee, objNILetter, eniType, strErrKey);
}

bool vlsEmployeeValidator::ValidatePTToUEL(const Ref<clsEmployee>& objEmployee,
                                           const Ref<clsEmployment>& /*objEmployment*/,
                                           const Ref<clsNILettersAndValues>& objNILetter,
                                           eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  static constexpr NIRow kRow{
      .rule = {.key = "PTToUEL", .field = "PT To UEL", .code = "E9.6.0", .ending = " value. "},
      .value = &clsNILettersAndValues::PTtoUEL,
      .code = "E9.6.1",
      .message = {},
      .low = 0,
      .high = Pence(9'999'999),
      .low_of_eyu = 0,
      .low_of_fps = 0,
      .fps_only = true,
      .zero_letters = "X",
      .zero_code = "E9.6.2"};
  return CheckNI(kRow, objEmployee, objNILetter, eniType, strErrKey);
}

bool vlsEmployeeValidator::ValidateTotalEmployerNIC(const Ref<clsEmployee>& objEmployee,
                                                    const Ref<clsEmployment>& /*objEmployment*/,
                                                    const Ref<clsNILettersAndValues>& objNILetter,
                                                    const String& strErrKey) {
  static constexpr NIRow kRow{.rule = {.key = "TotalEmployerNICPeriod",
                                       .field = "Total Employer NIC",
                                       .code = "E10.3.0",
                                       .ending = " value. "},
                              .value = &clsNILettersAndValues::TotalEmpNIC,
                              .code = "E10.3.1",
                              .message = {},
                              .low = kLeastPounds,
                              .high = kMostPounds,
                              .low_of_eyu = kLeastPounds,
                              .low_of_fps = kLeastPounds,
                              .zero_letters = "X",
                              .upper_cased = true,
                              .zero_code = "E10.3.2",
                              .zero_title = "NI Letter X"};
  return CheckNI(kRow, objEmployee, objNILetter, IsUndefined, strErrKey);
}

// Of the totals this one alone takes its letter as it is written.
bool vlsEmployeeValidator::ValidateTotalEmployerNICYTD(const Ref<clsEmployee>& objEmployee,
                                                       const Ref<clsEmployment>& /*objEmployment*/,
                                                       const Ref<clsNILettersAndValues>& objNILetter,
                                                       eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  static constexpr NIRow kRow{.rule = {.key = "TotalEmployerNICYTD",
                                       .field = "Total Employer NIC YTD",
                                       .code = "E10.4.0",
                                       .ending = " value. "},
                              .value = &clsNILettersAndValues::TotalEmpNICYTD,
                              .code = "E10.4.1",
                              .message = {},
                              .low = kLeastPounds,
                              .high = kMostPounds,
                              .low_of_eyu = kLeastPounds,
                              .low_of_fps = 0,
                              .zero_letters = "X",
                              .zero_code = "E10.4.2",
                              .zero_title = "NI Letter X"};
  return CheckNI(kRow, objEmployee, objNILetter, eniType, strErrKey);
}

// The message begins its range at zero, though amounts below zero pass.
bool vlsEmployeeValidator::ValidateTotalEmployeeNIC(const Ref<clsEmployee>& objEmployee,
                                                    const Ref<clsEmployment>& /*objEmployment*/,
                                                    const Ref<clsNILettersAndValues>& objNILetter,
                                                    const String& strErrKey) {
  static constexpr NIRow kRow{.rule = {.key = "TotalEmployeeNIC",
                                       .field = "Total Employee NIC",
                                       .code = "E10.5.0",
                                       .ending = " value. "},
                              .value = &clsNILettersAndValues::EmpeeContribns,
                              .code = "E10.5.1",
                              .message = "Invalid value or format. Must be 0.00 to 999999999.99",
                              .low = kLeastPounds,
                              .high = kMostPounds,
                              .low_of_eyu = kLeastPounds,
                              .low_of_fps = kLeastPounds,
                              .zero_letters = "XCKSW",
                              .upper_cased = true,
                              .zero_code = "E10.5.2",
                              .zero_title = "NI Letter X",
                              .zero_message = "Value must be zero when NI Letter is X, C, K, S or W"};
  return CheckNI(kRow, objEmployee, objNILetter, IsUndefined, strErrKey);
}

bool vlsEmployeeValidator::ValidateTotalEmployeeNICYTD(const Ref<clsEmployee>& objEmployee,
                                                       const Ref<clsEmployment>& /*objEmployment*/,
                                                       const Ref<clsNILettersAndValues>& objNILetter,
                                                       eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  static constexpr NIRow kRow{.rule = {.key = "TotalEmployeeNICYTD",
                                       .field = "Total Employee NIC YTD",
                                       .code = "E10.6.0",
                                       .ending = " value. "},
                              .value = &clsNILettersAndValues::EmpeeContribnsYTD,
                              .code = "E10.6.1",
                              .message = {},
                              .low = kLeastPounds,
                              .high = kMostPounds,
                              .low_of_eyu = kLeastPounds,
                              .low_of_fps = 0,
                              .zero_letters = "XCKSW",
                              .upper_cased = true,
                              .zero_code = "E10.6.2",
                              .zero_title = "NI Letter X",
                              .zero_message = "Value must be zero when NI Letter is X, C, K, S or W"};
  return CheckNI(kRow, objEmployee, objNILetter, eniType, strErrKey);
}

bool vlsEmployeeValidator::ValidateDirectorWeekNumber(const Ref<clsEmployee>& objEmployee,
                                                      const Ref<clsEmployment>& objEmployment,
                                                      const String& strErrKey) {
  static constexpr Rule kRule{.key = "DirectorWeekNumber",
                              .field = "Director Week No",
                              .code = "E10.2.0",
                              .what = "the Directors Week Number. "};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Integer week = Required(objEmployment).WkOrMonthNoDirectorAppt();
    if (week == 0 || (week >= 1 && week <= 56 && week != 55)) return;
    found.value = ToText(week);
    found.Fail("E10.2.1", "Invalid format", "Invalid Week Number. Must be 1 to 54 or 56");
  });
}

bool vlsEmployeeValidator::ValidateDirectorsNIC(const Ref<clsEmployee>& objEmployee,
                                                const Ref<clsEmployment>& objEmployment,
                                                const String& strErrKey) {
  static constexpr Rule kRule{.key = "DirectorsNIC", .field = "Directors NIC", .code = "E10.1.0"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const dnDIRECTORS_NIC basis = Required(objEmployment).DirectorsNIC();
    if (basis == dnDIRECTORS_NIC::ednAlternative) found.value = "AL";
    if (basis == dnDIRECTORS_NIC::ednAnnual) found.value = "AN";
    if (found.value.empty()) {
      found.Fail("E10.1.1", "Invalid format", "Invalid value or format. Must be AN or AL.");
    }
  });
}

}  // namespace zelnor
