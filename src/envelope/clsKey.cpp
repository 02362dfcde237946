#include "zelnor/envelope/clsKey.h"

namespace zelnor {

void clsKey::Create(const String& strKeyValue, const String& strType) {
  key_value_ = strKeyValue;
  key_type_ = strType;
  validated_ = false;
}

bool clsKey::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, "clsKey", strXML); }

bool clsKey::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsKey", "Function CreateFromXML", [&] {
    key_value_.clear();
    key_type_.clear();
    if (xmlNode.NodeName() == RootElementName()) {
      key_value_ = xmlNode.Text();
      key_type_ = xmlNode.Attribute("Type").value_or(String());
      result = true;
    }
  });
  return result;
}

String clsKey::RootElementName() const { return "Key"; }

String clsKey::KeyValue() const { return key_value_; }
void clsKey::KeyValue(String value) { Change(key_value_, std::move(value)); }

String clsKey::KeyType() const { return key_type_; }
void clsKey::KeyType(String value) { Change(key_type_, std::move(value)); }

XmlNode clsKey::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsKey", "Function ToXML", [&] {
    Element out = Element::Appended("Key", xmlParent);
    result = out.Node();
    out.Attribute("Type", key_type_);
    out.Node().Text(key_value_);
  });
  return result;
}

}  // namespace zelnor
