#include "zelnor/documents/clsAddress.h"

namespace zelnor {

void clsAddress::Create(const String& strAddrLine1, const String& strAddrLine2, const String& strAddrLine3,
                        const String& strAddrLine4, const String& strPostcode, const String& strCountry) {
  lines_[0] = strAddrLine1;
  lines_[1] = strAddrLine2;
  lines_[2] = strAddrLine3;
  lines_[3] = strAddrLine4;
  postcode_ = strPostcode;
  country_ = strCountry;
  validated_ = false;
}

bool clsAddress::ParseFromXML(const String& strXML) {
  bool result = false;
  Handled("clsAddress", "Function ParseFromXML", [&] {
    const XmlNode node = DocumentElementNamed(strXML, "Address");
    result = node && CreateFromXML(node);
  });
  return result;
}

bool clsAddress::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsAddress", "Function CreateFromXML", [&] {
    if (xmlNode.NodeName() == "Address") {
      std::size_t line = 0;
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "Line") {
          if (line < std::size(lines_)) lines_[line++] = child.Text();
        } else if (name == "PostCode") {
          postcode_ = child.Text();
        } else if (name == "Country") {
          country_ = child.Text();
        }
      }
      result = true;
    }
  });
  return result;
}

String clsAddress::Address1() const { return lines_[0]; }
void clsAddress::Address1(String value) { Change(lines_[0], std::move(value)); }

String clsAddress::Address2() const { return lines_[1]; }
void clsAddress::Address2(String value) { Change(lines_[1], std::move(value)); }

String clsAddress::Address3() const { return lines_[2]; }
void clsAddress::Address3(String value) { Change(lines_[2], std::move(value)); }

String clsAddress::Address4() const { return lines_[3]; }
void clsAddress::Address4(String value) { Change(lines_[3], std::move(value)); }

String clsAddress::Postcode() const { return postcode_; }
void clsAddress::Postcode(String value) { Change(postcode_, std::move(value)); }

String clsAddress::Country() const { return country_; }
void clsAddress::Country(String value) { Change(country_, std::move(value)); }

XmlNode clsAddress::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsAddress", "Function ToXML", [&] {
    Element out = Element::Emptied("Address", xmlParent);
    result = out.Node();
    for (const String& line : lines_) {
      if (!line.empty()) out.Append("Line", line);
    }
    out.TextIf(!postcode_.empty() || country_.empty(), "PostCode", postcode_);
    out.OptionalText("Country", country_);
  });
  return result;
}

}  // namespace zelnor
