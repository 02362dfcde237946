#include "zelnor/documents/clsTelephoneType.h"

#include "zelnor/platform/text.h"

namespace zelnor {

void clsTelephoneType::Create(const String& strTelephone, TELEPHONE_TYPE eniType, bool blnMobile,
                              bool blnPreferred, const String& strExtension) {
  number_ = strTelephone;
  tel_type_ = eniType;
  mobile_ = blnMobile;
  preferred_ = blnPreferred;
  extension_ = strExtension;
  validated_ = false;
}

bool clsTelephoneType::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsTelephoneType", strXML);
}

bool clsTelephoneType::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsTelephoneType", "Function CreateFromXML", [&] {
    number_.clear();
    extension_.clear();
    preferred_ = false;
    mobile_ = false;
    if (xmlNode.NodeName() == RootElementName()) {
      if (const auto mobile = xmlNode.Attribute("Mobile")) mobile_ = IsYes(*mobile);
      ReadAllButMobile(xmlNode);
      result = true;
    }
  });
  return result;
}

void clsTelephoneType::ReadAllButMobile(const XmlNode& xmlNode) {
  if (const auto preferred = xmlNode.Attribute("Preferred")) preferred_ = IsYes(*preferred);
  if (const auto type = xmlNode.Attribute("Type"))
    tel_type_ = UpperCase(*type) == "HOME" ? TELEPHONE_TYPE::Home : TELEPHONE_TYPE::Work;
  for (const XmlNode& child : xmlNode.ChildNodes()) {
    if (!child.IsElement()) continue;
    const std::string_view name = child.BaseName();
    if (name == "Number") number_ = child.Text();
    if (name == "Extension") extension_ = child.Text();
  }
}

String clsTelephoneType::RootElementName() const { return "Telephone"; }

bool clsTelephoneType::IsMobile() const { return mobile_; }
void clsTelephoneType::IsMobile(bool value) { Change(mobile_, value); }

bool clsTelephoneType::Preferred() const { return preferred_; }
void clsTelephoneType::Preferred(bool value) { Change(preferred_, value); }

TELEPHONE_TYPE clsTelephoneType::TelType() const { return tel_type_; }
void clsTelephoneType::TelType(TELEPHONE_TYPE value) { Change(tel_type_, value); }

String clsTelephoneType::Number() const { return number_; }
void clsTelephoneType::Number(String value) { Change(number_, std::move(value)); }

String clsTelephoneType::Extension() const { return extension_; }
void clsTelephoneType::Extension(String value) { Change(extension_, std::move(value)); }

XmlNode clsTelephoneType::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsTelephoneType", "Function ToXML", [&] {
    Element out = Element::Appended("Telephone", xmlParent);
    result = out.Node();
    WriteInto(out);
  });
  return result;
}

void clsTelephoneType::WriteInto(Element& out) const {
  out.AttributeYesNo("Mobile", mobile_);
  out.AttributeYesNo("Preferred", preferred_);
  out.Attribute("Type", tel_type_ == TELEPHONE_TYPE::Home ? "home" : "work");
  out.Text("Number", number_);
  out.OptionalText("Extension", extension_);
}

}  // namespace zelnor
