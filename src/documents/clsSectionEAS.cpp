#include "zelnor/documents/clsSectionEAS.h"

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsEmployment.h"

namespace zelnor {

void clsSectionEAS::Create(Ref<clsEmployerReferences> objEmployerReferences,
                           CollectionRef<clsEmployee> colEmployees, bool blnCompressed) {
  StoreReferences(std::move(objEmployerReferences));
  StoreEmployees(std::move(colEmployees));
  UseCompression(blnCompressed);
  validated_ = false;
}

bool clsSectionEAS::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, ClassName(), strXML); }

bool clsSectionEAS::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled(ClassName(), "Function CreateFromXML", [&] {
    validated_ = false;
    ClearEmployees();
    number_of_parts_ = 1;
    unique_part_id_.clear();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (ReadCommonChild(child)) continue;
        const std::string_view name = child.BaseName();
        if (name == "NumberOfParts") number_of_parts_ = ToInteger(child.Text());
        if (name == "UniquePartID") unique_part_id_ = child.Text();
      }
      result = true;
    }
  });
  return result;
}

String clsSectionEAS::RootElementName() const { return "EmployerAlignmentSubmission"; }
String clsSectionEAS::Class() const { return "HMRC-PAYE-RTI-EAS"; }
String clsSectionEAS::DefaultSchema() const { return "\\xsd\\EmployerAlignmentSubmission-v3-3.xsd"; }
String clsSectionEAS::ClassName() const { return "clsSectionEAS"; }

void clsSectionEAS::AddEmployee(const Ref<clsEmployee>& objEmployee) {
  Handled(ClassName(), "Sub AddEmployee", [&] { Append(objEmployee); });
}

Integer clsSectionEAS::NumberOfParts() const { return number_of_parts_; }
void clsSectionEAS::NumberOfParts(Integer value) { Change(number_of_parts_, value); }

String clsSectionEAS::UniquePartID() const { return unique_part_id_; }
void clsSectionEAS::UniquePartID(String value) { Change(unique_part_id_, std::move(value)); }

void clsSectionEAS::GetCounts(Long& lngTotalEmployees, Long& lngNewEmployees, Long& lngCurrentEmployees,
                              Long& lngLeaverEmployees) {
  Handled(ClassName(), "Sub GetCounts", [&] {
    for (const Ref<clsEmployee>& employee : *Employees()) {
      ++lngTotalEmployees;
      for (const Ref<clsEmployment>& employment : *Required(employee).Employment()) {
        CountByStatus(Required(employment).EmploymentStatus(), lngNewEmployees, lngCurrentEmployees,
                      lngLeaverEmployees);
      }
    }
  });
}

XmlNode clsSectionEAS::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled(ClassName(), "Function ToXML", [&] {
    Element out = Element::Single("EmployerAlignmentSubmission", xmlParent);
    result = out.Node();
    WriteReferences(result);
    out.Number("NumberOfParts", number_of_parts_);
    out.OptionalText("UniquePartID", unique_part_id_);
    WriteEmployees(result);
  });
  return result;
}

}  // namespace zelnor
