#include "zelnor/envelope/clsGTMAuthentication.h"

namespace zelnor {

void clsGTMAuthentication::Create(const String& strMethod, const String& strRole, const String& strValue,
                                  const String& strSignature) {
  method_ = strMethod;
  role_ = strRole;
  value_ = strValue;
  signature_ = strSignature;
  validated_ = false;
}

bool clsGTMAuthentication::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsGTMAuthentication", strXML);
}

bool clsGTMAuthentication::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsGTMAuthentication", "Function CreateFromXML", [&] {
    method_.clear();
    role_.clear();
    signature_.clear();
    value_.clear();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "Method") {
          method_ = child.Text();
        } else if (name == "Role") {
          role_ = child.Text();
        } else if (name == "Signature") {
          signature_ = child.Text();
        } else if (name == "Value") {
          value_ = child.Text();
        }
      }
      result = true;
    }
  });
  return result;
}

String clsGTMAuthentication::RootElementName() const { return "Authentication"; }

String clsGTMAuthentication::Method() const { return method_; }
void clsGTMAuthentication::Method(String value) { Change(method_, std::move(value)); }

String clsGTMAuthentication::Role() const { return role_; }
void clsGTMAuthentication::Role(String value) { Change(role_, std::move(value)); }

String clsGTMAuthentication::Signature() const { return signature_; }
void clsGTMAuthentication::Signature(String value) { Change(signature_, std::move(value)); }

String clsGTMAuthentication::value() const { return value_; }
void clsGTMAuthentication::value(String newValue) { Change(value_, std::move(newValue)); }

XmlNode clsGTMAuthentication::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsGTMAuthentication", "Function ToXML", [&] {
    Element out = Element::Appended("Authentication", xmlParent);
    result = out.Node();
    out.Text("Method", method_);
    out.Text("Role", role_);
    out.OptionalText("Signature", signature_);
    out.Text("Value", value_);
  });
  return result;
}

}  // namespace zelnor
