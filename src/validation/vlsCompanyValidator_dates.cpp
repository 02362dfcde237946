#include "zelnor/common/process_state.h"
#include "zelnor/documents/clsFinalSubmission.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/formats.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/pattern.h"
#include "zelnor/validation/today.h"
#include "zelnor/validation/vlsCompanyValidator.h"

namespace zelnor {
namespace {

constexpr std::string_view kClass = "vlsCompanyValidator";

const Pattern kTaxYear("[0-9]{2}-[0-9]{2}");

String DayText(Date date) { return Format(date, "dd/mm/yyyy"); }

/// The year in which the tax year of a document ends; of one without a tax year the current year.
Integer TaxYearEnd(clsSubmission& submission) {
  String tax_year;
  switch (submission.SubmissionType()) {
    case eRTISUBMISSIONTYPE::IsFPS:
      tax_year = Required(submission.FPS()).TaxYear();
      break;
    case eRTISUBMISSIONTYPE::IsEPS:
      tax_year = Required(submission.EPS()).TaxYear();
      break;
    case eRTISUBMISSIONTYPE::IsEYU:
      tax_year = Required(submission.EYU()).TaxYear();
      break;
    default:
      return ToInteger(CurrentHost()->Now().Year());
  }
  return ToInteger(2000 + ToInteger(Right(tax_year, 2)));
}

}  // namespace

bool vlsCompanyValidator::ValidateRelatedTaxYear(const String& strTaxYear, Date datPeriodEnd,
                                                 const String& strSourcePrefix) {
  return CheckTaxYear(strTaxYear, datPeriodEnd, strSourcePrefix, strTaxYear + " / " + DayText(datPeriodEnd));
}

bool vlsCompanyValidator::ValidateEYURelatedTaxYear(const String& strTaxYear, Date datPeriodEnd,
                                                    const String& strSourcePrefix) {
  return CheckTaxYear(strTaxYear, datPeriodEnd, strSourcePrefix, strTaxYear);
}

bool vlsCompanyValidator::CheckTaxYear(const String& tax_year, Date period_end, const String& prefix,
                                       const String& value_of_period_end) {
  static constexpr Rule kRule{
      .key = "RelatedTaxYear", .field = "RelatedTaxYear", .code = "E2.1.0", .what = "the Related Tax Year. "};
  static constexpr Integer kWarning = 2;
  static constexpr const char* kFormat = "Invalid Format";
  static constexpr const char* kFormatText = "Invalid format – must be in format 99-99 e.g. 12-13";
  return Check(kRule, prefix, [&](Finding& found) {
    found.value = tax_year;
    const String first_year = Left(tax_year, 2);
    const String last_year = Right(tax_year, 2);
    if (Length(tax_year) != 5) {
      found.Fail("E2.1.1", "Mandatory", "Related Tax Year must be present", kWarning);
    } else {
      if (!ValidatePattern(tax_year, kTaxYear)) found.Fail("E2.1.2", kFormat, kFormatText);
      if (ToInteger(last_year) != ToInteger(first_year) + 1) found.Fail("E2.1.2", kFormat, kFormatText);
      if (ToInteger(first_year) < 12) {
        found.Fail("E2.1.3", kFormat, "Year Must be year 12-13 at the earliest", kWarning);
      }
    }
    if (period_end < ToDate("20" + first_year + "-04-06") ||
        period_end > ToDate("20" + last_year + "-04-05")) {
      found.value = value_of_period_end;
      found.Fail("E2.1.4", "Mandatory", "Period End has to fall within tax year");
    }
  });
}

bool vlsCompanyValidator::ValidateFinalSubmission(const Ref<clsFinalSubmission>& objFinalSubmission,
                                                  const Ref<clsSubmission>& objsubmission,
                                                  const String& strSourcePrefix) {
  bool result = false;
  Handled(kClass, "Function ValidateFinalSubmission", [&] {
    if (AbsentOrValidated(objFinalSubmission)) {
      result = true;
      return;
    }
    const bool passed =
        ValidateDateSchemeCeased(objFinalSubmission, TaxYearEnd(Required(objsubmission)), strSourcePrefix);
    objFinalSubmission->Validated(passed);
    result = passed;
  });
  return result;
}

// Nothing but today bounds the date from above: a scheme may cease after the document's tax year.
bool vlsCompanyValidator::ValidateDateSchemeCeased(const Ref<clsFinalSubmission>& objFinalSubmission,
                                                   Integer TaxYear, const String& strSourcePrefix) {
  static constexpr Rule kRule{.key = "DateSchemeCeased",
                              .field = "DateSchemeCeased",
                              .code = "E12.4.0",
                              .what = "the Scheme Ceased Date. "};
  return Check(kRule, strSourcePrefix, [&](Finding& found) {
    const Date ceased = Required(objFinalSubmission).DateSchemeCeased();
    if (ceased.IsZero()) return;
    found.value = DayText(ceased);
    if (ceased > Today()) {
      found.Fail("E12.4.1", "Invalid Date", "Scheme Ceased Date must be today or earlier.");
    }
    if (ceased < Date::FromParts(TaxYear - 1, 4, 6)) {
      found.Fail("E12.4.1", "Invalid Date",
                 "You have entered a Date Scheme Ceased date that does not fall in the current tax year.");
    }
  });
}

}  // namespace zelnor
