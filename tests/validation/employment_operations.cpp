// The operations of the rules of employments, starters and payments for the cases of tests/rules/.
//
// Arguments: "absent" for no employment, "absent employee" for no employee, "type" for a type of document
// other than the base's own, "tax_year" as documents have it.

#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsFiguresToDate.h"
#include "zelnor/documents/clsNILettersAndValues.h"
#include "zelnor/documents/clsPayIdChgd.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/documents/clsStarter.h"
#include "zelnor/platform/conversions.h"

#include "validation/scene_employees.h"

namespace zelnor::test {
namespace {

using Employees = vlsEmployeeValidator;

Ref<clsEmployee> Employee(const Scene& scene) {
  return scene.Argument("absent employee", false) ? nullptr : FirstEmployee(scene);
}

Ref<clsEmployment> Employment(const Scene& scene) {
  return scene.Argument("absent", false) ? nullptr : FirstEmployment(scene);
}

eRTISUBMISSIONTYPE Type(const Scene& scene) {
  const auto type = scene.Argument<String>("type", "");
  if (type.empty()) return scene.submission->SubmissionType();
  return type == "EYU" ? eRTISUBMISSIONTYPE::IsEYU : eRTISUBMISSIONTYPE::IsFPS;
}

template <bool (Employees::*kRule)(const Ref<clsEmployee>&, const Ref<clsEmployment>&, const String&)>
struct EmploymentRule : AddOperation<Employees> {
  explicit EmploymentRule(const char* name)
      : AddOperation(name, [](Employees& validator, Scene& scene) {
          return (validator.*kRule)(Employee(scene), Employment(scene), scene.Prefix());
        }) {}
};

template <bool (Employees::*kRule)(const Ref<clsEmployee>&, const Ref<clsEmployment>&, eRTISUBMISSIONTYPE,
                                   const String&)>
struct TypedRule : AddOperation<Employees> {
  explicit TypedRule(const char* name)
      : AddOperation(name, [](Employees& validator, Scene& scene) {
          return (validator.*kRule)(Employee(scene), Employment(scene), Type(scene), scene.Prefix());
        }) {}
};

const AddOperation<Employees> kEmployment("ValidateEmployment", [](Employees& validator, Scene& scene) {
  TellTaxYear(validator, scene);
  return validator.ValidateEmployment(Employee(scene), Type(scene), scene.Prefix());
});
const AddOperation<Employees> kPayment("ValidatePayment", [](Employees& validator, Scene& scene) {
  return validator.ValidatePayment(Employee(scene), Employment(scene), scene.Prefix(), Type(scene));
});
const AddOperation<Employees> kPaymentDate("ValidatePaymentDate", [](Employees& validator, Scene& scene) {
  TellTaxYear(validator, scene);
  return validator.ValidatePaymentDate(Employee(scene), Employment(scene), scene.Prefix());
});

const EmploymentRule<&Employees::ValidatePayrollID> kPayrollID("ValidatePayrollID");
const EmploymentRule<&Employees::ValidateChangedPayrollID> kChangedPayrollID("ValidateChangedPayrollID");
const EmploymentRule<&Employees::ValidateLeaverDate> kLeaverDate("ValidateLeaverDate");
const EmploymentRule<&Employees::ValidatePartnerDetails> kPartnerDetails("ValidatePartnerDetails");
const EmploymentRule<&Employees::ValidatePartnerShPPRule> kPartnerShPP("ValidatePartnerShPPRule");
const EmploymentRule<&Employees::ValidateStarterDetails> kStarterDetails("ValidateStarterDetails");
const EmploymentRule<&Employees::ValidateStarterDate> kStarterDate("ValidateStarterDate");
const EmploymentRule<&Employees::ValidateStarterDeclarationRule> kDeclaration(
    "ValidateStarterDeclarationRule");
const EmploymentRule<&Employees::ValidateStarterInfoEmptyGroup> kEmptyGroup("ValidateStarterInfoEmptyGroup");
const EmploymentRule<&Employees::ValidateOccPensionAmount> kOccPension("ValidateOccPensionAmount");
const EmploymentRule<&Employees::ValidateBacsHashCode> kBacsHashCode("ValidateBacsHashCode");
const EmploymentRule<&Employees::ValidatePayFrequency> kPayFrequency("ValidatePayFrequency");
const EmploymentRule<&Employees::ValidateWeekOrMonthNumber> kWeekOrMonth("ValidateWeekOrMonthNumber");
const EmploymentRule<&Employees::ValidatePeriodsCovered> kPeriodsCovered("ValidatePeriodsCovered");
const EmploymentRule<&Employees::ValidateHoursWorked> kHoursWorked("ValidateHoursWorked");
const EmploymentRule<&Employees::ValidateTaxCode> kTaxCode("ValidateTaxCode");
const EmploymentRule<&Employees::ValidateTaxablePay> kTaxablePay("ValidateTaxablePay");
const EmploymentRule<&Employees::ValidateNonTaxNonNIPayment> kNonTax("ValidateNonTaxNonNIPayment");
const EmploymentRule<&Employees::ValidateDednsFromNetPayPayment> kDedns("ValidateDednsFromNetPayPayment");
const EmploymentRule<&Employees::ValidatePayPostStatDednsPayment> kPostStat(
    "ValidatePayPostStatDednsPayment");
const EmploymentRule<&Employees::ValidateBenefitsTaxedViaPay> kBenefitsTaxed("ValidateBenefitsTaxedViaPay");
const EmploymentRule<&Employees::ValidateEmpeePensionCtbns> kPension("ValidateEmpeePensionCtbns");
const EmploymentRule<&Employees::ValidateItemsSubjToC1NIC> kItems("ValidateItemsSubjToC1NIC");
const EmploymentRule<&Employees::ValidateEmpeePensionCtbnsNotPaid> kPensionNotPaid(
    "ValidateEmpeePensionCtbnsNotPaid");
const EmploymentRule<&Employees::ValidateStudentLoansRecovered> kStudentLoans(
    "ValidateStudentLoansRecovered");
const EmploymentRule<&Employees::ValidatePostgradLoansRecovered> kPostgradLoans(
    "ValidatePostgradLoansRecovered");
const EmploymentRule<&Employees::ValidateTaxDeductedOrRefunded> kTax("ValidateTaxDeductedOrRefunded");
const EmploymentRule<&Employees::ValidateSSPYTD> kSSP("ValidateSSPYTD");
const TypedRule<&Employees::ValidateSMPYTD> kSMP("ValidateSMPYTD");
const EmploymentRule<&Employees::ValidateSPPYTD> kSPP("ValidateSPPYTD");
const TypedRule<&Employees::ValidateSAPYTD> kSAP("ValidateSAPYTD");
const TypedRule<&Employees::ValidateSPBPYTD> kSPBP("ValidateSPBPYTD");
const EmploymentRule<&Employees::ValidateSNCPYTD> kSNCP("ValidateSNCPYTD");
const EmploymentRule<&Employees::ValidateShPPYTD> kShPP("ValidateShPPYTD");
const TypedRule<&Employees::ValidateC1ANICTermiation> kC1A("ValidateC1ANICTermiation");
const TypedRule<&Employees::ValidateC1ANICTermiationYTD> kC1AYTD("ValidateC1ANICTermiationYTD");

const AddPreparation kFrequencyValue("PayFrequency", [](Scene& scene, const Json& value) {
  FirstEmployment(scene)->Payment()->PayFrequency(static_cast<PAY_FREQUENCY>(value.get<int>()));
});
const AddPreparation kHoursValue("HoursWorked", [](Scene& scene, const Json& value) {
  FirstEmployment(scene)->Payment()->HoursWorked(static_cast<HOURS_WORKED>(value.get<int>()));
});
const AddPreparation kTermination("C1ANICtermination", [](Scene& scene, const Json& value) {
  FirstEmployment(scene)->Payment()->C1ANICtermination(ToCurrency(value.get<String>()));
});
const AddPreparation kTerminationYTD("C1ANICterminationYTD", [](Scene& scene, const Json& value) {
  FirstEmployment(scene)->Payment()->C1ANICterminationYTD(ToCurrency(value.get<String>()));
});
const AddPreparation kLeavingDate("LeavingDate", [](Scene& scene, const Json& value) {
  FirstEmployment(scene)->LeavingDate(ToDate(value.get<String>()));
});
const AddPreparation kStarterDateValue("StartDate", [](Scene& scene, const Json& value) {
  FirstEmployment(scene)->Starter()->StartDate(ToDate(value.get<String>()));
});
const AddPreparation kPayID("PayID", [](Scene& scene, const Json& value) {
  FirstEmployment(scene)->PayID(value.get<String>());
});
const AddPreparation kOldID("OldId", [](Scene& scene, const Json& value) {
  FirstEmployment(scene)->PayIDChange()->OldId(value.get<String>());
});
const AddPreparation kNoEmployment("NoEmployment", [](Scene& scene, const Json&) {
  FirstEmployee(scene)->Employment(MakeCollection<clsEmployment>());
});
const AddPreparation kEmptyPlace("EmploymentOfNoObject", [](Scene& scene, const Json&) {
  FirstEmployee(scene)->Employment()->Add(nullptr);
});

/// Marks records as checked, by name; "employment" is all of it.
const AddPreparation kChecked("EmploymentValidated", [](Scene& scene, const Json& names) {
  clsEmployment& employment = *FirstEmployment(scene);
  for (const String name : names) {
    const bool all = name == "employment";
    if (all || name == "starter") employment.Starter()->Validated(true);
    if (all || name == "tax code") employment.Payment()->TaxCode()->Validated(true);
    if (all || name == "payment") employment.Payment()->Validated(true);
    if (name == "changed ID") employment.PayIDChange()->Validated(true);
    if (!all) continue;
    employment.FiguresToDate()->Validated(true);
    for (const auto& row : *employment.NILettersAndValues()) row->Validated(true);
    employment.Validated(true);
  }
});

}  // namespace
}  // namespace zelnor::test
