// The operations of the rules on who an employee is, for the cases of tests/rules/.
//
// Arguments: "absent" for no employee, "type" for a type of document other than the base's own, "tax_year"
// as documents have it, "raise" for whether failures make records.

#include "zelnor/documents/clsEmployeeAddress.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployeeNameType.h"
#include "zelnor/documents/clsEmployeePartnerDetails.h"
#include "zelnor/documents/clsStarter.h"
#include "zelnor/platform/conversions.h"

#include "validation/scene_employees.h"

namespace zelnor::test {
namespace {

/// The validator, with the rules open that others end in.
class Employees : public vlsEmployeeValidator {
 public:
  using vlsEmployeeValidator::ValidateAddressCountryRule;
  using vlsEmployeeValidator::ValidateAddressNINORule;
  using vlsEmployeeValidator::ValidateAddressPostcodeRule;
  using vlsEmployeeValidator::ValidateAddressStartDateRule;
  using vlsEmployeeValidator::ValidatePartnerNameRule;
};

Ref<clsEmployeeDetails> Details(const Scene& scene) { return FirstEmployee(scene)->EmployeeDetails(); }

Ref<clsEmployee> Employee(const Scene& scene) {
  return scene.Argument("absent", false) ? nullptr : FirstEmployee(scene);
}

const AddOperation<Employees> kEmployees("ValidateEmployees", [](Employees& validator, Scene& scene) {
  return validator.ValidateEmployees(scene.Argument("absent", false) ? nullptr : EmployeesOf(scene),
                                     scene.submission->SubmissionType(),
                                     scene.Argument<String>("tax_year", "25-26"));
});

template <class Base, bool (Base::*kRule)(const Ref<clsEmployee>&, const String&)>
struct PlainRule : AddOperation<Employees> {
  explicit PlainRule(const char* name)
      : AddOperation(name, [](Employees& validator, Scene& scene) {
          return (validator.*kRule)(Employee(scene), scene.Prefix());
        }) {}
};

template <bool (vlsEmployeeValidator::*kRule)(const Ref<clsEmployee>&, bool, const String&)>
struct QuietRule : AddOperation<Employees> {
  explicit QuietRule(const char* name)
      : AddOperation(name, [](Employees& validator, Scene& scene) {
          return (validator.*kRule)(Employee(scene), scene.Argument("raise", true), scene.Prefix());
        }) {}
};

using V = vlsEmployeeValidator;
const PlainRule<V, &V::ValidateEmployeeDetails> kDetails("ValidateEmployeeDetails");
const PlainRule<V, &V::ValidateEmployeeContact> kContact("ValidateEmployeeContact");
const PlainRule<V, &V::ValidateEmployeeAddress> kAddress("ValidateEmployeeAddress");
const PlainRule<V, &V::ValidateEmployeePartnerDetails> kPartner("ValidateEmployeePartnerDetails");
const QuietRule<&V::ValidateSurname> kSurname("ValidateSurname");
const QuietRule<&V::ValidateForename> kForename("ValidateForename");
const QuietRule<&V::ValidateForename1> kForename1("ValidateForename1");
const QuietRule<&V::ValidateTitle> kTitle("ValidateTitle");
const QuietRule<&V::ValidateAddressLines> kLines("ValidateAddressLines");
const QuietRule<&V::ValidatePostcode> kPostcode("ValidatePostcode");
const QuietRule<&V::ValidateEmployeeNINO> kNINO("ValidateEmployeeNINO");
const QuietRule<&V::ValidateEmployeeDateOfBirth> kBirth("ValidateEmployeeDateOfBirth");
const PlainRule<V, &V::ValidateForeignCountry> kCountry("ValidateForeignCountry");
const PlainRule<V, &V::ValidateEmployeeGender> kGender("ValidateEmployeeGender");
const PlainRule<V, &V::ValidateEmployeePassportNo> kPassport("ValidateEmployeePassportNo");
const PlainRule<V, &V::ValidatePartnerSurname> kPartnerSurname("ValidatePartnerSurname");
const PlainRule<V, &V::ValidatePartnerForename> kPartnerForename("ValidatePartnerForename");
const PlainRule<V, &V::ValidatePartnerForename1> kPartnerForename1("ValidatePartnerForename1");
const PlainRule<V, &V::ValidatePartnerNINO> kPartnerNINO("ValidatePartnerNINO");
const AddOperation<Employees> kCountryRule("ValidateAddressCountryRule", [](Employees& validator,
                                                                            Scene& scene) {
  return validator.ValidateAddressCountryRule(Employee(scene), scene.Prefix());
});
const AddOperation<Employees> kPostcodeRule("ValidateAddressPostcodeRule", [](Employees& validator,
                                                                              Scene& scene) {
  return validator.ValidateAddressPostcodeRule(Employee(scene), scene.Argument("raise", true),
                                               scene.Prefix());
});
const AddOperation<Employees> kNINORule("ValidateAddressNINORule", [](Employees& validator, Scene& scene) {
  return validator.ValidateAddressNINORule(Employee(scene), scene.Prefix());
});
const AddOperation<Employees> kStartDateRule("ValidateAddressStartDateRule", [](Employees& validator,
                                                                                Scene& scene) {
  return validator.ValidateAddressStartDateRule(Employee(scene), FirstEmployee(scene)->Employment()->Item(1),
                                                scene.Prefix());
});
const AddOperation<Employees> kPartnerNameRule("ValidatePartnerNameRule", [](Employees& validator,
                                                                             Scene& scene) {
  return validator.ValidatePartnerNameRule(Employee(scene), scene.Prefix());
});

Ref<clsEmployeeNameType> Name(const Scene& scene) { return Details(scene)->Contact(); }
Ref<clsEmployeePartnerDetails> Partner(const Scene& scene) { return Details(scene)->PartnerDetails(); }
Ref<clsEmployeeNameType> PartnerName(const Scene& scene) { return Partner(scene)->Contact(); }
Ref<clsEmployeeAddress> Address(const Scene& scene) { return Details(scene)->Address(); }

#define ZELNOR_TEXT(name, record, member) \
  const AddPreparation kSet##name(        \
      #name, [](Scene& scene, const Json& value) { record(scene)->member(value.get<String>()); })
ZELNOR_TEXT(Title, Name, Title);
ZELNOR_TEXT(Forename, Name, Forename);
ZELNOR_TEXT(Forename1, Name, Forename1);
ZELNOR_TEXT(Surname, Name, Surname);
ZELNOR_TEXT(PartnerForename, PartnerName, Forename);
ZELNOR_TEXT(PartnerForename1, PartnerName, Forename1);
ZELNOR_TEXT(PartnerSurname, PartnerName, Surname);
ZELNOR_TEXT(PartnerNINO, Partner, NINO);
ZELNOR_TEXT(Address1, Address, Address1);
ZELNOR_TEXT(Address2, Address, Address2);
ZELNOR_TEXT(Address3, Address, Address3);
ZELNOR_TEXT(Address4, Address, Address4);
ZELNOR_TEXT(Postcode, Address, Postcode);
ZELNOR_TEXT(Country, Address, Country);
ZELNOR_TEXT(NINO, Details, NINO);
ZELNOR_TEXT(PassportNo, Details, PassportNo);
#undef ZELNOR_TEXT

const AddPreparation kLinesOfAddress("Lines", [](Scene& scene, const Json& lines) {
  clsEmployeeAddress& address = *Address(scene);
  address.Address1(lines.at(0).get<String>());
  address.Address2(lines.at(1).get<String>());
  address.Address3(lines.at(2).get<String>());
  address.Address4(lines.at(3).get<String>());
});
const AddPreparation kBirthDate("DateOfBirth", [](Scene& scene, const Json& value) {
  const String text = value.get<String>();
  Details(scene)->DateOfBirth(text.empty() ? Date() : ToDate(text));
});
const AddPreparation kGenderValue("Gender", [](Scene& scene, const Json& value) {
  Details(scene)->Gender(static_cast<EMPLOYEE_GENDER>(value.get<int>()));
});
const AddPreparation kNonIndividual("PaymentToANonIndividual", [](Scene& scene, const Json& value) {
  FirstEmployee(scene)->Employment()->Item(1)->IsNonIndividual(value.get<bool>());
});
const AddPreparation kSystemDate("SystemDate", [](Scene&, const Json& value) {
  Process().SystemDate = ToDate(value.get<String>());
});
const AddPreparation kNobody("EmployeeOfNoObject",
                             [](Scene& scene, const Json&) { EmployeesOf(scene)->Add(nullptr); });
const AddPreparation kKeyOfEmployee("EmployeeId", [](Scene& scene, const Json& value) {
  FirstEmployee(scene)->EmployeeId(value.at(0).get<int>());
  FirstEmployee(scene)->EmployeeCode(value.at(1).get<String>());
});

/// Marks records as checked, by name.
const AddPreparation kChecked("EmployeeValidated", [](Scene& scene, const Json& names) {
  for (const String name : names) {
    if (name == "name") Name(scene)->Validated(true);
    if (name == "address") Address(scene)->Validated(true);
    if (name == "partner") {
      PartnerName(scene)->Validated(true);
      Partner(scene)->Validated(true);
    }
    if (name == "details") {
      Name(scene)->Validated(true);
      if (Details(scene)->HasAddress()) Address(scene)->Validated(true);
      Details(scene)->Validated(true);
    }
  }
});

}  // namespace
}  // namespace zelnor::test
