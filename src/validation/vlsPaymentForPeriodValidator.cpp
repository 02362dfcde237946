#include "zelnor/validation/vlsPaymentForPeriodValidator.h"

#include "zelnor/documents/clsApprenticeshipLevy.h"
#include "zelnor/documents/clsEPSAccount.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsPaymentForPeriod.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/formats.h"
#include "zelnor/validation/pattern.h"
#include "zelnor/validation/today.h"

namespace zelnor {
namespace {

// The year in which the tax year begins that the rules serve.
constexpr int kStartYear = 2025;

const Pattern kMonth("^([1-9]|1[0-2])$");

String DayText(Date day) { return Format(day, "Dd/Mm/yyyy"); }

Date Day(int year, int month, int day) { return Date::FromParts(year, month, day); }

}  // namespace

vlsPaymentForPeriodValidator::vlsPaymentForPeriodValidator()
    : IntegerValidator({"vlsPaymentForPeriodValidator", "PaymentForPeriodValidationErrors",
                        "Payment For Period", false}) {}

bool vlsPaymentForPeriodValidator::ValidateEPS(clsSectionEPS& objEPS) {
  bool result = false;
  HandledAt(Location("ValidateEPS"), [&] {
    bool passed = true;
    passed &= ValidateObjects(objEPS);
    passed &= ValidateNoPaymentForPeriod(objEPS);
    passed &= ValidatePeriodOfInactivity(objEPS);
    passed &= ValidatePaymentForPeriod(objEPS);
    passed &= ValidateAccount(objEPS);
    passed &= ValidateApprenticeshipLevy(objEPS);
    result = passed;
  });
  return result;
}

bool vlsPaymentForPeriodValidator::ValidateObjects(clsSectionEPS& objEPS) {
  static constexpr Rule kRule{.key = "EPSContent", .field = "EPS Contents", .code = {}};
  return CheckAt(Location("ValidateObjects"), kRule, "EPSObjects", [&](Finding& found) {
    const bool holds = objEPS.NoPaymentForPeriod() || objEPS.HasPeriodOfInactivity() ||
                       objEPS.HasPaymentForPeriod() || objEPS.HasAccount() ||
                       objEPS.HasEmpAllowanceIndicator() || objEPS.HasApprenticeshipLevy();
    if (!holds) {
      found.Fail(
          "EPSACC1.3.2", "Invalid EPS Content",
          "At least one of No Payment For Period, Period of Inactivity, Recoverable Amounts YTD, Account "
          "Details, Employment Allowance Indicator, Apprenticeship Levy or Final Submission must be set.");
    }
  });
}

// The test of the end is today a month on, and the 5th of that month.
bool vlsPaymentForPeriodValidator::ValidateNoPaymentForPeriod(clsSectionEPS& objEPS) {
  static constexpr Rule kRule{.key = "No Payment for Period", .field = "No Payment for Period", .code = {}};
  if (!objEPS.NoPaymentForPeriod()) return true;
  return CheckAt(Location("ValidateNoPaymentForPeriod"), kRule, {}, [&](Finding& found) {
    const Date from = objEPS.NoPaymentFrom();
    const Date to = objEPS.NoPaymentTo();
    const bool both = !from.IsZero() && !to.IsZero();
    const Date today = Today();
    const Date next = today.AddMonths(1);
    const Date month_end = Day(next.Year(), next.Month(), 5);
    const auto fail = [&](bool failed, const char* code, const char* word, Date date, const String& message) {
      if (!failed) return;
      found.At(String("No Payment for Period") + word);
      found.value = DayText(date);
      found.Fail(code, "Invalid Date", message);
    };
    fail(from.IsZero(), "EPSNP1.0.1", "_BlankDateFrom", from,
         "No Payment Date From must be set with a valid date.");
    fail(to.IsZero(), "EPSNP1.0.2", "_BlankDateTo", to, "No Payment Date To must be set with a valid date.");
    fail(both && from >= today, "EPSNP1.0.3", "_DateFromBeforeSysDate", from,
         "No Payment Date From must be before the current date.");
    fail(both && to >= month_end, "EPSNP1.0.4", "_DateToBeforeTaxMonthEnd", to,
         "No Payment Date To must be before the end of the current tax month: " +
             Format(month_end, "dd/mm/yyyy"));
    fail(both && from >= to, "EPSNP1.0.5", "_DateFromAfterDateTo", from,
         "No Payment Date From must be before the No Payment Date To date of " + DayText(to) + ".");
    fail(from.Day() != 6, "EPSNP1.0.6", "_DateFromInvalid", from,
         "No Payment Date From have a day value of the 6th of the month.");
    fail(to.Day() != 5, "EPSNP1.0.7", "_DateToInvalid", to,
         "No Payment Date To have a day value of the 5th of the month");
    fail(to < Day(kStartYear, 5, 5) || to > Day(kStartYear + 1, 4, 5), "EPSNP1.0.8", "_DateToOutsideTaxYear",
         to,
         "No Payment Date To must be between 05/05/" + ToText(Long{kStartYear}) + " and 05/04/" +
             ToText(Long{kStartYear} + 1) + ".");
    fail(from < Day(kStartYear, 4, 6) || from > Day(kStartYear + 1, 3, 6), "EPSNP1.0.9",
         "_DateFromOutsideTaxYear", from,
         "No Payment Date From must be between 06/04/" + ToText(Long{kStartYear}) + " and 06/03/" +
             ToText(Long{kStartYear} + 1) + ".");
  });
}

bool vlsPaymentForPeriodValidator::ValidatePeriodOfInactivity(clsSectionEPS& objEPS) {
  static constexpr Rule kRule{
      .key = "PeriodOfInactivity", .field = "Period of Inactivity Date From", .code = {}};
  const Date from = objEPS.DateInactiveFrom();
  const Date to = objEPS.DateInactiveTo();
  if (from.IsZero() && to.IsZero()) return true;
  return CheckAt(Location("ValidatePeriodOfInactivity"), kRule, {}, [&](Finding& found) {
    constexpr const char* kTitle = "Invalid Date";
    const bool both = !from.IsZero() && !to.IsZero();
    found.value = DayText(from);
    if (from.IsZero()) {
      found.Fail("EPSNP1.1.1", kTitle, "Period of Inactivity Date From must be set with a valid date.");
    }
    if (both && from >= to) {
      found.Fail("EPSNP1.1.5", kTitle,
                 "Period of Inactivity From must be before the Period of Inactivity Date To date of " +
                     DayText(to) + ".");
    }
    found.At("PeriodOfInactivity", "Period of Inactivity Date To");
    found.value = DayText(to);
    if (to.IsZero()) {
      found.Fail("EPSNP1.1.2", kTitle, "Period of Inactivity Date To must be set with a valid date.");
    }
    if (both && to <= Today()) {
      found.Fail("EPSNP1.1.4", kTitle, "Period of Inactivity Date To must be after the current date.");
    }
  });
}

bool vlsPaymentForPeriodValidator::ValidatePaymentForPeriod(clsSectionEPS& objEPS) {
  bool result = false;
  HandledAt(Location("ValidatePaymentForPeriod"), [&] {
    result = !objEPS.HasPaymentForPeriod();
    if (result) return;
    clsPaymentForPeriod& payment = Required(objEPS.PaymentForPeriod());
    result = payment.Validated();
    if (result) return;
    bool passed = true;
    passed &= ValidateTaxMonth(payment.TaxMonth());
    passed &= ValidateSMPRecovered(payment.SMPRecovered());
    passed &= ValidateOSPPRecovered(payment.OSPPRecovered());
    passed &= ValidateSAPRecovered(payment.SAPRecovered());
    passed &= ValidateSPBPRecovered(payment.SPBPRecovered());
    passed &= ValidateASPPRecovered(payment.ASPPRecovered());
    passed &= ValidateSNCPRecovered(payment.SNCPRecovered());
    passed &= ValidateNICCompensationOnSMP(payment.NICCompensationOnSMP());
    passed &= ValidateNICCompensationOnOSPP(payment.NICCompensationOnOSPP());
    passed &= ValidateNICCompensationOnSAP(payment.NICCompensationOnSAP());
    passed &= ValidateNICCompensationOnSPBP(payment.NICCompensationOnSPBP());
    passed &= ValidateNICCompensationOnASPP(payment.NICCompensationOnASPP());
    passed &= ValidateNICCompensationOnSNCP(payment.NICCompensationOnSNCP());
    passed &= ValidateCISDeductionsSuffered(payment.CISDeductionsSuffered(),
                                            Required(objEPS.Employer_References()).COTAXRef());
    passed &= ValidateObjectRequiredRule(objEPS);
    payment.Validated(passed);
    result = passed;
  });
  return result;
}

bool vlsPaymentForPeriodValidator::ValidateTaxMonth(const String& strTaxMonth, const String& strErrKey) {
  static constexpr Rule kRule{
      .key = "Tax Month", .field = "Tax Month", .code = "E14.14.0", .ending = " value. "};
  return Check(kRule, strErrKey, [&](Finding& found) {
    found.value = strTaxMonth;
    if (strTaxMonth.empty()) return;
    if (!ValidatePattern(strTaxMonth, kMonth)) {
      found.Fail("E14.14.1", "Invalid format", "Tax Month must be a number between 1 and 12, or omitted.");
      return;
    }
    const Integer month = ToInteger(strTaxMonth);
    const Date first = Day(kStartYear, 4, 6).AddMonths(month - 2);
    const Date last = Day(kStartYear, 5, 19).AddMonths(month - 1);
    if (Today() < first || Today() > last) {
      found.Fail("E14.14.2", "Invalid submission",
                 "The entry in Tax Month of " + strTaxMonth +
                     " is only valid if the submission is made between " + Format(first, "d mmmm yyyy") +
                     " and " + Format(last, "d mmmm yyyy") + " inclusive. Please check.");
    }
  });
}

bool vlsPaymentForPeriodValidator::ValidateObjectRequiredRule(clsSectionEPS& /*objEPS*/,
                                                              const String& /*strErrKey*/) {
  return true;
}

bool vlsPaymentForPeriodValidator::ValidateApprenticeshipLevy(clsSectionEPS& objEPS) {
  bool result = false;
  HandledAt(Location("ValidateApprenticeshipLevy"), [&] {
    result = !objEPS.HasApprenticeshipLevy();
    if (result) return;
    clsApprenticeshipLevy& levy = Required(objEPS.ApprenticeshipLevy());
    result = levy.Validated();
    if (result) return;
    bool passed = true;
    passed &= ValidateAppLevyTaxMonth(levy.TaxMonth());
    passed &= ValidateAppLevyLevyDueYTD(levy.LevyDueYTD());
    passed &= ValidateAppLevyAnnualAllowance(levy.AnnualAllowance());
    levy.Validated(passed);
    result = passed;
  });
  return result;
}

}  // namespace zelnor
