#include "zelnor/validation/vlsEmployeeValidator.h"

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeAddress.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployeeNameType.h"
#include "zelnor/documents/clsEmployeePartnerDetails.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/clsEmployeeException.h"
#include "zelnor/validation/employee_parts.h"

namespace zelnor {
namespace {

constexpr std::string_view kClass = "vlsEmployeeValidator";

/// Whether a document of that type tells of employments.
bool TellsOfEmployments(eRTISUBMISSIONTYPE type) {
  using enum eRTISUBMISSIONTYPE;
  return type == IsFPS || type == IsEAS || type == IsEYU;
}

}  // namespace

bool vlsEmployeeValidator::Walk(const String& key, const std::function<bool()>& body) {
  static constexpr Rule kRule{.key = "Employee",
                              .field = "Employees",
                              .code = "FAIL_EMPLOYEE",
                              .what = "the Employees: ",
                              .title = "Unknown Error: Employee"};
  return Check(kRule, {}, [&](Finding& found) {
    try {
      found.And(body());
    } catch (...) {
      concerned_ = nullptr;
      found.At(key + "_Employee");
      throw;
    }
  });
}

bool vlsEmployeeValidator::ValidateEmployees(const CollectionRef<clsEmployee>& colEmployees,
                                             eRTISUBMISSIONTYPE eniType, const String& strCurrentTaxYear) {
  ClearErrors();
  current_tax_year_ = strCurrentTaxYear;
  employees_checked_ = valid_employees_ = invalid_employees_ = 0;
  if (!colEmployees) return false;
  const CollectionRef<clsEmployee> employees = colEmployees;  // a handler may drop the caller's
  progress_total_ = employees->Count();
  progress_done_ = 0;
  String key;
  return Walk(key, [&] {
    bool result = true;
    for (const Ref<clsEmployee>& employee : *employees) {
      key.clear();
      if (LimitReached()) {
        events.MaxErrorsHit();
        break;
      }
      if (Required(employee).Validated()) {
        events.ProgressChanged();
        continue;
      }
      key = BuildEmployeeKey(*employee);
      const bool passed = ValidateEmployee(employee, eniType, key);
      ++employees_checked_;
      ++(passed ? valid_employees_ : invalid_employees_);
      ++progress_done_;
      employee->Validated(passed);
      result &= passed;
      events.ProgressChanged();
    }
    return result;
  });
}

bool vlsEmployeeValidator::ValidateEmployee(const Ref<clsEmployee>& objEmployee, eRTISUBMISSIONTYPE eniType,
                                            const String& key) {
  bool passed = ValidateEmployeeDetails(objEmployee, key);
  if (!TellsOfEmployments(eniType)) return passed;
  if (DetailsOf(objEmployee).HasPartnerDetails()) passed &= ValidateEmployeePartnerDetails(objEmployee, key);
  passed &= ValidateEmployment(objEmployee, eniType, key);
  return passed;
}

bool vlsEmployeeValidator::ValidateEmployeeDetails(const Ref<clsEmployee>& objEmployee,
                                                   const String& strErrKey) {
  return Walk(strErrKey, [&] {
    clsEmployeeDetails& details = DetailsOf(objEmployee);
    if (details.Validated()) return true;
    bool passed = ValidateEmployeeContact(objEmployee, strErrKey);
    passed &= ValidateEmployeeAddress(objEmployee, strErrKey);
    passed &= ValidateEmployeeNINO(objEmployee, true, strErrKey);
    passed &= ValidateEmployeeDateOfBirth(objEmployee, true, strErrKey);
    passed &= ValidateEmployeeGender(objEmployee, strErrKey);
    passed &= ValidateEmployeePassportNo(objEmployee, strErrKey);
    details.Validated(passed);
    return passed;
  });
}

bool vlsEmployeeValidator::ValidateEmployeeContact(const Ref<clsEmployee>& objEmployee,
                                                   const String& strErrKey) {
  static constexpr Rule kRule{.key = "EmployeeContact",
                              .field = "Employee Contact",
                              .code = "FAIL_EMPCONTACT",
                              .what = "the Employee Contact Details: ",
                              .title = "Unknown Error: Employee Contact"};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    if (strErrKey.empty()) found.At("_EmployeeContact");
    clsEmployeeNameType& name = Required(DetailsOf(objEmployee).Contact());
    if (name.Validated()) return;
    found.And(ValidateForename(objEmployee, true, strErrKey));
    found.And(ValidateForename1(objEmployee, true, strErrKey));
    found.And(ValidateSurname(objEmployee, true, strErrKey));
    found.And(ValidateTitle(objEmployee, true, strErrKey));
    name.Validated(found.Passed());
  });
}

bool vlsEmployeeValidator::ValidateEmployeeAddress(const Ref<clsEmployee>& objEmployee,
                                                   const String& strErrKey) {
  return Walk(strErrKey, [&] {
    clsEmployeeDetails& details = DetailsOf(objEmployee);
    if (!details.HasAddress()) return true;
    clsEmployeeAddress& address = Required(details.Address());
    if (address.Validated()) return true;
    bool passed = ValidateAddressLines(objEmployee, true, strErrKey);
    if (address.Country().empty()) {
      passed &= ValidatePostcode(objEmployee, true, strErrKey);
    } else {
      passed &= ValidateForeignCountry(objEmployee, strErrKey);
    }
    passed &= ValidateAddressNINORule(objEmployee, strErrKey);
    address.Validated(passed);
    return passed;
  });
}

bool vlsEmployeeValidator::ValidateEmployeePartnerDetails(const Ref<clsEmployee>& objEmployee,
                                                          const String& strErrKey) {
  return Walk(strErrKey, [&] {
    clsEmployeeDetails& details = DetailsOf(objEmployee);
    if (!details.HasPartnerDetails()) return true;
    clsEmployeePartnerDetails& partner = Required(details.PartnerDetails());
    if (partner.Validated()) return true;
    bool passed = ValidatePartnerSurname(objEmployee, strErrKey);
    passed &= ValidatePartnerForename(objEmployee, strErrKey);
    passed &= ValidatePartnerForename1(objEmployee, strErrKey);
    passed &= ValidatePartnerNINO(objEmployee, strErrKey);
    passed &= ValidatePartnerNameRule(objEmployee, strErrKey);
    partner.Validated(passed);
    return passed;
  });
}

bool vlsEmployeeValidator::ValidateString(const String& strToValidate, const String& strAllowedChars) const {
  bool result = false;
  Handled(kClass, "Function ValidateString", [&] {
    const std::u16string allowed = ToUtf16(UpperCase(strAllowedChars));
    const std::u16string text = ToUtf16(UpperCase(strToValidate));
    result = text.find_first_not_of(allowed) == std::u16string::npos;
  });
  return result;
}

String vlsEmployeeValidator::BuildEmployeeKey(const clsEmployee& employee) {
  return ToText(employee.EmployeeId()) + "_" + employee.EmployeeCode();
}

Ref<ErrorRecord> vlsEmployeeValidator::NewRecord() const {
  auto record = std::make_shared<clsEmployeeException>();
  record->Employee(concerned_);
  return record;
}

// "N/A" all over for the record of a walk that broke off, which names nobody.
Validator::Concerned vlsEmployeeValidator::ConcernedBy(const ErrorRecord& record) const {
  const auto* of_employee = dynamic_cast<const clsEmployeeException*>(&record);
  if (of_employee == nullptr || !of_employee->Employee()) return {};
  clsEmployee& employee = *of_employee->Employee();
  const Ref<clsEmployeeNameType> name = Required(employee.EmployeeDetails()).Contact();
  return {employee.EmployeeKey(), ToText(employee.CompanyId()), ToText(employee.EmployeeId()),
          Required(name).Surname() + ", " + name->Initials(), employee.EmployeeCode()};
}

}  // namespace zelnor
