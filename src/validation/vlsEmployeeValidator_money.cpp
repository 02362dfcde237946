// The amounts of a payment: each within its range, some in whole pounds. A rule is a row.

#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

namespace zelnor {

/// A rule of an amount; both bounds belong to the range.
struct MoneyRow {
  Rule rule;
  std::string_view code;
  Currency (clsPayment::*amount)() const;
  struct Range {
    double low;
    double high;
    std::string_view message;
    bool whole_pounds = false;
  } range;
};

namespace {

using Pay = clsPayment;
using Range = MoneyRow::Range;

constexpr Range kSigned{-999999999.99, 999999999.99,
                        "Invalid value or format. Must be -999999999.99 to 999999999.99"};
constexpr Range kLoan{-99999, 99999, "Invalid value or format and in whole pounds only", true};
// The message promises an upper bound of ten times as much.
constexpr Range kTax{-9999999999.99, 999999999.99,
                     "Invalid value or format. Must be -9999999999.99 to 9999999999.99"};
constexpr Range kSickPay{0, 9999.99, "Invalid value or format. Must be 0.00 to 9999.99"};
constexpr Range kStatutory{0, 999999.99, "Invalid value or format. Must be 0.00 to 999999.99"};
constexpr Range kStatutoryOfEYU{-999999.99, 999999.99,
                                "Invalid value or format. Must be -999999.99 to 999999.99"};
constexpr Range kTermination{0, 999999999.99, "Invalid value or format. Must be 0.00 to 999999999.99"};

// Key word, field, code and name of the processing error; code, amount and range.
constexpr MoneyRow kTaxablePay{
    {"TaxablePay", "Taxable Pay", "E7.10.0"}, "E7.10.1", &Pay::TaxablePay, kSigned};
constexpr MoneyRow kNonTaxOrNICPmt{{"NonTaxNonNIablePayment", "Non-Taxable and Non-Niable Payment", "E7.11.0",
                                    "the Non-Tax/NIable Payment. "},
                                   "E7.11.1",
                                   &Pay::NonTaxOrNICPmt,
                                   kSigned};
constexpr MoneyRow kDednsFromNetPay{
    {"DednsFromNetPayPayment", "Deductions from Net Pay", "E7.12.0", "the Deductions from Net Pay Payment. "},
    "E7.12.1",
    &Pay::DednsFromNetPay,
    kSigned};
constexpr MoneyRow kPayAfterStatDedns{{"PayPostStatDednsPayment", "Pay after Stat. Deductions", "E7.13.0",
                                       "the Deductions from Pay After Statutory Deductions Payment. "},
                                      "E7.13.1",
                                      &Pay::PayAfterStatDedns,
                                      kSigned};
constexpr MoneyRow kBenefitsTaxedViaPay{{"BenefitsTaxedViaPay", "Benefits Taxed Via Payroll", "E7.14.0"},
                                        "E7.14.1",
                                        &Pay::BenefitsTaxedViaPayroll,
                                        kSigned};
constexpr MoneyRow kPensionCtbns{
    {"EmpeePensionCtbns", "Empee Pension Contributions", "E7.17.0", "the Employee Pension Contributions. "},
    "E7.17.1",
    &Pay::EmpeePenContribnsPaid,
    kSigned};
constexpr MoneyRow kItemsSubjToC1NIC{{"ItemsSubjToC1NIC", "Items Subject to Class 1 NIC", "E7.18.0"},
                                     "E7.18.1",
                                     &Pay::ItemsSubjectToClass1NIC,
                                     kSigned};
constexpr MoneyRow kPensionCtbnsNotPaid{{"EmpeePensionCtbnsNotPaid", "Empee Pension Contributions Not Paid",
                                         "E7.19.0", "the Employee Pension Contributions Not Paid. "},
                                        "E7.19.1",
                                        &Pay::EmpeePenContribnsNotPaid,
                                        kSigned};
constexpr MoneyRow kStudentLoans{{"StudentLoansRecovered", "Student Loans Recovered", "E7.20.0"},
                                 "E7.20.1",
                                 &Pay::StudentLoanRecovered,
                                 kLoan};
constexpr MoneyRow kPostgradLoans{{"PostgraduateLoansRecovered", "Postgraduate Loans Recovered", "E7.20.0"},
                                  "E7.20.1",
                                  &Pay::PostgradLoanRecovered,
                                  kLoan};
constexpr MoneyRow kTaxDeducted{{"TaxDeductedOrRefunded", "Tax Deducted or Refunded", "E7.21.0"},
                                "E7.21.1",
                                &Pay::TaxDeductedOrRefunded,
                                kTax};
constexpr MoneyRow kSSPYTD{{"SSPYTD", "SSPYTD", "E7.22.0"}, "E7.22.1", &Pay::SSPYTD, kSickPay};
constexpr MoneyRow kSMPYTD{{"SMPYTD", "SMPYTD", "E7.23.0"}, "E7.23.1", &Pay::SMPYTD, kStatutory};
constexpr MoneyRow kSPPYTD{{"SPPYTD", "SPPYTD", "E7.24.0"}, "E7.24.1", &Pay::OSPPYTD, kStatutory};
constexpr MoneyRow kSAPYTD{
    {"SAPYTD", "SAPYTD", "E7.25.0", "the SAP YTD. "}, "E7.25.1", &Pay::SAPYTD, kStatutory};
constexpr MoneyRow kSPBPYTD{
    {"SPBPYTD", "SPBPYTD", "E7.28.0", "the SPBP YTD. "}, "E7.28.1", &Pay::SPBPYTD, kStatutory};
constexpr MoneyRow kSNCPYTD{
    {"SNCPYTD", "SNCPYTD", "E7.29.0", "the SNCP YTD. "}, "E7.29.1", &Pay::SNCPYTD, kStatutory};
constexpr MoneyRow kShPPYTD{
    {"ShPPYTD", "ShPPYTD", "E7.26.0", "the ShPP YTD. "}, "E7.26.1", &Pay::ASPPYTD, kStatutory};
constexpr MoneyRow kC1ANICTermination{{"C1ANICTernmination", "C1ANICTernmination", "E7.23.0"},
                                      "E7.23.1",
                                      &Pay::C1ANICtermination,
                                      kTermination};
constexpr MoneyRow kC1ANICTerminationYTD{{"C1ANICTernminationYTD", "C1ANICTernminationYTD", "E7.23.0"},
                                         "E7.23.1",
                                         &Pay::C1ANICterminationYTD,
                                         kTermination};

bool IsEYU(eRTISUBMISSIONTYPE type) { return type == eRTISUBMISSIONTYPE::IsEYU; }

/// The row of a statutory payment, which an EYU may correct downwards.
MoneyRow InDocument(MoneyRow row, eRTISUBMISSIONTYPE type) {
  if (IsEYU(type)) row.range = kStatutoryOfEYU;
  return row;
}

}  // namespace

bool vlsEmployeeValidator::CheckMoney(const Ref<clsEmployee>& objEmployee,
                                      const Ref<clsEmployment>& objEmployment, const MoneyRow& row,
                                      const String& strErrKey) {
  return CheckOf(objEmployee, row.rule, strErrKey, [&](Finding& found) {
    const Currency amount = (*Required(objEmployment).Payment().*row.amount)();
    const double value = amount.ToDouble();
    const bool in_range = value >= row.range.low && value <= row.range.high;
    if (in_range && (!row.range.whole_pounds || IsWholePounds(value))) return;
    found.value = FormatMoney(amount);
    found.Fail(row.code, "Invalid format", row.range.message);
  });
}

bool vlsEmployeeValidator::ValidateTaxablePay(const Ref<clsEmployee>& objEmployee,
                                              const Ref<clsEmployment>& objEmployment,
                                              const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kTaxablePay, strErrKey);
}

bool vlsEmployeeValidator::ValidateNonTaxNonNIPayment(const Ref<clsEmployee>& objEmployee,
                                                      const Ref<clsEmployment>& objEmployment,
                                                      const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kNonTaxOrNICPmt, strErrKey);
}

bool vlsEmployeeValidator::ValidateDednsFromNetPayPayment(const Ref<clsEmployee>& objEmployee,
                                                          const Ref<clsEmployment>& objEmployment,
                                                          const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kDednsFromNetPay, strErrKey);
}

bool vlsEmployeeValidator::ValidatePayPostStatDednsPayment(const Ref<clsEmployee>& objEmployee,
                                                           const Ref<clsEmployment>& objEmployment,
                                                           const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kPayAfterStatDedns, strErrKey);
}

bool vlsEmployeeValidator::ValidateBenefitsTaxedViaPay(const Ref<clsEmployee>& objEmployee,
                                                       const Ref<clsEmployment>& objEmployment,
                                                       const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kBenefitsTaxedViaPay, strErrKey);
}

bool vlsEmployeeValidator::ValidateEmpeePensionCtbns(const Ref<clsEmployee>& objEmployee,
                                                     const Ref<clsEmployment>& objEmployment,
                                                     const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kPensionCtbns, strErrKey);
}

bool vlsEmployeeValidator::ValidateItemsSubjToC1NIC(const Ref<clsEmployee>& objEmployee,
                                                    const Ref<clsEmployment>& objEmployment,
                                                    const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kItemsSubjToC1NIC, strErrKey);
}

bool vlsEmployeeValidator::ValidateEmpeePensionCtbnsNotPaid(const Ref<clsEmployee>& objEmployee,
                                                            const Ref<clsEmployment>& objEmployment,
                                                            const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kPensionCtbnsNotPaid, strErrKey);
}

bool vlsEmployeeValidator::ValidateStudentLoansRecovered(const Ref<clsEmployee>& objEmployee,
                                                         const Ref<clsEmployment>& objEmployment,
                                                         const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kStudentLoans, strErrKey);
}

bool vlsEmployeeValidator::ValidatePostgradLoansRecovered(const Ref<clsEmployee>& objEmployee,
                                                          const Ref<clsEmployment>& objEmployment,
                                                          const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kPostgradLoans, strErrKey);
}

bool vlsEmployeeValidator::ValidateTaxDeductedOrRefunded(const Ref<clsEmployee>& objEmployee,
                                                         const Ref<clsEmployment>& objEmployment,
                                                         const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kTaxDeducted, strErrKey);
}

bool vlsEmployeeValidator::ValidateSSPYTD(const Ref<clsEmployee>& objEmployee,
                                          const Ref<clsEmployment>& objEmployment, const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kSSPYTD, strErrKey);
}

bool vlsEmployeeValidator::ValidateSMPYTD(const Ref<clsEmployee>& objEmployee,
                                          const Ref<clsEmployment>& objEmployment, eRTISUBMISSIONTYPE eniType,
                                          const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, InDocument(kSMPYTD, eniType), strErrKey);
}

bool vlsEmployeeValidator::ValidateSPPYTD(const Ref<clsEmployee>& objEmployee,
                                          const Ref<clsEmployment>& objEmployment, const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kSPPYTD, strErrKey);
}

bool vlsEmployeeValidator::ValidateSAPYTD(const Ref<clsEmployee>& objEmployee,
                                          const Ref<clsEmployment>& objEmployment, eRTISUBMISSIONTYPE eniType,
                                          const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, InDocument(kSAPYTD, eniType), strErrKey);
}

bool vlsEmployeeValidator::ValidateSPBPYTD(const Ref<clsEmployee>& objEmployee,
                                           const Ref<clsEmployment>& objEmployment,
                                           eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, InDocument(kSPBPYTD, eniType), strErrKey);
}

bool vlsEmployeeValidator::ValidateSNCPYTD(const Ref<clsEmployee>& objEmployee,
                                           const Ref<clsEmployment>& objEmployment, const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kSNCPYTD, strErrKey);
}

bool vlsEmployeeValidator::ValidateShPPYTD(const Ref<clsEmployee>& objEmployee,
                                           const Ref<clsEmployment>& objEmployment, const String& strErrKey) {
  return CheckMoney(objEmployee, objEmployment, kShPPYTD, strErrKey);
}

bool vlsEmployeeValidator::ValidateC1ANICTermiation(const Ref<clsEmployee>& objEmployee,
                                                    const Ref<clsEmployment>& objEmployment,
                                                    eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  return IsEYU(eniType) || CheckMoney(objEmployee, objEmployment, kC1ANICTermination, strErrKey);
}

bool vlsEmployeeValidator::ValidateC1ANICTermiationYTD(const Ref<clsEmployee>& objEmployee,
                                                       const Ref<clsEmployment>& objEmployment,
                                                       eRTISUBMISSIONTYPE eniType, const String& strErrKey) {
  return IsEYU(eniType) || CheckMoney(objEmployee, objEmployment, kC1ANICTerminationYTD, strErrKey);
}

}  // namespace zelnor
