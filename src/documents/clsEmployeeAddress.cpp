#include "zelnor/documents/clsEmployeeAddress.h"

#include <array>

namespace zelnor {

void clsEmployeeAddress::Create(const String& strAddrLine1, const String& strAddrLine2,
                                const String& strAddrLine3, const String& strAddrLine4,
                                const String& strPostcode, const String& strCountry) {
  address_.Create(strAddrLine1, strAddrLine2, strAddrLine3, strAddrLine4, strPostcode, strCountry);
}

bool clsEmployeeAddress::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsEmployeeAddress", strXML);
}

bool clsEmployeeAddress::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsEmployeeAddress", "Function CreateFromXML", [&] {
    address_ = clsAddress();
    if (xmlNode.NodeName() == RootElementName()) {
      std::array<String, 4> lines;
      std::size_t line = 0;
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "Line") {
          if (line < lines.size()) lines[line++] = child.Text();
        } else if (name == "UKPostcode") {
          address_.Postcode(child.Text());
        } else if (name == "ForeignCountry") {
          address_.Country(child.Text());
        }
      }
      address_.Create(lines[0], lines[1], lines[2], lines[3], address_.Postcode(), address_.Country());
      result = true;
    }
  });
  return result;
}

bool clsEmployeeAddress::Validated() const { return address_.Validated(); }
void clsEmployeeAddress::Validated(bool value) { address_.Validated(value); }

String clsEmployeeAddress::RootElementName() const { return "Address"; }

String clsEmployeeAddress::Address1() const { return address_.Address1(); }
void clsEmployeeAddress::Address1(String value) { address_.Address1(std::move(value)); }

String clsEmployeeAddress::Address2() const { return address_.Address2(); }
void clsEmployeeAddress::Address2(String value) { address_.Address2(std::move(value)); }

String clsEmployeeAddress::Address3() const { return address_.Address3(); }
void clsEmployeeAddress::Address3(String value) { address_.Address3(std::move(value)); }

String clsEmployeeAddress::Address4() const { return address_.Address4(); }
void clsEmployeeAddress::Address4(String value) { address_.Address4(std::move(value)); }

String clsEmployeeAddress::Postcode() const { return address_.Postcode(); }
void clsEmployeeAddress::Postcode(String value) { address_.Postcode(std::move(value)); }

String clsEmployeeAddress::Country() const { return address_.Country(); }
void clsEmployeeAddress::Country(String value) { address_.Country(std::move(value)); }

String clsEmployeeAddress::ForeignCountry() const { return address_.Country(); }

Integer clsEmployeeAddress::PopulatedAddressLineCount() const {
  Integer count = 0;
  for (const String& line : {Address1(), Address2(), Address3(), Address4()}) {
    if (!line.empty()) ++count;
  }
  return count;
}

XmlNode clsEmployeeAddress::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsEmployeeAddress", "Function ToXML", [&] {
    Element out = Element::Emptied("Address", xmlParent);
    result = out.Node();
    const String postcode = Postcode();
    const String country = Country();
    for (const String& line : {Address1(), Address2(), Address3(), Address4()}) {
      if (!line.empty()) out.Append("Line", line);
    }
    if (country.empty() || !postcode.empty()) out.Text("UKPostcode", postcode);
    out.OptionalText("ForeignCountry", country);
  });
  return result;
}

}  // namespace zelnor
