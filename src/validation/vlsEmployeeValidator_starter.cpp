#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsStarter.h"
#include "zelnor/validation/employee_parts.h"
#include "zelnor/validation/today.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

namespace zelnor {
namespace {

constexpr std::string_view kDateAndDeclaration =
    "Start Date and Starting Declaration must be present for new employees";

Ref<clsStarter> StarterOf(const Ref<clsEmployment>& employment) { return Required(employment).Starter(); }

bool HasDeclaration(const clsStarter& starter) {
  return starter.StarterDeclaration() != STARTER_DECLARATION::Undefined;
}

bool HasSecondmentLength(clsStarter& starter) {
  return starter.IsSeconded() && starter.Seconded()->SecondmentLength() != SECONDMENT_LENGTH::Undefined;
}

// Asks first, since reading an address makes one.
int AddressLines(const Ref<clsEmployee>& employee) {
  clsEmployeeDetails& details = *Required(employee).EmployeeDetails();
  return details.HasAddress() ? details.Address()->PopulatedAddressLineCount() : 0;
}

}  // namespace

// A starter with a student loan alone says nothing of when the employment began, and needs no date.
bool vlsEmployeeValidator::ValidateStarterDetails(const Ref<clsEmployee>& objEmployee,
                                                  const Ref<clsEmployment>& objEmployment,
                                                  const String& strErrKey) {
  return Walk(strErrKey, [&] {
    const Ref<clsStarter> starter = StarterOf(objEmployment);
    if (starter->Validated()) return true;
    bool passed = ValidateStarterInfoEmptyGroup(objEmployee, objEmployment, strErrKey);
    if (!starter->StartDate().IsZero() || HasDeclaration(*starter) || HasSecondmentLength(*starter)) {
      passed &= ValidateStarterDate(objEmployee, objEmployment, strErrKey);
      passed &= ValidateStarterDeclarationRule(objEmployee, objEmployment, strErrKey);
    }
    if (starter->HasOccPension()) passed &= ValidateOccPensionAmount(objEmployee, objEmployment, strErrKey);
    if (starter->IsSeconded()) passed &= ValidateSecondmentRule(objEmployee, objEmployment, strErrKey);
    starter->Validated(passed);
    return passed;
  });
}

bool vlsEmployeeValidator::ValidateStarterDate(const Ref<clsEmployee>& objEmployee,
                                               const Ref<clsEmployment>& objEmployment,
                                               const String& strErrKey) {
  static constexpr Rule kRule{.key = "StartDate",
                              .field = "Starter Date",
                              .code = "E11.1.0",
                              .what = "the Employee Start Date. ",
                              .processing_field = "Starter Date"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Date start = StarterOf(objEmployment)->StartDate();
    if (start.IsZero()) {
      found.At("StartDate", "Start Date");
      found.Fail("E11.1.2", "Error - Start Date", kDateAndDeclaration);
      return;
    }
    const bool too_late = start > TodayNow().AddDays(30);
    const bool short_address = AddressLines(objEmployee) < 2;
    if (!too_late && !short_address) return;
    found.value = DayText(start);
    if (too_late) {
      found.Fail("E11.1.1", "30 Days", "Start Date must be no later than the current date plus 30 days");
    }
    if (short_address) {
      found.At("StartDate", "Address");
      found.Fail("E4.6.3", "Error - Start Date",
                 "At least two lines must be present when the Start Date is not blank");
    }
  });
}

bool vlsEmployeeValidator::ValidateStarterDeclarationRule(const Ref<clsEmployee>& objEmployee,
                                                          const Ref<clsEmployment>& objEmployment,
                                                          const String& strErrKey) {
  static constexpr Rule kRule{.key = "StartDecRule",
                              .field = "Starter Declaration",
                              .code = "E11.2.0",
                              .what = "the Employee Starter Declaration. "};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Ref<clsStarter> starter = StarterOf(objEmployment);
    const bool declared =
        HasDeclaration(*starter) || HasSecondmentLength(*starter) || starter->HasOccPension();
    if (starter->StartDate().IsZero() || !declared) {
      found.Fail("E11.1.2", "Error - Starter Declaration", kDateAndDeclaration);
    }
  });
}

bool vlsEmployeeValidator::ValidateStarterInfoEmptyGroup(const Ref<clsEmployee>& objEmployee,
                                                         const Ref<clsEmployment>& objEmployment,
                                                         const String& strErrKey) {
  static constexpr Rule kRule{.key = "StarterInfoEmptyGroupRule",
                              .field = "Starter Declaration",
                              .code = "E11.2.0",
                              .what = "the Employee Starter Information. "};
  static const Date kNoDate = Date::FromParts(1901, 1, 1);
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Ref<clsStarter> starter = StarterOf(objEmployment);
    if (starter->StartDate() > kNoDate || HasDeclaration(*starter) || starter->StudentLoan() ||
        starter->PostgradLoan() || starter->IsSeconded() || starter->HasOccPension() ||
        starter->HasStatePension()) {
      return;
    }
    found.Fail("E11.1.2", "Error - Starter Information",
               "If StarterInformation is present then an entry in StartDate, StartingDeclaration, "
               "HasStudentLoan, HasPostgradLoan IndividualSecondedToWorkInUK, OccupationalPension or "
               "StatePension should be present");
  });
}

bool vlsEmployeeValidator::ValidateOccPensionAmount(const Ref<clsEmployee>& objEmployee,
                                                    const Ref<clsEmployment>& objEmployment,
                                                    const String& strErrKey) {
  static constexpr Rule kRule{.key = "OccPensionAmount",
                              .field = "Occ Pension Amount",
                              .code = "E10.6.0",
                              .what = "the Occupational Pension value. ",
                              .processing_field = "Occ Pension Amount"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Currency amount = StarterOf(objEmployment)->OccPension()->Amount();
    if (amount.ToDouble() < 0 || amount.ToDouble() > 999999999.99) {
      found.value = FormatMoney(amount);
      found.Fail("E11.6.1", "Invalid format", "Invalid value or format. Must be 0.00 to 999999999.99");
    }
    if (!amount.IsZero() && !objEmployment->OccPenInd()) {
      found.value = "Not Set";
      found.At("OccPensionAmount", "Occ Pension Indicator");
      found.Fail("E11.6.2", "Missing Indicator",
                 "If the Occupational Pension Amount is present, the Occupational Pension Indicator must be "
                 "set");
    }
  });
}

}  // namespace zelnor
