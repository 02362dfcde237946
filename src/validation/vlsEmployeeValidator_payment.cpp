#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/employee_parts.h"
#include "zelnor/validation/pattern.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

namespace zelnor {
namespace {

const Pattern kBacsHashCode("[0-9a-f]{64}");

// The anchors belong to the first and the last alternative alone: "X0T" and "BR1" pass.
const Pattern kTaxCode("^([1-9][0-9]{0,5}[LMNPTY])|(BR)|(0T)|(NT)|(D[0-8])|([K][1-9][0-9]{0,5})$");

Ref<clsPayment> PaymentOf(const Ref<clsEmployment>& employment) { return Required(employment).Payment(); }

double NumberOf(const String& text) { return IsNumeric(text) ? ToDouble(text) : 0.0; }

}  // namespace

bool vlsEmployeeValidator::ValidatePayment(const Ref<clsEmployee>& objEmployee,
                                           const Ref<clsEmployment>& objEmployment, const String& strErrKey,
                                           eRTISUBMISSIONTYPE eniType) {
  return Walk(strErrKey, [&] {
    const Ref<clsPayment> payment = PaymentOf(objEmployment);
    if (payment->Validated()) return true;
    bool passed = true;
    if (eniType == eRTISUBMISSIONTYPE::IsFPS) {
      passed &= ValidatePaymentOfFPS(objEmployee, objEmployment, strErrKey, eniType);
    }
    passed &= ValidateTaxCode(objEmployee, objEmployment, strErrKey);
    payment->Validated(passed);
    return passed;
  });
}

// Sick pay, neonatal care pay and the periods covered are left to callers.
bool vlsEmployeeValidator::ValidatePaymentOfFPS(const Ref<clsEmployee>& objEmployee,
                                                const Ref<clsEmployment>& objEmployment,
                                                const String& strErrKey, eRTISUBMISSIONTYPE eniType) {
  bool passed = ValidateBacsHashCode(objEmployee, objEmployment, strErrKey);
  passed &= ValidatePayFrequency(objEmployee, objEmployment, strErrKey);
  passed &= ValidatePaymentDate(objEmployee, objEmployment, strErrKey);
  passed &= ValidateWeekOrMonthNumber(objEmployee, objEmployment, strErrKey);
  passed &= ValidateHoursWorked(objEmployee, objEmployment, strErrKey);
  passed &= ValidateTaxablePay(objEmployee, objEmployment, strErrKey);
  passed &= ValidateNonTaxNonNIPayment(objEmployee, objEmployment, strErrKey);
  passed &= ValidateDednsFromNetPayPayment(objEmployee, objEmployment, strErrKey);
  passed &= ValidatePayPostStatDednsPayment(objEmployee, objEmployment, strErrKey);
  passed &= ValidateBenefitsTaxedViaPay(objEmployee, objEmployment, strErrKey);
  passed &= ValidateEmpeePensionCtbns(objEmployee, objEmployment, strErrKey);
  passed &= ValidateItemsSubjToC1NIC(objEmployee, objEmployment, strErrKey);
  passed &= ValidateEmpeePensionCtbnsNotPaid(objEmployee, objEmployment, strErrKey);
  passed &= ValidateStudentLoansRecovered(objEmployee, objEmployment, strErrKey);
  passed &= ValidatePostgradLoansRecovered(objEmployee, objEmployment, strErrKey);
  passed &= ValidateTaxDeductedOrRefunded(objEmployee, objEmployment, strErrKey);
  passed &= ValidateSMPYTD(objEmployee, objEmployment, eniType, strErrKey);
  passed &= ValidateSPPYTD(objEmployee, objEmployment, strErrKey);
  passed &= ValidateSAPYTD(objEmployee, objEmployment, eniType, strErrKey);
  passed &= ValidateSPBPYTD(objEmployee, objEmployment, eniType, strErrKey);
  passed &= ValidateShPPYTD(objEmployee, objEmployment, strErrKey);
  passed &= ValidateTrivialCommutationPayment(objEmployee, objEmployment, strErrKey);
  if (PaymentOf(objEmployment)->HasBenefits()) {
    passed &= ValidateBenefits(objEmployee, PaymentOf(objEmployment)->Benefits(), strErrKey);
  }
  passed &= ValidateC1ANICTermiation(objEmployee, objEmployment, eniType, strErrKey);
  passed &= ValidateC1ANICTermiationYTD(objEmployee, objEmployment, eniType, strErrKey);
  return passed;
}

bool vlsEmployeeValidator::ValidateBacsHashCode(const Ref<clsEmployee>& objEmployee,
                                                const Ref<clsEmployment>& objEmployment,
                                                const String& strErrKey) {
  static constexpr Rule kRule{.key = "BacsHashCode",
                              .field = "BACS Hash Code",
                              .code = "E7.0.0",
                              .what = "the Payment BACS Hash Code. "};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const String hash = PaymentOf(objEmployment)->BacsHashCode();
    if (hash.empty()) return;
    if (!ValidatePattern(hash, kBacsHashCode)) {
      found.value = hash;
      found.Fail("E7.0.1", "Invalid Format",
                 "BACS Hash Code format incorrect – please contact your support centre");
    }
    if (Length(hash) > 64) {
      found.value = hash;
      found.Fail("E7.11.2", "BACS Hash Code", "BACS Hash Code must not exceed 64 characters!");
    }
  });
}

bool vlsEmployeeValidator::ValidatePayFrequency(const Ref<clsEmployee>& objEmployee,
                                                const Ref<clsEmployment>& objEmployment,
                                                const String& strErrKey) {
  static constexpr Rule kRule{.key = "PayFrequency", .field = "Pay Frequency", .code = "E7.1.0"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const auto frequency = static_cast<Long>(PaymentOf(objEmployment)->PayFrequency());
    if (frequency == -1) {
      found.value = "Undisclosed";
      found.Fail("E7.1.1", "Error – Mandatory", "Pay Frequency missing");
    }
    if (frequency < 0 || frequency >= 9) {
      found.value = "Unidentified";
      found.Fail("E7.1.2", "Error – Enumeration",
                 "Pay Frequency invalid. Must be set to W1, W2, W3, M1, M3, M6, IO or IR");
    }
  });
}

bool vlsEmployeeValidator::ValidateHoursWorked(const Ref<clsEmployee>& objEmployee,
                                               const Ref<clsEmployment>& objEmployment,
                                               const String& strErrKey) {
  static constexpr Rule kRule{.key = "HoursWorked", .field = "Hours Worked", .code = "E7.8.0"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const auto hours = static_cast<Long>(PaymentOf(objEmployment)->HoursWorked());
    if (hours == -1) {
      found.value = "Undisclosed";
      found.Fail("E7.8.1", "Error – Mandatory", "Hours Worked missing");
    }
    if (hours < 0 || hours >= 5) {
      found.value = "Unidentified";
      found.Fail("E7.8.2", "Error – Enumeration",
                 "Hours Worked invalid, must be Up to 15.99, 16 to 23.99 hrs, 24 to 29.99 hours, 30 hrs or "
                 "more or Other");
    }
  });
}

bool vlsEmployeeValidator::ValidatePaymentDate(const Ref<clsEmployee>& objEmployee,
                                               const Ref<clsEmployment>& objEmployment,
                                               const String& strErrKey) {
  static constexpr Rule kRule{.key = "PaymentDate", .field = "Payment Date", .code = "E7.2.0"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Date paid = PaymentOf(objEmployment)->PayDate();
    if (paid.IsZero()) found.Fail("E7.2.1", "Mandatory", "Payment date must be provided");
    YearDates year;
    try {
      year = TaxYearDates();
    } catch (...) {
      found.value = DayText(paid);
      throw;
    }
    if (year.start.IsZero() || year.end.IsZero()) return;
    if (paid < year.start || paid > year.end) {
      found.value = DayText(paid);
      found.Fail("E7.2.2", "Mandatory",
                 "Payment date must be between " + DayText(year.start) + " and " + DayText(year.end) + ".");
    }
  });
}

vlsEmployeeValidator::YearDates vlsEmployeeValidator::TaxYearDates() const {
  if (Length(current_tax_year_) <= 2) return {};
  const int year = ToInteger("20" + Left(current_tax_year_, 2));
  return {Date::FromParts(year, 4, 6), Date::FromParts(year + 1, 4, 5)};
}

bool vlsEmployeeValidator::ValidateWeekOrMonthNumber(const Ref<clsEmployee>& objEmployee,
                                                     const Ref<clsEmployment>& objEmployment,
                                                     const String& strErrKey) {
  static constexpr Rule kRule{.key = "WeekOrMonthNo",
                              .field = "Month No",
                              .code = "E7.3.0",
                              .what = "the Week Number. ",
                              .processing_field = "Month No"};
  static constexpr std::string_view kNeither = "Week Number or Month number must be set";
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Ref<clsPayment> payment = PaymentOf(objEmployment);
    const String week_text = payment->WeekNo();
    const String month_text = payment->MonthNo();
    const double week = NumberOf(week_text);
    const double month = NumberOf(month_text);
    const auto fail = [&](const char* field, const String& value, const char* code, const char* title,
                          std::string_view text) {
      found.At("WeekOrMonthNo", field);
      found.value = value;
      found.Fail(code, title, text);
    };
    if (month != 0 && week == 0 && (month < 1 || month > 12)) {
      fail("Month No", month_text, "E7.4.1", "Invalid format", "Invalid Month Number, must be 1 to 12");
    }
    if (week == 0 && month == 0) {
      fail("Week No", week_text, "E7.3.2", "Mandatory", kNeither);
      fail("Month No", month_text, "E7.4.2", "Mandatory", kNeither);
    }
    if (week != 0 && month == 0 && (week < 1 || week > 56 || week == 55)) {
      fail("Week No", week_text, "E7.3.1", "Invalid format", "Invalid Week Number, must be 1 to 54 or 56");
    }
    const Integer periods = payment->PeriodsCovered();
    if (periods > 99 || periods < 0) {
      found.At("WeekOrMonthNo_PeriodsCovered", "Periods Covered");
      found.value = ToText(periods);
      found.Fail("E7.4.3", "Invalid value", "_PeriodsCovered");
    }
  });
}

bool vlsEmployeeValidator::ValidatePeriodsCovered(const Ref<clsEmployee>& objEmployee,
                                                  const Ref<clsEmployment>& objEmployment,
                                                  const String& strErrKey) {
  static constexpr Rule kRule{.key = "PeriodsCovered", .field = "Periods Covered", .code = "E7.5.0"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Integer periods = PaymentOf(objEmployment)->PeriodsCovered();
    if (periods >= 1 && periods <= 99) return;
    found.value = ToText(periods);
    if (periods == 0) found.Fail("E7.5.2", "Mandatory", "Periods covered must be set");
    found.Fail("E7.5.1", "Invalid format", "Invalid Number of Periods Covered, must be 1 to 99");
  });
}

bool vlsEmployeeValidator::ValidateTaxCode(const Ref<clsEmployee>& objEmployee,
                                           const Ref<clsEmployment>& objEmployment, const String& strErrKey) {
  static constexpr Rule kRule{.key = "TaxCode", .field = "Tax Code", .code = "E6.1.0"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Ref<clsTaxCode> tax_code = PaymentOf(objEmployment)->TaxCode();
    if (tax_code->Validated()) return;
    const String code = tax_code->TaxCode();
    if (!ValidatePattern(code, kTaxCode)) {
      found.value = code;
      const std::size_t length = Length(code);
      const bool fits = length >= 2 && length <= 7;
      if (code.empty()) found.Fail("E7.9.1", "Mandatory", "Tax Code missing");
      if (!fits) found.Fail("E7.9.1a", "Invalid format", "Tax code invalid");
      if (fits) found.Fail("E7.9.2", "Invalid format", "Tax code Invalid");
    }
    tax_code->Validated(found.Passed());
  });
}

}  // namespace zelnor
