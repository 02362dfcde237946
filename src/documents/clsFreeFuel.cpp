#include "zelnor/documents/clsFreeFuel.h"

#include "zelnor/common/modPublicEnums.h"
#include "zelnor/platform/conversions.h"

namespace zelnor {

void clsFreeFuel::Create(Date datProvided, Currency curCashEquiv, Date datWithdrawn) {
  provided_ = datProvided;
  cash_equiv_ = curCashEquiv;
  withdrawn_ = datWithdrawn;
  validated_ = false;
}

bool clsFreeFuel::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, "clsFreeFuel", strXML); }

bool clsFreeFuel::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsFreeFuel", "Function CreateFromXML", [&] {
    *this = clsFreeFuel();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (!child.IsElement()) continue;
        const std::string_view name = child.BaseName();
        if (name == "Provided") provided_ = ToDate(child.Text());
        if (name == "CashEquiv") cash_equiv_ = ToCurrency(child.Text());
        if (name == "Withdrawn") withdrawn_ = ToDate(child.Text());
      }
      result = true;
    }
  });
  return result;
}

String clsFreeFuel::RootElementName() const { return "FreeFuel"; }

Date clsFreeFuel::Provided() const { return provided_; }
Currency clsFreeFuel::CashEquiv() const { return cash_equiv_; }
Date clsFreeFuel::Withdrawn() const { return withdrawn_; }

XmlNode clsFreeFuel::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsFreeFuel", "Function ToXML", [&] {
    Element out = Element::Single("FreeFuel", xmlParent);
    result = out.Node();
    out.Day("Provided", provided_);
    out.Money("CashEquiv", cash_equiv_);
    out.OptionalDay("Withdrawn", withdrawn_);
  });
  return result;
}

}  // namespace zelnor
