// The operations of the employer's rules for the cases of tests/rules/.

#include "zelnor/documents/clsContact.h"
#include "zelnor/documents/clsEmailType.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsFaxType.h"
#include "zelnor/documents/clsFinalSubmission.h"
#include "zelnor/documents/clsNameType.h"
#include "zelnor/documents/clsQuestionsAndDeclarations.h"
#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSectionNVR.h"
#include "zelnor/documents/clsTelephoneType.h"
#include "zelnor/envelope/clsKey.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/validation/vlsCompanyValidator.h"

#include "validation/rule_scene.h"

namespace zelnor::test {
namespace {

using Company = vlsCompanyValidator;

/// The record, or no object where the case has the argument "absent".
template <class T>
Ref<T> Given(const Scene& scene, Ref<T> record) {
  return scene.Argument("absent", false) ? nullptr : record;
}

Ref<clsSectionIRHeader> Header(const Scene& scene) { return Given(scene, scene.submission->Header()); }

Ref<clsEmployerReferences> References(const Scene& scene) {
  clsSubmission& submission = *scene.submission;
  if (const auto fps = submission.FPS()) return Given(scene, fps->Employer_References());
  if (const auto eps = submission.EPS()) return Given(scene, eps->Employer_References());
  if (const auto eyu = submission.EYU()) return Given(scene, eyu->Employer_References());
  if (const auto eas = submission.EAS()) return Given(scene, eas->Employer_References());
  return Given(scene, submission.NVR()->Employer_References());
}

/// The final submission of an FPS or EPS; one with the date of the argument for other documents.
Ref<clsFinalSubmission> Final(const Scene& scene) {
  clsSubmission& submission = *scene.submission;
  if (submission.FPS()) return Given(scene, submission.FPS()->Final_Submission());
  if (submission.EPS()) return Given(scene, submission.EPS()->Final_Submission());
  auto made = std::make_shared<clsFinalSubmission>();
  made->DateSchemeCeased(ToDate(scene.Argument<String>("date", "")));
  return Given(scene, made);
}

template <bool (Company::*kRule)(const Ref<clsSectionIRHeader>&, const String&)>
struct HeaderRule : AddOperation<Company> {
  explicit HeaderRule(const char* name)
      : AddOperation(name, [](Company& validator, Scene& scene) {
          return (validator.*kRule)(Header(scene), scene.Prefix());
        }) {}
};

template <bool (Company::*kRule)(const Ref<clsEmployerReferences>&, const String&)>
struct ReferencesRule : AddOperation<Company> {
  explicit ReferencesRule(const char* name)
      : AddOperation(name, [](Company& validator, Scene& scene) {
          return (validator.*kRule)(References(scene), scene.Prefix());
        }) {}
};

template <bool (Company::*kRule)(const Ref<clsSectionEAS>&, const String&)>
struct EASRule : AddOperation<Company> {
  explicit EASRule(const char* name)
      : AddOperation(name, [](Company& validator, Scene& scene) {
          return (validator.*kRule)(Given(scene, scene.submission->EAS()), scene.Prefix());
        }) {}
};

template <bool (Company::*kRule)(const String&, Date, const String&)>
struct TaxYearRule : AddOperation<Company> {
  explicit TaxYearRule(const char* name)
      : AddOperation(name, [](Company& validator, Scene& scene) {
          return (validator.*kRule)(scene.Argument<String>("tax_year", ""),
                                    ToDate(scene.Argument<String>("period_end", "2026-04-05")),
                                    scene.Prefix());
        }) {}
};

const AddOperation<Company> kCompany("ValidateCompany", [](Company& validator, Scene& scene) {
  return validator.ValidateCompany(Given(scene, scene.submission));
});
const HeaderRule<&Company::ValidateIRHeader> kIRHeader("ValidateIRHeader");
const HeaderRule<&Company::ValidatePrincipalContact> kPrincipalContact("ValidatePrincipalContact");
const HeaderRule<&Company::ValidateContactSurname> kContactSurname("ValidateContactSurname");
const HeaderRule<&Company::ValidateContactForename> kContactForename("ValidateContactForename");
const HeaderRule<&Company::ValidateContactForename1> kContactForename1("ValidateContactForename1");
const HeaderRule<&Company::ValidateContactTitle> kContactTitle("ValidateContactTitle");
const HeaderRule<&Company::ValidateContactEmail> kContactEmail("ValidateContactEmail");
const HeaderRule<&Company::ValidateContactTelephone> kContactTelephone("ValidateContactTelephone");
const HeaderRule<&Company::ValidateContactFax> kContactFax("ValidateContactFax");

const AddOperation<Company> kEmployerRefs("ValidateEmployerRefs", [](Company& validator, Scene& scene) {
  return validator.ValidateEmployerRefs(References(scene), scene.submission->SubmissionType(),
                                        scene.Prefix());
});
const ReferencesRule<&Company::ValidateHMRCOfficeNumber> kOfficeNumber("ValidateHMRCOfficeNumber");
const ReferencesRule<&Company::ValidateEmployerPAYERef> kPAYERef("ValidateEmployerPAYERef");
const ReferencesRule<&Company::ValidateAccountsOfficeRef> kAORef("ValidateAccountsOfficeRef");
const ReferencesRule<&Company::ValidateECON> kECON("ValidateECON");

const EASRule<&Company::ValidateNumberOfParts> kNumberOfParts("ValidateNumberOfParts");
const EASRule<&Company::ValidateUniquePartID> kUniquePartID("ValidateUniquePartID");

const TaxYearRule<&Company::ValidateRelatedTaxYear> kTaxYear("ValidateRelatedTaxYear");
const TaxYearRule<&Company::ValidateEYURelatedTaxYear> kEYUTaxYear("ValidateEYURelatedTaxYear");

const AddOperation<Company> kFinalSubmission("ValidateFinalSubmission", [](Company& validator, Scene& scene) {
  return validator.ValidateFinalSubmission(Final(scene), scene.submission, scene.Prefix());
});
const AddOperation<Company> kDateSchemeCeased("ValidateDateSchemeCeased", [](Company& validator,
                                                                             Scene& scene) {
  return validator.ValidateDateSchemeCeased(
      Final(scene), static_cast<Integer>(scene.Argument("tax_year", 2026)), scene.Prefix());
});
const AddOperation<Company> kSchemeCeased("ValidateSchemeCeased", [](Company& validator, Scene& scene) {
  return validator.ValidateSchemeCeased(Final(scene), scene.Prefix());
});
const AddOperation<Company> kForYear("ValidateForYear", [](Company& validator, Scene& scene) {
  return validator.ValidateForYear(Final(scene), scene.Prefix());
});
const AddOperation<Company> kDeclarations("ValidateQuestionsAndDeclarations", [](Company& validator,
                                                                                 Scene& scene) {
  const auto declarations = std::make_shared<clsQuestionsAndDeclarations>();
  return validator.ValidateQuestionsAndDeclarations(Given(scene, declarations), scene.Prefix()) &&
         (scene.Argument("absent", false) || declarations->Validated());
});

clsNameType& Name(Scene& scene) { return *scene.submission->Header()->PrincipalContact()->ContactName(); }

const AddPreparation kForename("Forename", [](Scene& scene, const Json& value) {
  Name(scene).Forename(value.get<String>());
});
const AddPreparation kEmail("EmailAddress", [](Scene& scene, const Json& value) {
  scene.submission->Header()->PrincipalContact()->EmailAddresses()->Item(1)->EmailAddress(
      value.get<String>());
});
const AddPreparation kTelephone("TelephoneNumber", [](Scene& scene, const Json& value) {
  scene.submission->Header()->PrincipalContact()->Telephone()->Item(1)->Number(value.get<String>());
});
const AddPreparation kFax("FaxNumber", [](Scene& scene, const Json& value) {
  scene.submission->Header()->PrincipalContact()->Fax()->Item(1)->Number(value.get<String>());
});
const AddPreparation kOfficeNo("OfficeNo", [](Scene& scene, const Json& value) {
  References(scene)->OfficeNo(value.get<String>());
});
const AddPreparation kPayeRef("PayeRef", [](Scene& scene, const Json& value) {
  References(scene)->PayeRef(value.get<String>());
});
const AddPreparation kParts("NumberOfParts", [](Scene& scene, const Json& value) {
  scene.submission->EAS()->NumberOfParts(value.get<Integer>());
});
const AddPreparation kPartID("UniquePartID", [](Scene& scene, const Json& value) {
  scene.submission->EAS()->UniquePartID(value.get<String>());
});
const AddPreparation kNoName("NoContactName", [](Scene& scene, const Json&) {
  scene.submission->Header()->PrincipalContact()->ContactName(nullptr);
});

/// Marks records as checked, by name.
const AddPreparation kChecked("Validated", [](Scene& scene, const Json& names) {
  clsContact& contact = *scene.submission->Header()->PrincipalContact();
  for (const String name : names) {
    if (name == "name") Name(scene).Validated(true);
    if (name == "email") contact.EmailAddresses()->Item(1)->Validated(true);
    if (name == "telephone") contact.Telephone()->Item(1)->Validated(true);
    if (name == "fax") contact.Fax()->Item(1)->Validated(true);
    if (name == "contact") contact.Validated(true);
    if (name == "references") References(scene)->Validated(true);
    if (name == "final submission") Final(scene)->Validated(true);
    if (name == "employees") {
      for (const auto& employee : *scene.submission->FPS()->Employees()) employee->Validated(true);
    }
    if (name == "keys") {
      for (const auto& key : *scene.submission->Header()->KeyCollection()) key->Validated(true);
    }
  }
});

const AddPreparation kSystemDate("SystemDate", [](Scene&, const Json& value) {
  Process().SystemDate = ToDate(value.get<String>());
});

}  // namespace
}  // namespace zelnor::test
