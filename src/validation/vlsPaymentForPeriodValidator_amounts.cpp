#include "zelnor/platform/conversions.h"
#include "zelnor/platform/formats.h"
#include "zelnor/validation/vlsPaymentForPeriodValidator.h"

namespace zelnor {
namespace {

// Each amount has a rule of this make.
constexpr Rule AmountRule(std::string_view field, std::string_view processing_code) {
  return {.key = field, .field = field, .code = processing_code, .ending = " value. "};
}

const Currency kNothing;
const Currency kEightDigits = Currency::FromPence(9'999'999'999);
const Currency kNineDigits = Currency::FromPence(99'999'999'999);
const Currency kTenDigits = Currency::FromPence(999'999'999'999);

}  // namespace

bool vlsPaymentForPeriodValidator::ValidateCurrencyRange(Currency value, Currency low, Currency high,
                                                         const String& strErrKey, const Rule& rule,
                                                         std::string_view code) {
  return Check(rule, strErrKey, [&](Finding& found) {
    if (value >= low && value <= high) return;
    found.value = Format(value, "#0.00");
    found.Fail(code, "Invalid format",
               "Invalid value or format. Must be " + Format(low, "#0.00") + " to " + Format(high, "#0.00"));
  });
}

bool vlsPaymentForPeriodValidator::ValidateSSPRecovered(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("SSP Recovered", "E14.3.0");
  return ValidateCurrencyRange(curValue, kNothing, kEightDigits, strErrKey, kRule, "E14.3.1");
}

bool vlsPaymentForPeriodValidator::ValidateSMPRecovered(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("SMP Recovered", "E14.4.0");
  return ValidateCurrencyRange(curValue, kNothing, kEightDigits, strErrKey, kRule, "E14.4.1");
}

bool vlsPaymentForPeriodValidator::ValidateOSPPRecovered(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("SPP Recovered", "E14.5.0");
  return ValidateCurrencyRange(curValue, kNothing, kEightDigits, strErrKey, kRule, "E14.5.1");
}

bool vlsPaymentForPeriodValidator::ValidateSAPRecovered(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("SAP Recovered", "E14.6.0");
  return ValidateCurrencyRange(curValue, kNothing, kEightDigits, strErrKey, kRule, "E14.6.1");
}

bool vlsPaymentForPeriodValidator::ValidateSPBPRecovered(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("SPBP Recovered", "E14.15.0");
  return ValidateCurrencyRange(curValue, kNothing, kEightDigits, strErrKey, kRule, "E14.15.0");
}

bool vlsPaymentForPeriodValidator::ValidateSNCPRecovered(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("SNCP Recovered", "E14.17.0");
  return ValidateCurrencyRange(curValue, kNothing, kEightDigits, strErrKey, kRule, "E14.17.0");
}

bool vlsPaymentForPeriodValidator::ValidateASPPRecovered(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("ShPP Recovered", "E14.7.0");
  return ValidateCurrencyRange(curValue, kNothing, kEightDigits, strErrKey, kRule, "E14.7.1");
}

bool vlsPaymentForPeriodValidator::ValidateNICCompensationOnSMP(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("NIC Compensation on SMP", "E14.8.0");
  return ValidateCurrencyRange(curValue, kNothing, kEightDigits, strErrKey, kRule, "E14.8.1");
}

bool vlsPaymentForPeriodValidator::ValidateNICCompensationOnOSPP(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("NIC Compensation on SPP", "E14.9.0");
  return ValidateCurrencyRange(curValue, kNothing, kEightDigits, strErrKey, kRule, "E14.9.1");
}

bool vlsPaymentForPeriodValidator::ValidateNICCompensationOnSAP(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("NIC Compensation on SAP", "E14.10.0");
  return ValidateCurrencyRange(curValue, kNothing, kEightDigits, strErrKey, kRule, "E14.10.1");
}

bool vlsPaymentForPeriodValidator::ValidateNICCompensationOnSPBP(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("NIC Compensation on SPBP", "E14.16.0");
  return ValidateCurrencyRange(curValue, kNothing, kEightDigits, strErrKey, kRule, "E14.16.1");
}

bool vlsPaymentForPeriodValidator::ValidateNICCompensationOnSNCP(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("NIC Compensation on SNCP", "E14.18.0");
  return ValidateCurrencyRange(curValue, kNothing, kEightDigits, strErrKey, kRule, "E14.18.1");
}

bool vlsPaymentForPeriodValidator::ValidateNICCompensationOnASPP(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("NIC Compensation on ShPP", "E14.11.0");
  return ValidateCurrencyRange(curValue, kNothing, kEightDigits, strErrKey, kRule, "E14.11.1");
}

bool vlsPaymentForPeriodValidator::ValidateNICsHoliday(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("NICs Holiday", "E14.13.0");
  return ValidateCurrencyRange(curValue, kNothing, kNineDigits, strErrKey, kRule, "E14.13.1");
}

bool vlsPaymentForPeriodValidator::ValidateCISDeductionsSuffered(Currency curValue, const String& strCOTAXRef,
                                                                 const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("CIS Deductions Suffered", "E14.12.0");
  const bool in_range = ValidateCurrencyRange(curValue, kNothing, kTenDigits, strErrKey, kRule, "E14.12.1");
  const bool has_reference = Check(kRule, strErrKey, [&](Finding& found) {
    if (!strCOTAXRef.empty() || curValue <= kNothing) return;
    found.value = Format(curValue, "#0.00");
    found.Fail("E14.12.2", "Must Be Present",
               "If [CISDEDUCTIONSSUFFERED] is greater than zero, [COTAXREF] must be present");
  });
  return in_range && has_reference;
}

// The levy's rules bear the codes of statutory sick pay.

bool vlsPaymentForPeriodValidator::ValidateAppLevyTaxMonth(Integer intValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("TaxMonth", "E14.3.0");
  return ValidateCurrencyRange(Currency(intValue), Currency(1), Currency(12), strErrKey, kRule, "E14.3.0");
}

bool vlsPaymentForPeriodValidator::ValidateAppLevyLevyDueYTD(Currency curValue, const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("LevyDueYTD", "E14.3.0");
  return ValidateCurrencyRange(curValue, kNothing, Currency(99'999'999), strErrKey, kRule, "E14.3.0");
}

bool vlsPaymentForPeriodValidator::ValidateAppLevyAnnualAllowance(Currency curValue,
                                                                  const String& strErrKey) {
  static constexpr Rule kRule = AmountRule("AnnualAllce", "E14.3.0");
  return ValidateCurrencyRange(curValue, kNothing, Currency(15'000), strErrKey, kRule, "E14.3.0");
}

}  // namespace zelnor
