#include "zelnor/documents/clsSectionEYU.h"

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployerReferences.h"

namespace zelnor {

void clsSectionEYU::Create(Ref<clsEmployerReferences> objEmployerReferences, const String& strTaxYear,
                           CollectionRef<clsEmployee> colEmployees, bool blnCompressed) {
  StoreReferences(std::move(objEmployerReferences));
  tax_year_ = strTaxYear;
  StoreEmployees(std::move(colEmployees));
  UseCompression(blnCompressed);
  validated_ = false;
}

bool clsSectionEYU::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, ClassName(), strXML); }

bool clsSectionEYU::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled(ClassName(), "Function CreateFromXML", [&] {
    validated_ = false;
    ClearEmployees();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (!ReadCommonChild(child) && child.BaseName() == "RelatedTaxYear") tax_year_ = child.Text();
      }
      result = true;
    }
  });
  return result;
}

String clsSectionEYU::RootElementName() const { return "EarlierYearUpdate"; }
String clsSectionEYU::Class() const { return "HMRC-PAYE-RTI-EYU"; }
String clsSectionEYU::DefaultSchema() const { return "\\xsd\\EarlierYearUpdate-2020-v1-0.xsd"; }
String clsSectionEYU::ClassName() const { return "clsSectionEYU"; }

Ref<clsEmployee> clsSectionEYU::AddEmployee(Ref<clsEmployee> objEmployee) {
  Ref<clsEmployee> result;
  Handled(ClassName(), "Function AddEmployee", [&] {
    Append(MadeWhenAbsent(objEmployee));
    result = objEmployee;
  });
  return result;
}

XmlNode clsSectionEYU::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled(ClassName(), "Function ToXML", [&] {
    Element out = Element::Single("EarlierYearUpdate", xmlParent);
    result = out.Node();
    WriteReferences(result);
    out.Text("RelatedTaxYear", tax_year_);
    WriteEmployees(result);
  });
  return result;
}

}  // namespace zelnor
