#include "zelnor/documents/clsEmailType.h"

#include "zelnor/platform/text.h"

namespace zelnor {

void clsEmailType::Create(const String& strEmailAddress, EMAIL_TYPE eniEmailType, Integer blnPreferred) {
  email_address_ = strEmailAddress;
  email_type_ = eniEmailType;
  preferred_ = blnPreferred != 0;
  validated_ = false;
}

bool clsEmailType::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsEmailType", strXML);
}

bool clsEmailType::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsEmailType", "Function CreateFromXML", [&] {
    if (xmlNode.NodeName() == RootElementName()) {
      if (const auto preferred = xmlNode.Attribute("Preferred")) preferred_ = IsYes(*preferred);
      if (const auto type = xmlNode.Attribute("Type"))
        email_type_ = UpperCase(*type) == "HOME" ? EMAIL_TYPE::Home : EMAIL_TYPE::Work;
      email_address_ = xmlNode.Text();
      result = true;
    }
  });
  return result;
}

String clsEmailType::RootElementName() const { return "Email"; }

bool clsEmailType::Preferred() const { return preferred_; }
void clsEmailType::Preferred(bool value) { Change(preferred_, value); }

EMAIL_TYPE clsEmailType::EmailType() const { return email_type_; }
void clsEmailType::EmailType(EMAIL_TYPE value) { Change(email_type_, value); }

String clsEmailType::EmailAddress() const { return email_address_; }
void clsEmailType::EmailAddress(String value) { Change(email_address_, std::move(value)); }

XmlNode clsEmailType::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsEmailType", "Function ToXML", [&] {
    Element out = Element::Appended("Email", xmlParent);
    result = out.Node();
    out.AttributeYesNo("Preferred", preferred_);
    out.Attribute("Type", email_type_ == EMAIL_TYPE::Home ? "home" : "work");
    out.Node().Text(email_address_);
  });
  return result;
}

}  // namespace zelnor
