#include "zelnor/documents/clsSectionNVR.h"

#include "zelnor/common/enumerations.h"
#include "zelnor/common/modPublicEnums.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsEmployment.h"

namespace zelnor {
namespace {

[[noreturn]] void ThrowTooManyEmployees() {
  throw RuntimeError(1511, "Add Employee", "Maximum Employees (99) reached!");
}

}  // namespace

clsSectionNVR::clsSectionNVR()
    : employer_references_(std::make_shared<clsEmployerReferences>()),
      employees_(MakeCollection<clsEmployee>()) {}
clsSectionNVR::~clsSectionNVR() = default;

void clsSectionNVR::Create(Ref<clsEmployerReferences> objEmployerReferences,
                           CollectionRef<clsEmployee> colEmployeeDetails) {
  employer_references_ = std::move(objEmployerReferences);
  employees_ = std::move(colEmployeeDetails);
  validated_ = false;
}

bool clsSectionNVR::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsSectionNVR", strXML);
}

bool clsSectionNVR::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsSectionNVR", "Function CreateFromXML", [&] {
    validated_ = false;
    employer_references_ = std::make_shared<clsEmployerReferences>();
    employees_ = MakeCollection<clsEmployee>();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "EmpRefs") employer_references_->CreateFromXML(child);
        if (name == "Employee") employees_->Add(NewFromXML<clsEmployee>(child));
      }
      result = true;
    }
  });
  return result;
}

bool clsSectionNVR::Validated() const {
  return validated_ && AbsentOrValidated(employer_references_) && AbsentOrValidated(employees_);
}

String clsSectionNVR::RootElementName() const { return "NINOverificationRequest"; }
String clsSectionNVR::Class() const { return "HMRC-PAYE-RTI-NVR"; }
String clsSectionNVR::DefaultSchema() const { return "\\xsd\\NINOverificationRequest-v1-2.xsd"; }

Ref<clsEmployerReferences> clsSectionNVR::Employer_References() {
  return MadeWhenAbsent(employer_references_);
}
void clsSectionNVR::Employer_References(Ref<clsEmployerReferences> value) {
  ClearValidated(value);
  employer_references_ = std::move(value);
}

CollectionRef<clsEmployee> clsSectionNVR::Employees() {
  if (!employees_) employees_ = MakeCollection<clsEmployee>();
  return employees_;
}

Long clsSectionNVR::EmployeeCount() const { return employees_ ? employees_->Count() : 0; }

bool clsSectionNVR::UseValidation() const { return use_validation_; }
void clsSectionNVR::UseValidation(bool value) { use_validation_ = value; }

void clsSectionNVR::Append(const Ref<clsEmployee>& objEmployee) {
  Required(objEmployee).Validated(false);
  Employees()->Add(objEmployee);
}

void clsSectionNVR::AddEmployee(const Ref<clsEmployee>& objEmployee) {
  if (EmployeeCount() >= kMaxEmployees) ThrowTooManyEmployees();
  Handled("clsSectionNVR", "Sub AddEmployee", [&] { Append(objEmployee); });
}

void clsSectionNVR::AddEmployeeRange(CollectionRef<clsEmployee> colEmployee) {
  const Long count = colEmployee ? colEmployee->Count() : 0;
  if (EmployeeCount() + count > kMaxEmployees) ThrowTooManyEmployees();
  Handled("clsSectionNVR", "Sub AddEmployeeRange", [&] {
    // By position, up to the count at the start: the range may be the section's own collection.
    Required(colEmployee);
    for (Long i = 1; i <= count; ++i) Append(Ref<clsEmployee>(colEmployee->Item(i)));
  });
}

void clsSectionNVR::GetCounts(Long& lngTotalEmployees, Long& lngEmployeesWithNINO,
                              Long& lngEmployeesWithoutNINO) {
  Handled("clsSectionNVR", "Sub GetCounts", [&] {
    for (const Ref<clsEmployee>& employee : *Employees()) {
      ++lngTotalEmployees;
      const bool has_nino = !Required(employee).EmployeeDetails()->NINO().empty();
      ++(has_nino ? lngEmployeesWithNINO : lngEmployeesWithoutNINO);
    }
  });
}

String clsSectionNVR::XML() {
  String result;
  Handled("clsSectionNVR", "Function XML", [&] {
    if (const XmlDocument document = Document()) result = document.Xml();
  });
  return result;
}

XmlDocument clsSectionNVR::Document() {
  XmlDocument result = nullptr;
  Handled("clsSectionNVR", "Get Document", [&] {
    const XmlDocument document;
    ToXML(document.Node());
    result = document;
  });
  return result;
}

XmlNode clsSectionNVR::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsSectionNVR", "Function ToXML", [&] {
    Element out = Element::Single("NINOverificationRequest", xmlParent);
    result = out.Node();
    Employer_References()->ToXML(result);
    out.Remove("Employee");
    const String name_space = GetXMLBranchNamespace(result);
    Long written = 0;
    for (const Ref<clsEmployee>& employee : *Employees()) {
      if (++written > kMaxEmployees) break;
      const XmlNode element = result.AppendElement("Employee", name_space);
      Required(employee).EmployeeDetails()->ToXML(element);
      for (const Ref<clsEmployment>& employment : *employee->Employment()) {
        Required(employment).ToXML(element, EMPLOYEE_GENDER::Undefined);
      }
    }
  });
  return result;
}

}  // namespace zelnor
