#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsPayIdChgd.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/clsEmployeeException.h"
#include "zelnor/validation/employee_parts.h"
#include "zelnor/validation/today.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

namespace zelnor {
namespace {

constexpr std::string_view kNoEmployment = "At least one Employment record is required.";

/// The first day on which someone who is still reported may have left.
Date FirstLeavingDate(Date today) {
  const int year = today.Year();
  return Date::FromParts(today >= Date::FromParts(year, 4, 6) ? year - 6 : year - 7, 4, 6);
}

/// What the two payroll IDs of an employment must be alike.
struct PayrollIDRow {
  Rule rule;
  std::string_view too_long;
  std::string_view too_long_text;
  std::string_view blank;
  std::string_view blank_text;
};

constexpr PayrollIDRow kPayrollID{
    {.key = "PayrollID", .field = "Payroll ID", .code = "E6.1.0", .what = "the Employee Code. "},
    "E6.1.1a",
    "Employee Code length exceeds 35 characters",
    "E6.1.1",
    "Invalid format in Employee Code. Field must not begin with a space."};

constexpr PayrollIDRow kOldPayrollID{
    {.key = "OldPayrollID", .field = "Old Payroll ID", .code = "E6.4.0", .what = "the old Employee Code. "},
    "E6.4.1a",
    "Old Employee Code length exceeds 35 characters",
    "E6.4.1",
    "Invalid format in Old Employee Code. Field must not begin with a space."};

void TestPayrollID(Finding& found, const PayrollIDRow& row, const String& id) {
  if (id.empty()) return;
  const bool too_long = Length(id) > 35;
  const bool blank = id.starts_with(' ');
  if (!too_long && !blank) return;
  found.value = id;
  if (too_long) found.Fail(row.too_long, "Invalid format", row.too_long_text);
  if (blank) found.Fail(row.blank, "Invalid format", row.blank_text);
}

}  // namespace

bool vlsEmployeeValidator::ValidateEmployment(const Ref<clsEmployee>& objEmployee, eRTISUBMISSIONTYPE eniType,
                                              const String& strKey) {
  static constexpr Rule kRule{.key = "Employment",
                              .field = "Employment",
                              .code = "FAIL_EMPLOYMENT",
                              .title = "Unknown Error: Employment",
                              .description = kNoEmployment};
  return CheckOf(objEmployee, kRule, {}, [&](Finding& found) {
    found.At(strKey + "_Employment");
    const CollectionRef<clsEmployment> employments = Required(objEmployee).Employment();
    if (employments->Count() == 0) found.Fail("ERR_EMPLOYMENT", "Missing Employment", kNoEmployment);
    for (const Ref<clsEmployment>& employment : *employments) {
      if (Required(employment).Validated()) continue;
      const String key = strKey + "_E" + employment->PayID();
      found.And(ValidateOneEmployment(objEmployee, employment, eniType, key));
    }
  });
}

bool vlsEmployeeValidator::ValidateOneEmployment(const Ref<clsEmployee>& objEmployee,
                                                 const Ref<clsEmployment>& objEmployment,
                                                 eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  const bool is_eas = eniType == eRTISUBMISSIONTYPE::IsEAS;
  bool passed = ValidatePayrollID(objEmployee, objEmployment, strErrKey);
  if (!is_eas) passed &= ValidateChangedPayrollID(objEmployee, objEmployment, strErrKey);
  passed &= ValidateLeaverDate(objEmployee, objEmployment, strErrKey);
  if (objEmployment->HasStarterInfo()) {
    passed &= is_eas ? ValidateStarterDate(objEmployee, objEmployment, strErrKey)
                     : ValidateStarterDetails(objEmployee, objEmployment, strErrKey);
  }
  if (!is_eas) {
    passed &= ValidatePartnerDetails(objEmployee, objEmployment, strErrKey);
    passed &= ValidateFiguresToDate(objEmployee, objEmployment, strErrKey);
    passed &= ValidateNILettersAndValues(objEmployee, objEmployment, nullptr, eniType, strErrKey);
    passed &= ValidateDirectorWeekNumber(objEmployee, objEmployment, strErrKey);
  }
  passed &= ValidatePayment(objEmployee, objEmployment, strErrKey, eniType);
  objEmployment->Validated(passed);
  return passed;
}

bool vlsEmployeeValidator::ValidatePayrollID(const Ref<clsEmployee>& objEmployee,
                                             const Ref<clsEmployment>& objEmployment,
                                             const String& strErrKey) {
  return CheckOf(objEmployee, kPayrollID.rule, strErrKey,
                 [&](Finding& found) { TestPayrollID(found, kPayrollID, Required(objEmployment).PayID()); });
}

bool vlsEmployeeValidator::ValidateChangedPayrollID(const Ref<clsEmployee>& objEmployee,
                                                    const Ref<clsEmployment>& objEmployment,
                                                    const String& strErrKey) {
  return CheckOf(objEmployee, kOldPayrollID.rule, strErrKey, [&](Finding& found) {
    if (!Required(objEmployment).PayIDHasChanged()) return;
    const Ref<clsPayIdChgd> change = objEmployment->PayIDChange();
    if (change->Validated()) return;
    TestPayrollID(found, kOldPayrollID, change->OldId());
    change->Validated(found.Passed());
  });
}

bool vlsEmployeeValidator::ValidateLeaverDate(const Ref<clsEmployee>& objEmployee,
                                              const Ref<clsEmployment>& objEmployment,
                                              const String& strErrKey) {
  static constexpr Rule kRule{
      .key = "LeaverDate", .field = "Leaver Date", .code = "E6.3.0", .what = "the Employee Leaving Date. "};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Date left = Required(objEmployment).LeavingDate();
    if (left.IsZero()) {
      if (Required(objEmployment->Payment()).IsPaymentAfterLeaving()) {
        found.Fail("E16.4", "Error - Leaving Date",
                   "Leaving Date must be included when payment is marked as a payment after leaving");
      }
      return;
    }
    const Date today = TodayNow();
    if (left > today.AddDays(30)) {
      found.value = DayText(left);
      found.Fail("E6.3.2", "Error - 30 Days",
                 "Leaving date must be no later than the current date plus 30 days");
    }
    if (left < FirstLeavingDate(today)) {
      found.value = DayText(left);
      found.Fail("E6.3.1", "Error - 6 April", "Leaving date must be within the last 6 previous tax years.");
    }
  });
}

bool vlsEmployeeValidator::ValidatePartnerDetails(const Ref<clsEmployee>& objEmployee,
                                                  const Ref<clsEmployment>& objEmployment,
                                                  const String& strErrKey) {
  return Walk(strErrKey, [&] {
    const bool concerned = !Required(objEmployment).Payment()->ASPPYTD().IsZero() ||
                           Required(objEmployee).EmployeeDetails()->HasPartnerDetails();
    return !concerned || ValidatePartnerShPPRule(objEmployee, objEmployment, strErrKey);
  });
}

bool vlsEmployeeValidator::ValidatePartnerShPPRule(const Ref<clsEmployee>& objEmployee,
                                                   const Ref<clsEmployment>& objEmployment,
                                                   const String& strErrKey) {
  static constexpr Rule kRule{.key = "PartnerShPPRule", .field = "Partner ShPP", .code = "E16.3.0"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Currency shared_pay = Required(objEmployment).Payment()->ASPPYTD();
    if (Required(objEmployee).EmployeeDetails()->HasPartnerDetails() && shared_pay.IsZero()) {
      found.value = FormatMoney(shared_pay);
      found.Fail("E16.3", "Error - ShPP not present",
                 "Partner Details have been included without an ShPP value.");
    }
  });
}

}  // namespace zelnor
