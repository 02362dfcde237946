#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsFiguresToDate.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/formats.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/employee_parts.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

#include <cmath>

#include <fmt/format.h>

namespace zelnor {
namespace {

constexpr Currency kMostLoan = 99999;

/// A number as text; the platform has none for what is no number or infinite.
String Written(double value) { return std::isfinite(value) ? ToText(value) : fmt::format("{}", value); }

}  // namespace

bool vlsEmployeeValidator::IsWholePounds(double value) const {
  const auto too_large = [value](const RuntimeError& error) {
    return RuntimeError(
        error.Number(), "[ZELNOR.DLL::vlsEmployeeValidator.IsWholePounds",
        "Overflow: the number " + Written(value) + " is too large for the available comparable field types.");
  };
  try {
    return static_cast<double>(ToLong(value)) == value;
  } catch (const RuntimeError& error) {
    if (LowerCase(error.Description()).find("overflow") == String::npos) throw too_large(error);
  }
  try {
    return ToDouble(Format(value, "#0")) == ToDouble(Format(value, "#0.00"));
  } catch (const RuntimeError& error) {
    throw too_large(error);
  }
}

/// A figure to date, and its range.
struct vlsEmployeeValidator::FiguresRow {
  Rule rule;
  Currency (clsFiguresToDate::*figure)() const;
  Currency low;
  Currency high;
  bool whole_pounds;
  std::string_view code;
  std::string_view message;
};

bool vlsEmployeeValidator::CheckFigure(const FiguresRow& row, const Ref<clsEmployee>& objEmployee,
                                       const Ref<clsEmployment>& objEmployment, const String& strErrKey) {
  return CheckOf(objEmployee, row.rule, strErrKey, [&](Finding& found) {
    const Ref<clsFiguresToDate> figures = Required(objEmployment).FiguresToDate();
    const Currency value = (Required(figures).*row.figure)();
    const bool in_range = value >= row.low && value <= row.high;
    if (in_range && (!row.whole_pounds || IsWholePounds(value.ToDouble()))) return;
    found.value = Format(value, "#0.00");
    found.Fail(row.code, "Invalid format", row.message);
  });
}

bool vlsEmployeeValidator::ValidateFiguresToDate(const Ref<clsEmployee>& objEmployee,
                                                 const Ref<clsEmployment>& objEmployment,
                                                 const String& strErrKey) {
  return Walk(strErrKey, [&] {
    const Ref<clsFiguresToDate> figures = Required(objEmployment).FiguresToDate();
    if (Required(figures).Validated()) return true;
    bool passed = ValidateTaxablePayYTD(objEmployee, objEmployment, strErrKey);
    passed &= ValidateTotalTaxYTD(objEmployee, objEmployment, strErrKey);
    passed &= ValidateStudentLoansYTD(objEmployee, objEmployment, strErrKey);
    passed &= ValidatePostgradLoansYTD(objEmployee, objEmployment, strErrKey);
    passed &= ValidateBenefitsTaxedViaPayrollYTD(objEmployee, objEmployment, strErrKey);
    passed &= ValidateEmpeePenContribnsPaidYTD(objEmployee, objEmployment, strErrKey);
    passed &= ValidateEmpeePenContribnsNotPaidYTD(objEmployee, objEmployment, strErrKey);
    figures->Validated(passed);
    return passed;
  });
}

// Zero passes, whatever the message says.
bool vlsEmployeeValidator::ValidateTaxablePayYTD(const Ref<clsEmployee>& objEmployee,
                                                 const Ref<clsEmployment>& objEmployment,
                                                 const String& strErrKey) {
  static constexpr FiguresRow kRow{.rule = {.key = "TaxablePayYTD",
                                            .field = "Taxable Pay YTD",
                                            .code = "E7.10.0",
                                            .what = "the Taxable Pay. "},
                                   .figure = &clsFiguresToDate::TaxablePay,
                                   .low = 0,
                                   .high = kMostPounds,
                                   .whole_pounds = false,
                                   .code = "E8.1.1",
                                   .message = "Invalid value or format. Must be 0.01 to 999999999.99"};
  return CheckFigure(kRow, objEmployee, objEmployment, strErrKey);
}

bool vlsEmployeeValidator::ValidateTotalTaxYTD(const Ref<clsEmployee>& objEmployee,
                                               const Ref<clsEmployment>& objEmployment,
                                               const String& strErrKey) {
  static constexpr FiguresRow kRow{
      .rule = {.key = "TotalTaxYTD", .field = "Total Tax YTD", .code = "E8.2.0", .what = "the Total Tax. "},
      .figure = &clsFiguresToDate::TotalTax,
      .low = kLeastPounds,
      .high = kMostPounds,
      .whole_pounds = false,
      .code = "E8.2.1",
      .message = "Invalid value or format. Must be -999999999.99 to 999999999.99"};
  return CheckFigure(kRow, objEmployee, objEmployment, strErrKey);
}

bool vlsEmployeeValidator::ValidateStudentLoansYTD(const Ref<clsEmployee>& objEmployee,
                                                   const Ref<clsEmployment>& objEmployment,
                                                   const String& strErrKey) {
  static constexpr FiguresRow kRow{
      .rule = {.key = "StudentLoansYTD", .field = "Student Loans YTD", .code = "E8.3.0"},
      .figure = &clsFiguresToDate::StudentLoans,
      .low = 0,
      .high = kMostLoan,
      .whole_pounds = true,
      .code = "E8.3.1",
      .message =
          "Student Loans YTD: Invalid value or format. Must be 0.00 to 99999.00 and in whole pounds only"};
  return CheckFigure(kRow, objEmployee, objEmployment, strErrKey);
}

bool vlsEmployeeValidator::ValidatePostgradLoansYTD(const Ref<clsEmployee>& objEmployee,
                                                    const Ref<clsEmployment>& objEmployment,
                                                    const String& strErrKey) {
  static constexpr FiguresRow kRow{.rule = {.key = "PostgradLoansYTD",
                                            .field = "Student Loans YTD",
                                            .code = "E8.3.0",
                                            .what = "the Postgraduate Loans YTD. ",
                                            .processing_field = "Postgraduate Loans YTD"},
                                   .figure = &clsFiguresToDate::PostgradLoans,
                                   .low = 0,
                                   .high = kMostLoan,
                                   .whole_pounds = true,
                                   .code = "E8.3.1",
                                   .message =
                                       "Postgraduate Loans YTD: Invalid value or format. Must be 0.00 to "
                                       "99999.00 and in whole pounds only"};
  return CheckFigure(kRow, objEmployee, objEmployment, strErrKey);
}

bool vlsEmployeeValidator::ValidateBenefitsTaxedViaPayrollYTD(const Ref<clsEmployee>& objEmployee,
                                                              const Ref<clsEmployment>& objEmployment,
                                                              const String& strErrKey) {
  static constexpr FiguresRow kRow{
      .rule = {.key = "BenefitsTaxedViaPayrollYTD",
               .field = "Benefits Taxed Via Payroll YTD",
               .code = "E8.4.0"},
      .figure = &clsFiguresToDate::BenefitsTaxedViaPayrollYTD,
      .low = 0,
      .high = kMostPounds,
      .whole_pounds = false,
      .code = "E8.4.1",
      .message = "Benefits Taxed Via Payroll YTD: Invalid value or format. Must be 0.00 to 999999999.99."};
  return CheckFigure(kRow, objEmployee, objEmployment, strErrKey);
}

bool vlsEmployeeValidator::ValidateEmpeePenContribnsPaidYTD(const Ref<clsEmployee>& objEmployee,
                                                            const Ref<clsEmployment>& objEmployment,
                                                            const String& strErrKey) {
  static constexpr FiguresRow kRow{
      .rule = {.key = "ValidateEmpeePenContribnsPaidYTD",
               .field = "Empee Pen Contributions Paid YTD",
               .code = "E8.5.0"},
      .figure = &clsFiguresToDate::EmpeePensionContribnsPaidYTD,
      .low = 0,
      .high = kMostPounds,
      .whole_pounds = false,
      .code = "E8.5.1",
      .message = "Empee Pen Contributions Paid YTD: Invalid value or format. Must be 0.00 to 999999999.99."};
  return CheckFigure(kRow, objEmployee, objEmployment, strErrKey);
}

bool vlsEmployeeValidator::ValidateEmpeePenContribnsNotPaidYTD(const Ref<clsEmployee>& objEmployee,
                                                               const Ref<clsEmployment>& objEmployment,
                                                               const String& strErrKey) {
  static constexpr FiguresRow kRow{
      .rule = {.key = "ValidateEmpeePenContribnsNotPaidYTD",
               .field = "Empee Pen Contributions Not Paid YTD",
               .code = "E8.5.0"},
      .figure = &clsFiguresToDate::EmpeePensionContribnsNotPaidYTD,
      .low = 0,
      .high = kMostPounds,
      .whole_pounds = false,
      .code = "E8.5.1",
      .message =
          "Empee Pen Contributions Not Paid YTD: Invalid value or format. Must be 0.00 to 999999999.99."};
  return CheckFigure(kRow, objEmployee, objEmployment, strErrKey);
}

}  // namespace zelnor
