#include "zelnor/envelope/clsIRMark.h"

#include "zelnor/platform/text.h"

namespace zelnor {

void clsIRMark::Create(const String& strValue, IR_MARK_TYPE eniType) {
  value_ = strValue;
  type_ = eniType;
  validated_ = false;
}

bool clsIRMark::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, "clsIRMark", strXML); }

bool clsIRMark::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsIRMark", "Function CreateFromXML", [&] {
    value_.clear();
    if (xmlNode.NodeName() == RootElementName()) {
      value_ = xmlNode.Text();
      const String type = UpperCase(xmlNode.Attribute("Type").value_or(String()));
      if (type == "SAONLY") type_ = IR_MARK_TYPE::SAOnly;
      if (type == "GENERIC") type_ = IR_MARK_TYPE::generic;
      result = true;
    }
  });
  return result;
}

String clsIRMark::RootElementName() const { return "IRmark"; }

String clsIRMark::value() const { return value_; }
void clsIRMark::value(String newValue) { Change(value_, std::move(newValue)); }

IR_MARK_TYPE clsIRMark::IRMarkType() const { return type_; }
void clsIRMark::IRMarkType(IR_MARK_TYPE value) { Change(type_, value); }

XmlNode clsIRMark::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsIRMark", "Function ToXML", [&] {
    Element out = Element::Emptied("IRmark", xmlParent);
    result = out.Node();
    // RTI knows the generic mark alone, so that a mark of the other type goes out as generic, too.
    out.Attribute("Type", "generic");
    out.Node().Text(value_);
  });
  return result;
}

}  // namespace zelnor
