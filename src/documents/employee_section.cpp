#include "zelnor/documents/employee_section.h"

#include "zelnor/common/modPublicEnums.h"
#include "zelnor/documents/clsCompressedEmployees.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployerReferences.h"

namespace zelnor {

EmployeeSection::EmployeeSection()
    : employer_references_(std::make_shared<clsEmployerReferences>()),
      employees_(MakeCollection<clsEmployee>()) {}

EmployeeSection::~EmployeeSection() = default;

bool EmployeeSection::Validated() const {
  return validated_ && AbsentOrValidated(employer_references_) && AbsentOrValidated(employees_);
}

Ref<clsEmployerReferences> EmployeeSection::Employer_References() {
  return MadeWhenAbsent(employer_references_);
}
void EmployeeSection::Employer_References(Ref<clsEmployerReferences> value) {
  ClearValidated(value);
  employer_references_ = std::move(value);
}

CollectionRef<clsEmployee> EmployeeSection::Employees() {
  if (!employees_) employees_ = MakeCollection<clsEmployee>();
  return employees_;
}

Long EmployeeSection::EmployeeCount() const { return employees_ ? employees_->Count() : 0; }

void EmployeeSection::Append(const Ref<clsEmployee>& objEmployee) {
  Required(objEmployee).Validated(false);
  Employees()->Add(objEmployee);
}

void EmployeeSection::AddEmployeeRange(CollectionRef<clsEmployee> colEmployee) {
  Handled(ClassName(), "Sub AddEmployeeRange", [&] {
    // Counted first: the range may be the section's own collection.
    const Long count = Required(colEmployee).Count();
    for (Long i = 1; i <= count; ++i) Append(Ref<clsEmployee>(colEmployee->Item(i)));
  });
}

bool EmployeeSection::UseValidation() const { return use_validation_; }
void EmployeeSection::UseValidation(bool value) { use_validation_ = value; }

bool EmployeeSection::UseCompression() const { return use_compression_; }
void EmployeeSection::UseCompression(bool value) { use_compression_ = value; }

bool EmployeeSection::OverrideCompression() const { return override_compression_; }
void EmployeeSection::OverrideCompression(bool value) { override_compression_ = value; }

Long EmployeeSection::AutoCompressionLimit() const { return auto_compression_limit_; }
void EmployeeSection::AutoCompressionLimit(Long value) { auto_compression_limit_ = value; }

Ref<clsCompressedEmployees> EmployeeSection::CompressedPart() const { return compressed_part_; }

void EmployeeSection::CountByStatus(eEMPLOYEE_STATUS status, Long& fresh, Long& current, Long& leavers) {
  switch (status) {
    case eEMPLOYEE_STATUS::eesNew:
      ++fresh;
      break;
    case eEMPLOYEE_STATUS::eesCurrent:
      ++current;
      break;
    case eEMPLOYEE_STATUS::eesLeaver:
      ++leavers;
      break;
  }
}

void EmployeeSection::ClearEmployees() {
  employer_references_ = std::make_shared<clsEmployerReferences>();
  employees_ = MakeCollection<clsEmployee>();
  compressed_part_ = nullptr;
}

bool EmployeeSection::ReadCommonChild(const XmlNode& child) {
  const std::string_view name = child.BaseName();
  if (name == "Employee") {
    use_compression_ = false;
    employees_->Add(NewFromXML<clsEmployee>(child));
  } else if (name == "EmpRefs") {
    employer_references_->CreateFromXML(child);
  } else if (name == "CompressedPart") {
    ReadCompressedPart(child);
  } else {
    return false;
  }
  return true;
}

void EmployeeSection::ReadCompressedPart(const XmlNode& xmlNode) {
  compressed_part_ = NewFromXML<clsCompressedEmployees>(xmlNode);
  employees_ = compressed_part_->Employees();
  use_compression_ = true;
}

void EmployeeSection::WriteReferences(const XmlNode& xmlSection) { Employer_References()->ToXML(xmlSection); }

void EmployeeSection::WriteEmployees(const XmlNode& xmlSection) {
  const bool plain =
      (!use_compression_ && EmployeeCount() < auto_compression_limit_) || override_compression_;
  if (plain || !WriteCompressed(xmlSection)) WritePlain(xmlSection);
}

// False, with nothing of the part left behind, when the employees can't be packed.
bool EmployeeSection::WriteCompressed(const XmlNode& xmlSection) {
  const auto part = std::make_shared<clsCompressedEmployees>();
  part->Employees(Employees());
  if (compressed_part_) part->KeepWritten(*compressed_part_);
  part->ToXML(xmlSection);
  const String failure = part->Failure();
  compressed_part_ = failure.empty() ? part : nullptr;
  if (failure.empty()) {
    RemoveChildNodes(xmlSection, "Employee");
    return true;
  }
  RemoveChildNodes(xmlSection, "CompressedPart");
  events.CompressionError(failure);
  return false;
}

void EmployeeSection::WritePlain(const XmlNode& xmlSection) {
  RemoveChildNodes(xmlSection, "CompressedPart");
  RemoveChildNodes(xmlSection, "Employee");
  if (!employees_) return;
  for (const Ref<clsEmployee>& employee : *employees_) Required(employee).ToXML(xmlSection);
}

}  // namespace zelnor
