#include "zelnor/common/record.h"
#include "zelnor/documents/clsQuestionsAndDeclarations.h"
#include "zelnor/validation/vlsCompanyValidator.h"

namespace zelnor {
namespace {

constexpr std::string_view kClass = "vlsCompanyValidator";

/// A rule that tests nothing.
constexpr auto kNothing = [](Finding& /*found*/) {};

}  // namespace

bool vlsCompanyValidator::ValidateSchemeCeased(const Ref<clsFinalSubmission>& /*objFinalSubmission*/,
                                               const String& strSourcePrefix) {
  static constexpr Rule kRule{.key = "BecauseSchemeCeased",
                              .field = "BecauseSchemeCeased",
                              .code = "E12.1.0",
                              .what = "the Scheme Ceased flag. "};
  return Check(kRule, strSourcePrefix, kNothing);
}

bool vlsCompanyValidator::ValidateForYear(const Ref<clsFinalSubmission>& /*objFinalSubmission*/,
                                          const String& strSourcePrefix) {
  static constexpr Rule kRule{
      .key = "ForYear", .field = "ForYear", .code = "E12.2.0", .what = "the ForYear flag. "};
  return Check(kRule, strSourcePrefix, kNothing);
}

bool vlsCompanyValidator::ValidateQuestionsAndDeclarations(
    const Ref<clsQuestionsAndDeclarations>& objQuestionsAndDeclarations, const String& strSourcePrefix) {
  bool result = false;
  Handled(kClass, "Function ValidateQuestionsAndDeclarations", [&] {
    if (AbsentOrValidated(objQuestionsAndDeclarations)) {
      result = true;
      return;
    }
    bool passed = ValidateFreeOfTaxPayments(objQuestionsAndDeclarations, strSourcePrefix);
    passed &= ValidateExpensesVouchersOrBenefitsFromOthers(objQuestionsAndDeclarations, strSourcePrefix);
    passed &= ValidateEmployedOutsideUKGT30(objQuestionsAndDeclarations, strSourcePrefix);
    passed &= ValidatePayToSomeoneElse(objQuestionsAndDeclarations, strSourcePrefix);
    passed &= ValidateCompletedFormsP11D(objQuestionsAndDeclarations, strSourcePrefix);
    passed &= ValidateServiceCompany(objQuestionsAndDeclarations, strSourcePrefix);
    objQuestionsAndDeclarations->Validated(passed);
    result = passed;
  });
  return result;
}

bool vlsCompanyValidator::ValidateFreeOfTaxPayments(
    const Ref<clsQuestionsAndDeclarations>& /*objQuestionsAndDeclarations*/, const String& strSourcePrefix) {
  static constexpr Rule kRule{.key = "FreeOfTaxPayments",
                              .field = "FreeOfTaxPayments",
                              .code = "E13.1.0",
                              .what = "Free Of Tax Payments Made To Employee. "};
  return Check(kRule, strSourcePrefix, kNothing);
}

bool vlsCompanyValidator::ValidateExpensesVouchersOrBenefitsFromOthers(
    const Ref<clsQuestionsAndDeclarations>& /*objQuestionsAndDeclarations*/, const String& strSourcePrefix) {
  static constexpr Rule kRule{.key = "ExpensesVouchersOrBenefitsFromOthers",
                              .field = "ExpensesVouchersOrBenefitsFromOthers",
                              .code = "E13.2.0",
                              .what = "Expenses Vouchers Or Benefits From Others. "};
  return Check(kRule, strSourcePrefix, kNothing);
}

bool vlsCompanyValidator::ValidateEmployedOutsideUKGT30(
    const Ref<clsQuestionsAndDeclarations>& /*objQuestionsAndDeclarations*/, const String& strSourcePrefix) {
  static constexpr Rule kRule{.key = "EmployedOutsideUKGT30",
                              .field = "EmployedOutsideUKGT30",
                              .code = "E13.3.0",
                              .what = "Employed Outside UK For 30 days Or More. "};
  return Check(kRule, strSourcePrefix, kNothing);
}

bool vlsCompanyValidator::ValidatePayToSomeoneElse(
    const Ref<clsQuestionsAndDeclarations>& /*objQuestionsAndDeclarations*/, const String& strSourcePrefix) {
  static constexpr Rule kRule{.key = "PayToSomeoneElse",
                              .field = "PayToSomeoneElse",
                              .code = "E13.4.0",
                              .what = "Pay To Someone Else. "};
  return Check(kRule, strSourcePrefix, kNothing);
}

bool vlsCompanyValidator::ValidateCompletedFormsP11D(
    const Ref<clsQuestionsAndDeclarations>& /*objQuestionsAndDeclarations*/, const String& strSourcePrefix) {
  static constexpr Rule kRule{.key = "CompletedFormsP11D",
                              .field = "CompletedFormsP11D",
                              .code = "E13.5.0",
                              .what = "Completed Forms P11D . "};
  return Check(kRule, strSourcePrefix, kNothing);
}

bool vlsCompanyValidator::ValidateServiceCompany(
    const Ref<clsQuestionsAndDeclarations>& /*objQuestionsAndDeclarations*/, const String& strSourcePrefix) {
  static constexpr Rule kRule{
      .key = "ServiceCompany", .field = "ServiceCompany", .code = "E13.6.0", .what = "Service Company. "};
  return Check(kRule, strSourcePrefix, kNothing);
}

}  // namespace zelnor
