#include "zelnor/validation/vlsCompanyValidator.h"

#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsFinalSubmission.h"
#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSectionNVR.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/pattern.h"

namespace zelnor {
namespace {

using enum eRTISUBMISSIONTYPE;

constexpr std::string_view kClass = "vlsCompanyValidator";

/// What the rules look at, wherever a type of document keeps it.
struct WorkingObjects {
  String tax_year;
  Ref<clsEmployerReferences> references;
  Ref<clsFinalSubmission> final_submission;
};

WorkingObjects WorkingObjectsOf(clsSubmission& submission) {
  switch (submission.SubmissionType()) {
    case IsFPS: {
      clsSectionFPS& fps = Required(submission.FPS());
      return {fps.TaxYear(), fps.Employer_References(),
              fps.HasFinalSubmission() ? fps.Final_Submission() : nullptr};
    }
    case IsEPS: {
      clsSectionEPS& eps = Required(submission.EPS());
      return {eps.TaxYear(), eps.Employer_References(),
              eps.HasFinalSubmission() ? eps.Final_Submission() : nullptr};
    }
    case IsEYU: {
      clsSectionEYU& eyu = Required(submission.EYU());
      return {eyu.TaxYear(), eyu.Employer_References(), nullptr};
    }
    case IsEAS:
      return {{}, Required(submission.EAS()).Employer_References(), nullptr};
    case IsNVR:
      return {{}, Required(submission.NVR()).Employer_References(), nullptr};
    default:
      return {};
  }
}

}  // namespace

bool vlsCompanyValidator::ValidateCompany(const Ref<clsSubmission>& objsubmission) {
  bool result = false;
  Handled(kClass, "Function ValidateCompany", [&] {
    const String key = "Company";
    ClearErrors();
    clsSubmission& submission = Required(objsubmission);
    const Ref<clsSectionIRHeader> header = submission.Header();
    const eRTISUBMISSIONTYPE type = submission.SubmissionType();
    const WorkingObjects objects = WorkingObjectsOf(submission);
    if (submission.Validated()) {
      result = true;
      return;
    }
    bool passed = ValidateIRHeader(header, key);
    passed &= ValidateEmployerRefs(objects.references, type, key);
    if (type == IsEAS) {
      passed &= ValidateNumberOfParts(submission.EAS());
      passed &= ValidateUniquePartID(submission.EAS());
    }
    if (type != IsEAS && type != IsNVR) {
      passed &= ValidateRelatedTaxYear(objects.tax_year, Required(header).PeriodEndDate(), key);
      if (type != IsEYU) passed &= ValidateFinalSubmission(objects.final_submission, objsubmission, key);
    }
    submission.Validated(passed);
    result = passed;
  });
  return result;
}

bool vlsCompanyValidator::ValidateIRHeader(const Ref<clsSectionIRHeader>& objIRHeader,
                                           const String& strSourcePrefix) {
  bool result = false;
  Handled(kClass, "Function ValidateIRHeader", [&] {
    clsSectionIRHeader& header = Required(objIRHeader);
    const bool passed = header.Validated() || ValidatePrincipalContact(objIRHeader, strSourcePrefix);
    header.Validated(passed);
    result = passed;
  });
  return result;
}

bool vlsCompanyValidator::ValidateNumberOfParts(const Ref<clsSectionEAS>& objEAS, const String& strErrKey) {
  static constexpr Rule kRule{.key = "NumberOfParts",
                              .field = "Number Of Parts",
                              .code = "E17.1.0",
                              .what = "the Number of Parts. ",
                              .processing_field = "Number of Parts"};
  return Check(kRule, strErrKey, [&](Finding& found) {
    const Integer parts = Required(objEAS).NumberOfParts();
    found.value = ToText(parts);
    if (parts < 1 || parts > 99) {
      found.Fail("E17.1.1", "Invalid Number of Parts",
                 "Number of Parts must be a whole number between 1 and 99.");
    }
  });
}

bool vlsCompanyValidator::ValidateUniquePartID(const Ref<clsSectionEAS>& objEAS, const String& strErrKey) {
  static constexpr Rule kRule{.key = "UniquePartID", .field = "Unique Part ID", .code = "E18.1.0"};
  static constexpr const char* kTitle = "Invalid Unique Part ID";
  static const Pattern kNoBlankInFront("^[^ ].*$");
  return Check(kRule, strErrKey, [&](Finding& found) {
    if (Required(objEAS).NumberOfParts() <= 1) return;
    const String& id = found.value = objEAS->UniquePartID();
    if (id.empty()) {
      found.Fail("E18.1.1", kTitle,
                 "Unique Part ID must be completed when the Number of Parts is greater than 1.");
    }
    if (Length(id) >= 13) {
      found.Fail("E18.1.2", kTitle, "Unique Part ID must be between 1 and 12 characters in length.");
    }
    if (!ValidatePattern(id, kNoBlankInFront)) {
      found.Fail("E18.1.3", kTitle,
                 "Unique Part ID must be between 1 and 12 characters in length and must not start with a "
                 "space.");
    }
  });
}

}  // namespace zelnor
