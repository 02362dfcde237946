// The operations of the rules of figures to date, NI letters, directors, benefits and secondment for the
// cases of tests/rules/.
//
// Arguments: "absent" for the record that the rule reads, "absent employee" and "absent employment" for
// those, "type" for the type of document, FPS unless said; "tax_year" as documents have it; "low", "high" and
// "amount" for the cash equivalent; "is_from", "date" and "from" for the days of a car.

#include "zelnor/documents/clsBenefits.h"
#include "zelnor/documents/clsCarDetails.h"
#include "zelnor/documents/clsFiguresToDate.h"
#include "zelnor/documents/clsFreeFuel.h"
#include "zelnor/documents/clsNILettersAndValues.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/documents/clsSeconded.h"
#include "zelnor/documents/clsStarter.h"
#include "zelnor/platform/conversions.h"

#include "validation/scene_employees.h"

namespace zelnor::test {
namespace {

using Employees = vlsEmployeeValidator;

// --- What the cases work on ---

Ref<clsPayment> Payment(const Scene& scene) { return FirstEmployment(scene)->Payment(); }
Ref<clsNILettersAndValues> FirstLetter(const Scene& scene) {
  const auto records = FirstEmployment(scene)->NILettersAndValues();
  return records->Count() == 0 ? nullptr : records->Item(1);
}
Ref<clsCarDetails> FirstCar(const Scene& scene) { return Payment(scene)->Benefits()->CarDetails()->Item(1); }

bool IsAbsent(const Scene& scene) { return scene.Argument("absent", false); }

Ref<clsEmployee> Employee(const Scene& scene) {
  return scene.Argument("absent employee", false) ? nullptr : FirstEmployee(scene);
}
Ref<clsEmployment> Employment(const Scene& scene) {
  return scene.Argument("absent employment", false) ? nullptr : FirstEmployment(scene);
}
Ref<clsNILettersAndValues> Letter(const Scene& scene) {
  return IsAbsent(scene) ? nullptr : FirstLetter(scene);
}
Ref<clsCarDetails> Car(const Scene& scene) { return IsAbsent(scene) ? nullptr : FirstCar(scene); }
Ref<clsFreeFuel> Fuel(const Scene& scene) { return IsAbsent(scene) ? nullptr : FirstCar(scene)->FreeFuel(); }

eRTISUBMISSIONTYPE Type(const Scene& scene) {
  const auto type = scene.Argument<String>("type", "FPS");
  if (type == "EAS") return eRTISUBMISSIONTYPE::IsEAS;
  return type == "EYU" ? eRTISUBMISSIONTYPE::IsEYU : eRTISUBMISSIONTYPE::IsFPS;
}

Date DateOf(const Json& text) { return text.get<String>().empty() ? Date() : ToDate(text.get<String>()); }
Currency MoneyOf(const Json& text) { return ToCurrency(text.get<String>()); }

// --- Operations ---

template <bool (Employees::*kRule)(const Ref<clsEmployee>&, const Ref<clsEmployment>&, const String&)>
struct EmploymentRule : AddOperation<Employees> {
  explicit EmploymentRule(const char* name)
      : AddOperation(name, [](Employees& validator, Scene& scene) {
          return (validator.*kRule)(Employee(scene), IsAbsent(scene) ? nullptr : FirstEmployment(scene),
                                    scene.Prefix());
        }) {}
};

template <bool (Employees::*kRule)(const Ref<clsEmployee>&, const Ref<clsEmployment>&,
                                   const Ref<clsNILettersAndValues>&, const String&)>
struct LetterRule : AddOperation<Employees> {
  explicit LetterRule(const char* name)
      : AddOperation(name, [](Employees& validator, Scene& scene) {
          return (validator.*kRule)(Employee(scene), Employment(scene), Letter(scene), scene.Prefix());
        }) {}
};

template <bool (Employees::*kRule)(const Ref<clsEmployee>&, const Ref<clsEmployment>&,
                                   const Ref<clsNILettersAndValues>&, eRTISUBMISSIONTYPE, const String&)>
struct TypedLetterRule : AddOperation<Employees> {
  explicit TypedLetterRule(const char* name)
      : AddOperation(name, [](Employees& validator, Scene& scene) {
          return (validator.*kRule)(Employee(scene), Employment(scene), Letter(scene), Type(scene),
                                    scene.Prefix());
        }) {}
};

template <bool (Employees::*kRule)(const Ref<clsEmployee>&, const Ref<clsCarDetails>&, const String&)>
struct CarRule : AddOperation<Employees> {
  explicit CarRule(const char* name)
      : AddOperation(name, [](Employees& validator, Scene& scene) {
          TellTaxYear(validator, scene);
          return (validator.*kRule)(Employee(scene), Car(scene), scene.Prefix());
        }) {}
};

template <bool (Employees::*kRule)(const Ref<clsEmployee>&, const Ref<clsFreeFuel>&, const String&)>
struct FuelRule : AddOperation<Employees> {
  explicit FuelRule(const char* name)
      : AddOperation(name, [](Employees& validator, Scene& scene) {
          TellTaxYear(validator, scene);
          return (validator.*kRule)(Employee(scene), Fuel(scene), scene.Prefix());
        }) {}
};

const EmploymentRule<&Employees::ValidateFiguresToDate> kFigures("ValidateFiguresToDate");
const EmploymentRule<&Employees::ValidateTaxablePayYTD> kTaxablePay("ValidateTaxablePayYTD");
const EmploymentRule<&Employees::ValidateTotalTaxYTD> kTotalTax("ValidateTotalTaxYTD");
const EmploymentRule<&Employees::ValidateStudentLoansYTD> kStudentLoans("ValidateStudentLoansYTD");
const EmploymentRule<&Employees::ValidatePostgradLoansYTD> kPostgradLoans("ValidatePostgradLoansYTD");
const EmploymentRule<&Employees::ValidateBenefitsTaxedViaPayrollYTD> kBenefitsTaxed(
    "ValidateBenefitsTaxedViaPayrollYTD");
const EmploymentRule<&Employees::ValidateEmpeePenContribnsPaidYTD> kPension(
    "ValidateEmpeePenContribnsPaidYTD");
const EmploymentRule<&Employees::ValidateEmpeePenContribnsNotPaidYTD> kPensionNotPaid(
    "ValidateEmpeePenContribnsNotPaidYTD");

const TypedLetterRule<&Employees::ValidateNILettersAndValues> kLetters("ValidateNILettersAndValues");
const LetterRule<&Employees::ValidateNILetter> kNILetter("ValidateNILetter");
const TypedLetterRule<&Employees::ValidateSCON> kSCON("ValidateSCON");
const LetterRule<&Employees::ValidatePaySubjToNIC> kPaySubject("ValidatePaySubjToNIC");
const TypedLetterRule<&Employees::ValidatePaySubjToNICYTD> kPaySubjectYTD("ValidatePaySubjToNICYTD");
const TypedLetterRule<&Employees::ValidateAtLEL> kAtLEL("ValidateAtLEL");
const TypedLetterRule<&Employees::ValidateLELToPT> kLELToPT("ValidateLELToPT");
const TypedLetterRule<&Employees::ValidatePTToUAP> kPTToUAP("ValidatePTToUAP");
const TypedLetterRule<&Employees::ValidateUAPToUEL> kUAPToUEL("ValidateUAPToUEL");
const TypedLetterRule<&Employees::ValidatePTToUEL> kPTToUEL("ValidatePTToUEL");
const LetterRule<&Employees::ValidateTotalEmployerNIC> kEmployer("ValidateTotalEmployerNIC");
const TypedLetterRule<&Employees::ValidateTotalEmployerNICYTD> kEmployerYTD("ValidateTotalEmployerNICYTD");
const LetterRule<&Employees::ValidateTotalEmployeeNIC> kEmployee("ValidateTotalEmployeeNIC");
const TypedLetterRule<&Employees::ValidateTotalEmployeeNICYTD> kEmployeeYTD("ValidateTotalEmployeeNICYTD");

const EmploymentRule<&Employees::ValidateDirectorWeekNumber> kWeek("ValidateDirectorWeekNumber");
const EmploymentRule<&Employees::ValidateDirectorsNIC> kDirectorsNIC("ValidateDirectorsNIC");

const AddOperation<Employees> kBenefits("ValidateBenefits", [](Employees& validator, Scene& scene) {
  TellTaxYear(validator, scene);
  return validator.ValidateBenefits(Employee(scene), IsAbsent(scene) ? nullptr : Payment(scene)->Benefits(),
                                    scene.Prefix());
});
const CarRule<&Employees::ValidateCar> kCar("ValidateCar");
const CarRule<&Employees::ValidateMake> kMake("ValidateMake");
const CarRule<&Employees::ValidateCO2> kCO2("ValidateCO2");
const CarRule<&Employees::ValidateID> kID("ValidateID");
const CarRule<&Employees::ValidatePrice> kPrice("ValidatePrice");
const FuelRule<&Employees::ValidateFreeFuel> kFreeFuel("ValidateFreeFuel");
const FuelRule<&Employees::ValidateProvided> kProvided("ValidateProvided");
const FuelRule<&Employees::ValidateWithdrawn> kWithdrawn("ValidateWithdrawn");

const AddOperation<Employees> kCashEquiv("ValidateCashEquiv", [](Employees& validator, Scene& scene) {
  const Json& arguments = scene.arguments;
  return validator.ValidateCashEquiv(Employee(scene), MoneyOf(arguments.at("amount")),
                                     MoneyOf(arguments.at("low")), MoneyOf(arguments.at("high")),
                                     scene.Prefix());
});
const AddOperation<Employees> kAvail("ValidateAvailFromTo", [](Employees& validator, Scene& scene) {
  TellTaxYear(validator, scene);
  return validator.ValidateAvailFromTo(Employee(scene), DateOf(scene.arguments.at("date")), scene.Prefix(),
                                       scene.arguments.at("is_from").get<bool>(),
                                       DateOf(scene.Argument<String>("from", "")));
});

const EmploymentRule<&Employees::ValidateTrivialCommutationPayment> kTrivial(
    "ValidateTrivialCommutationPayment");
const EmploymentRule<&Employees::ValidateSecondmentRule> kSecondment("ValidateSecondmentRule");

// --- Preparations ---

/// Amounts of the figures to date, by name.
const AddPreparation kFiguresOfYear("Figures", [](Scene& scene, const Json& amounts) {
  clsFiguresToDate& figures = *FirstEmployment(scene)->FiguresToDate();
  for (const auto& [name, text] : amounts.items()) {
    const Currency amount = MoneyOf(text);
    if (name == "TaxablePay") figures.TaxablePay(amount);
    if (name == "TotalTax") figures.TotalTax(amount);
    if (name == "StudentLoans") figures.StudentLoans(amount);
    if (name == "PostgradLoans") figures.PostgradLoans(amount);
    if (name == "BenefitsTaxedViaPayrollYTD") figures.BenefitsTaxedViaPayrollYTD(amount);
    if (name == "EmpeePensionContribnsPaidYTD") figures.EmpeePensionContribnsPaidYTD(amount);
    if (name == "EmpeePensionContribnsNotPaidYTD") figures.EmpeePensionContribnsNotPaidYTD(amount);
  }
});
const AddPreparation kFiguresChecked("FiguresValidated", [](Scene& scene, const Json&) {
  FirstEmployment(scene)->FiguresToDate()->Validated(true);
});

/// The employment's records of NI letters, one for each: letter, number of the scheme, amounts by name and
/// whether it is marked as checked.
const AddPreparation kRecords("Letters", [](Scene& scene, const Json& records) {
  FirstEmployment(scene)->NILettersAndValues(MakeCollection<clsNILettersAndValues>());
  for (const Json& each : records) {
    auto record = std::make_shared<clsNILettersAndValues>();
    for (const auto& [name, value] : each.items()) {
      if (name == "NILetter") record->NILetter(value.get<String>());
      if (name == "SCON") record->SCON(value.get<String>());
      if (name == "PaySubjectToNIC") record->PaySubjectToNIC(MoneyOf(value));
      if (name == "PaySubjectToNICYTD") record->PaySubjectToNICYTD(MoneyOf(value));
      if (name == "AtLEL") record->AtLEL(MoneyOf(value));
      if (name == "LELtoPT") record->LELtoPT(MoneyOf(value));
      if (name == "PTtoUAP") record->PTtoUAP(MoneyOf(value));
      if (name == "UAPtoUEL") record->UAPtoUEL(MoneyOf(value));
      if (name == "PTtoUEL") record->PTtoUEL(MoneyOf(value));
      if (name == "TotalEmpNIC") record->TotalEmpNIC(MoneyOf(value));
      if (name == "TotalEmpNICYTD") record->TotalEmpNICYTD(MoneyOf(value));
      if (name == "EmpeeContribns") record->EmpeeContribns(MoneyOf(value));
      if (name == "EmpeeContribnsYTD") record->EmpeeContribnsYTD(MoneyOf(value));
    }
    FirstEmployment(scene)->AddNILettersAndValues(record);
    if (each.value("Validated", false)) record->Validated(true);
  }
});

const AddPreparation kWorkplace("EmployeeWorkplacePostcode", [](Scene& scene, const Json& value) {
  FirstEmployment(scene)->EmployeeWorkplacePostcode(value.get<String>());
});
const AddPreparation kWeekValue("WkOrMonthNoDirectorAppt", [](Scene& scene, const Json& value) {
  FirstEmployment(scene)->WkOrMonthNoDirectorAppt(value.get<Integer>());
});
const AddPreparation kBasis("DirectorsNIC", [](Scene& scene, const Json& value) {
  FirstEmployment(scene)->DirectorsNIC(static_cast<dnDIRECTORS_NIC>(value.get<int>()));
});

/// Cars of the payment's benefits, each a good one but for what the case says.
const AddPreparation kCars("Cars", [](Scene& scene, const Json& cars) {
  for (const Json& each : cars) {
    const auto said = [&each](const char* name, const char* otherwise) {
      return each.value(name, Json(otherwise));
    };
    auto car = std::make_shared<clsCarDetails>();
    Ref<clsFreeFuel> fuel;
    if (each.contains("FreeFuel")) {
      const Json& of_fuel = each.at("FreeFuel");
      fuel = std::make_shared<clsFreeFuel>();
      fuel->Create(DateOf(of_fuel.value("Provided", "2025-05-01")),
                   MoneyOf(of_fuel.value("CashEquiv", "6950")), DateOf(of_fuel.value("Withdrawn", "")));
    }
    car->Create(said("Make", "Skoda Octavia").get<String>(), said("CO2", "98").get<String>(),
                eFuel::enmHybrid, false, MoneyOf(said("Price", "28450")),
                DateOf(said("AvailFrom", "2025-04-06")), MoneyOf(said("CashEquiv", "6828")),
                said("ID", "").get<String>(), DateOf(said("AvailTo", "")), fuel);
    Payment(scene)->Benefits()->CarDetails()->Add(car);
  }
});
const AddPreparation kNoCar("CarOfNoObject", [](Scene& scene, const Json&) {
  Payment(scene)->Benefits()->CarDetails()->Add(nullptr);
});

/// Amounts by kind.
const AddPreparation kTrivialAmounts("TrivialCommutationPayments", [](Scene& scene, const Json& amounts) {
  int kind = 0;
  for (const Json& each : amounts) {
    Payment(scene)->SetTrivialCommutationPayment(static_cast<tcpPaymentType>(++kind), MoneyOf(each));
  }
});

const AddPreparation kSecondmentLength("SecondmentLength", [](Scene& scene, const Json& value) {
  FirstEmployment(scene)->Starter()->Seconded()->SecondmentLength(
      static_cast<SECONDMENT_LENGTH>(value.get<int>()));
});

}  // namespace
}  // namespace zelnor::test
