#include "zelnor/documents/clsOccPension.h"

namespace zelnor {

void clsOccPension::Create(Currency curAmount, bool blnBereaved) {
  amount_ = curAmount;
  bereaved_ = blnBereaved;
  validated_ = false;
}

bool clsOccPension::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsOccPension", strXML);
}

bool clsOccPension::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsOccPension", "Function CreateFromXML", [&] {
    Create({}, false);
    if (xmlNode.NodeName() == RootElementName()) {
      ReadChildren(xmlNode);
      result = true;
    }
  });
  return result;
}

void clsOccPension::ReadChildren(const XmlNode& xmlNode) {
  Create({}, false);
  for (const XmlNode& child : xmlNode.ChildNodes()) {
    const std::string_view name = child.BaseName();
    if (name == "Bereaved") {
      bereaved_ = true;
    } else if (name == "Amount") {
      amount_ = ToCurrency(child.Text());
    }
  }
}

String clsOccPension::RootElementName() const { return "OccPension"; }

Currency clsOccPension::Amount() const { return amount_; }
void clsOccPension::Amount(Currency value) { Change(amount_, value); }

bool clsOccPension::Bereaved() const { return bereaved_; }
void clsOccPension::Bereaved(bool value) { Change(bereaved_, value); }

XmlNode clsOccPension::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsOccPension", "Function ToXML", [&] {
    Element out = Element::Single("OccPension", xmlParent);
    result = out.Node();
    WriteChildren(out);
  });
  return result;
}

void clsOccPension::WriteChildren(Element& out) const {
  out.Yes("Bereaved", bereaved_);
  out.Money("Amount", amount_);
}

}  // namespace zelnor
