#include "zelnor/documents/clsApprenticeshipLevy.h"

namespace zelnor {

void clsApprenticeshipLevy::Create(Integer intTaxMonth, Currency curLevyDueYTD, Currency curAnnualAllowance) {
  tax_month_ = intTaxMonth;
  levy_due_ytd_ = curLevyDueYTD;
  annual_allowance_ = curAnnualAllowance;
  validated_ = false;
}

bool clsApprenticeshipLevy::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsApprenticeshipLevy", strXML);
}

bool clsApprenticeshipLevy::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsApprenticeshipLevy", "Function CreateFromXML", [&] {
    *this = clsApprenticeshipLevy();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "TaxMonth") tax_month_ = ToInteger(child.Text());
        if (name == "LevyDueYTD") levy_due_ytd_ = ToCurrency(child.Text());
        if (name == "AnnualAllce") annual_allowance_ = ToCurrency(child.Text());
      }
      result = true;
    }
  });
  return result;
}

String clsApprenticeshipLevy::RootElementName() const { return "ApprenticeshipLevy"; }

Integer clsApprenticeshipLevy::TaxMonth() const { return tax_month_; }
Currency clsApprenticeshipLevy::LevyDueYTD() const { return levy_due_ytd_; }
Currency clsApprenticeshipLevy::AnnualAllowance() const { return annual_allowance_; }

XmlNode clsApprenticeshipLevy::ToXML(const XmlNode& xmlParent, eRTISUBMISSIONTYPE /*submissionType*/) {
  XmlNode result;
  Handled("clsApprenticeshipLevy", "Function ToXML", [&] {
    Element out = Element::Single("ApprenticeshipLevy", xmlParent);
    result = out.Node();
    out.Money("LevyDueYTD", levy_due_ytd_);
    out.Number("TaxMonth", tax_month_);
    out.Money("AnnualAllce", annual_allowance_);
  });
  return result;
}

}  // namespace zelnor
