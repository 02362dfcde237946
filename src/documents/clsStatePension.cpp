#include "zelnor/documents/clsStatePension.h"

namespace zelnor {

void clsStatePension::Create(Currency curAmount, bool blnBereaved) {
  pension_.Create(curAmount, blnBereaved);
}

bool clsStatePension::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsStatePension", strXML);
}

bool clsStatePension::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsStatePension", "Function CreateFromXML", [&] {
    pension_.Create({}, false);
    if (xmlNode.NodeName() == RootElementName()) {
      pension_.ReadChildren(xmlNode);
      result = true;
    }
  });
  return result;
}

bool clsStatePension::Validated() const { return pension_.Validated(); }
void clsStatePension::Validated(bool value) { pension_.Validated(value); }

String clsStatePension::RootElementName() const { return "StatePension"; }

Currency clsStatePension::Amount() const { return pension_.Amount(); }
void clsStatePension::Amount(Currency value) { pension_.Amount(value); }

bool clsStatePension::Bereaved() const { return pension_.Bereaved(); }
void clsStatePension::Bereaved(bool value) { pension_.Bereaved(value); }

XmlNode clsStatePension::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsStatePension", "Function ToXML", [&] {
    Element out = Element::Single("StatePension", xmlParent);
    result = out.Node();
    pension_.WriteChildren(out);
  });
  return result;
}

}  // namespace zelnor
