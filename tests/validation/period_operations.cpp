// The operations of the rules of an Employer Payment Summary for the cases of tests/rules/.

#include "zelnor/documents/clsEPSAccount.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/validation/vlsPaymentForPeriodValidator.h"

#include "validation/rule_scene.h"

namespace zelnor::test {
namespace {

using Period = vlsPaymentForPeriodValidator;

clsSectionEPS& EPS(const Scene& scene) { return *scene.submission->EPS(); }

template <bool (Period::*kRule)(clsSectionEPS&)>
struct SectionRule : AddOperation<Period> {
  explicit SectionRule(const char* name)
      : AddOperation(name, [](Period& validator, Scene& scene) { return (validator.*kRule)(EPS(scene)); }) {}
};

template <bool (Period::*kRule)(clsEPSAccount&, const String&)>
struct AccountRule : AddOperation<Period> {
  explicit AccountRule(const char* name)
      : AddOperation(name, [](Period& validator, Scene& scene) {
          return (validator.*kRule)(*EPS(scene).Account(), scene.Prefix());
        }) {}
};

template <bool (Period::*kRule)(Currency, const String&)>
struct AmountRule : AddOperation<Period> {
  explicit AmountRule(const char* name)
      : AddOperation(name, [](Period& validator, Scene& scene) {
          return (validator.*kRule)(ToCurrency(scene.Argument<String>("value", "0")), scene.Prefix());
        }) {}
};

const AddPreparation kBlankName("AccountName", [](Scene& scene, const Json& value) {
  EPS(scene).Account()->AccountName(value.get<String>());
});
const AddPreparation kBlankRollNo("RollNo", [](Scene& scene, const Json& value) {
  EPS(scene).Account()->RollNo(value.get<String>());
});

const AddPreparation kTaxReference("UndefinedTaxReference", [](Scene& scene, const Json& value) {
  auto references = std::make_shared<clsEmployerReferences>();
  references->SAUTROrCOTAXRef(value.get<String>());  // of no kind
  EPS(scene).Employer_References(references);
});

const SectionRule<&Period::ValidateEPS> kEPS("ValidateEPS");
const SectionRule<&Period::ValidateObjects> kObjects("ValidateObjects");
const SectionRule<&Period::ValidateNoPaymentForPeriod> kNoPayment("ValidateNoPaymentForPeriod");
const SectionRule<&Period::ValidatePeriodOfInactivity> kInactivity("ValidatePeriodOfInactivity");
const SectionRule<&Period::ValidatePaymentForPeriod> kPayment("ValidatePaymentForPeriod");
const AccountRule<&Period::ValidateAccountName> kName("ValidateAccountName");
const AccountRule<&Period::ValidateAccountNo> kNumber("ValidateAccountNo");
const AccountRule<&Period::ValidateAccountSortCode> kSortCode("ValidateAccountSortCode");
const AccountRule<&Period::ValidateAccountRollNo> kRollNo("ValidateAccountRollNo");
const AmountRule<&Period::ValidateSSPRecovered> kSSP("ValidateSSPRecovered");
const AmountRule<&Period::ValidateSMPRecovered> kSMP("ValidateSMPRecovered");
const AmountRule<&Period::ValidateOSPPRecovered> kOSPP("ValidateOSPPRecovered");
const AmountRule<&Period::ValidateSAPRecovered> kSAP("ValidateSAPRecovered");
const AmountRule<&Period::ValidateSPBPRecovered> kSPBP("ValidateSPBPRecovered");
const AmountRule<&Period::ValidateSNCPRecovered> kSNCP("ValidateSNCPRecovered");
const AmountRule<&Period::ValidateASPPRecovered> kASPP("ValidateASPPRecovered");
const AmountRule<&Period::ValidateNICCompensationOnSMP> kOnSMP("ValidateNICCompensationOnSMP");
const AmountRule<&Period::ValidateNICCompensationOnOSPP> kOnOSPP("ValidateNICCompensationOnOSPP");
const AmountRule<&Period::ValidateNICCompensationOnSAP> kOnSAP("ValidateNICCompensationOnSAP");
const AmountRule<&Period::ValidateNICCompensationOnSPBP> kOnSPBP("ValidateNICCompensationOnSPBP");
const AmountRule<&Period::ValidateNICCompensationOnSNCP> kOnSNCP("ValidateNICCompensationOnSNCP");
const AmountRule<&Period::ValidateNICCompensationOnASPP> kOnASPP("ValidateNICCompensationOnASPP");
const AmountRule<&Period::ValidateNICsHoliday> kHoliday("ValidateNICsHoliday");
const AmountRule<&Period::ValidateAppLevyLevyDueYTD> kLevyDue("ValidateAppLevyLevyDueYTD");
const AmountRule<&Period::ValidateAppLevyAnnualAllowance> kAllowance("ValidateAppLevyAnnualAllowance");

const AddOperation<Period> kLevyMonth("ValidateAppLevyTaxMonth", [](Period& validator, Scene& scene) {
  return validator.ValidateAppLevyTaxMonth(ToInteger(scene.Argument<String>("value", "0")), scene.Prefix());
});
const AddOperation<Period> kCIS("ValidateCISDeductionsSuffered", [](Period& validator, Scene& scene) {
  return validator.ValidateCISDeductionsSuffered(ToCurrency(scene.Argument<String>("value", "0")),
                                                 scene.Argument<String>("reference", ""), scene.Prefix());
});
const AddOperation<Period> kTaxMonth("ValidateTaxMonth", [](Period& validator, Scene& scene) {
  return validator.ValidateTaxMonth(scene.Argument<String>("month", ""), scene.Prefix());
});

}  // namespace
}  // namespace zelnor::test
