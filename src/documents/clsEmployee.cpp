#include "zelnor/documents/clsEmployee.h"

#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/platform/text.h"

namespace zelnor {
namespace {

// An added employment may be the fourteenth at most, an assigned collection may hold one more.
constexpr Long kAddedEmploymentsRefused = 15;
constexpr Long kAssignedEmploymentsRefused = 16;

[[noreturn]] void ThrowTooManyEmployments() {
  throw RuntimeError(6001, "AddEmployment", "Maximum Employments exceeded!");
}

bool HasTrivialCommutation(clsEmployment& employment) {
  for (const Currency& amount : employment.Payment()->TrivialCommutationPayment()) {
    if (!amount.IsZero()) return true;
  }
  return false;
}

}  // namespace

clsEmployee::clsEmployee()
    : employee_details_(std::make_shared<clsEmployeeDetails>()),
      employment_(MakeCollection<clsEmployment>()) {}

void clsEmployee::Create(Ref<clsEmployeeDetails> objEmployeeDetails,
                         CollectionRef<clsEmployment> colEmployment) {
  Handled("clsEmployee", "Sub Create", [&] {
    employee_details_ = std::move(objEmployeeDetails);
    employment_ = std::move(colEmployment);
  });
}

bool clsEmployee::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, "clsEmployee", strXML); }

bool clsEmployee::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsEmployee", "Function CreateFromXML", [&] {
    employee_details_ = std::make_shared<clsEmployeeDetails>();
    employment_ = MakeCollection<clsEmployment>();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "EmployeeDetails") {
          employee_details_ = NewFromXML<clsEmployeeDetails>(child);
        } else if (name == "Employment") {
          const Ref<clsEmployment> employment = NewFromXML<clsEmployment>(child);
          employment_->Add(employment);
          employee_code_ = employment->PayID();
          employee_id_ = employment_->Count();
        }
      }
      result = true;
    }
  });
  return result;
}

bool clsEmployee::IsValidated(eRTISUBMISSIONTYPE eniSubType) const {
  bool result = false;
  Handled("clsEmployee", "Function IsValidated", [&] {
    result = AbsentOrValidated(employee_details_) &&
             !AnyEmployment([&](const clsEmployment& each) { return !each.IsValidated(eniSubType); });
  });
  return result;
}

bool clsEmployee::Validated() const {
  return AbsentOrValidated(employee_details_) && AbsentOrValidated(employment_);
}

void clsEmployee::Validated(bool value) {
  if (employee_details_) employee_details_->Validated(value);
  if (!employment_) return;
  for (const Ref<clsEmployment>& each : *employment_) {
    if (each) each->Validated(value);
  }
}

String clsEmployee::RootElementName() const { return "Employee"; }

Ref<clsEmployeeDetails> clsEmployee::EmployeeDetails() { return MadeWhenAbsent(employee_details_); }
void clsEmployee::EmployeeDetails(Ref<clsEmployeeDetails> value) {
  employee_details_ = std::move(value);
  ClearValidated(employee_details_);
}

CollectionRef<clsEmployment> clsEmployee::Employment() { return MadeWhenAbsent(employment_); }
void clsEmployee::Employment(CollectionRef<clsEmployment> value) {
  PassedOnWithPrefix("[ZELNOR.dll::clsEmployee]: Employment", [&] {
    employment_ = std::move(value);
    for (const Ref<clsEmployment>& each : Required(employment_)) {
      Required(each).Parent(weak_from_this().lock());
    }
    if (employment_->Count() >= kAssignedEmploymentsRefused) ThrowTooManyEmployments();
  });
}

Ref<clsEmployment> clsEmployee::AddEmployment(Ref<clsEmployment> objEmployment) {
  Ref<clsEmployment> result;
  Handled("clsEmployee", "Function AddEmployment", [&] {
    const Ref<clsEmployment>& employment = MadeWhenAbsent(objEmployment);
    employment->Parent(weak_from_this().lock());
    employment->Validated(false);
    Employment()->Add(employment);
    if (employment_->Count() >= kAddedEmploymentsRefused) ThrowTooManyEmployments();
    result = employment;
  });
  return result;
}

Ref<clsEmployment> clsEmployee::GetEmployment(Integer intIndex) {
  Ref<clsEmployment> result;
  Handled("clsEmployee", "Function GetEmployment", [&] { result = Employment()->Item(Long{intIndex}); });
  return result;
}

Ref<clsEmployment> clsEmployee::GetEmploymentByPayID(const String& strPayID) {
  Ref<clsEmployment> result;
  Handled("clsEmployee", "Function GetEmploymentByPayID", [&] {
    for (const Ref<clsEmployment>& each : *Employment()) {
      if (!EqualIgnoringCase(Required(each).PayID(), strPayID)) continue;
      result = each;
      return;
    }
  });
  return result;
}

String clsEmployee::EmployeeKey() {
  String result = "#Error!";
  Handled("clsEmployee", "Get EmployeeKey", [&] {
    const Ref<clsEmployeeDetails> details = EmployeeDetails();
    String key = details->NINO();
    if (key.empty()) {
      const Ref<clsEmployeeNameType> name = details->Contact();
      key = name->Forename() + "_" + name->Surname() + "_" + Format(details->DateOfBirth(), "yyyymmdd");
    }
    result = std::move(key);
  });
  return result;
}

Long clsEmployee::EmployeeId() const { return employee_id_; }
void clsEmployee::EmployeeId(Long value) { employee_id_ = value; }

String clsEmployee::EmployeeCode() const { return employee_code_; }
void clsEmployee::EmployeeCode(String value) { employee_code_ = std::move(value); }

String clsEmployee::Department() const { return department_; }
void clsEmployee::Department(String value) { department_ = std::move(value); }

Integer clsEmployee::CompanyId() const { return company_id_; }
void clsEmployee::CompanyId(Integer value) { company_id_ = value; }

template <class Test>
bool clsEmployee::AnyEmployment(const Test& test) const {
  if (!employment_) return false;
  for (const Ref<clsEmployment>& each : *employment_) {
    if (test(Required(each))) return true;
  }
  return false;
}

bool clsEmployee::HasPaymentToANonIndividualSet() const {
  bool result = false;
  Handled("clsEmployee", "Get HasPaymentToANonIndividualSet",
          [&] { result = AnyEmployment([](const clsEmployment& each) { return each.IsNonIndividual(); }); });
  return result;
}

bool clsEmployee::HasDirectorWeekNumberSet() const {
  bool result = false;
  PassedOnWithPrefix("[clsEmployee]: HasDirectorWeekNumberSet", [&] {
    result = AnyEmployment([](const clsEmployment& each) { return each.WkOrMonthNoDirectorAppt() != 0; });
  });
  return result;
}

bool clsEmployee::HasStarterInfo() const {
  bool result = false;
  PassedOnWithPrefix("[clsEmployee]: HasStarterInfo", [&] {
    result = AnyEmployment([](const clsEmployment& each) { return each.HasStarterInfo(); });
  });
  return result;
}

bool clsEmployee::HasLeavingDate() const {
  static const Date kNoLeavingDate = Date::FromParts(1901, 1, 1);
  bool result = false;
  PassedOnWithPrefix("[clsEmployee]: HasLeavingDate", [&] {
    result = AnyEmployment([](const clsEmployment& each) { return each.LeavingDate() > kNoLeavingDate; });
  });
  return result;
}

bool clsEmployee::HasTrivialCommutationPayment() const {
  bool result = false;
  PassedOnWithPrefix("[clsEmployee]: HasTrivialCommutationPayment", [&] {
    result = AnyEmployment([](clsEmployment& each) { return HasTrivialCommutation(each); });
  });
  return result;
}

XmlNode clsEmployee::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsEmployee", "Function ToXML", [&] {
    result = Element::Appended("Employee", xmlParent).Node();
    const Ref<clsEmployeeDetails> details = EmployeeDetails();
    details->Parent(weak_from_this().lock());
    details->ToXML(result);
    for (const Ref<clsEmployment>& each : *Employment()) Required(each).ToXML(result, details->Gender());
  });
  return result;
}

}  // namespace zelnor
