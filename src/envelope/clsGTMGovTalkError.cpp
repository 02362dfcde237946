#include "zelnor/envelope/clsGTMGovTalkError.h"

#include <algorithm>

namespace zelnor {

void clsGTMGovTalkError::Create(const String& strRaisedBy, const String& strType, Integer intNumber,
                                const String& strText, const String& strLocation) {
  raised_by_ = strRaisedBy;
  error_type_ = strType;
  number_ = intNumber;
  text_ = strText;
  location_ = strLocation;
  validated_ = false;
}

bool clsGTMGovTalkError::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsGTMGovTalkError", strXML);
}

bool clsGTMGovTalkError::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsGTMGovTalkError", "Function CreateFromXML", [&] {
    raised_by_.clear();
    error_type_.clear();
    text_.clear();
    location_.clear();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "RaisedBy") {
          raised_by_ = child.Text();
        } else if (name == "Number") {
          number_ = ToInteger(child.Text());
        } else if (name == "Type") {
          error_type_ = child.Text();
        } else if (name == "Text") {
          text_ = child.Text();
        } else if (name == "Location") {
          location_ = child.Text();
        }
      }
      result = true;
    }
  });
  return result;
}

String clsGTMGovTalkError::RootElementName() const { return "Error"; }

String clsGTMGovTalkError::RaisedBy() const { return raised_by_; }
void clsGTMGovTalkError::RaisedBy(String value) { Change(raised_by_, std::move(value)); }

Integer clsGTMGovTalkError::Number() const { return number_; }
void clsGTMGovTalkError::Number(Integer value) { Change(number_, value); }

String clsGTMGovTalkError::ErrorType() const { return error_type_; }
void clsGTMGovTalkError::ErrorType(String value) { Change(error_type_, std::move(value)); }

String clsGTMGovTalkError::Text() const { return text_; }
void clsGTMGovTalkError::Text(String value) { Change(text_, std::move(value)); }

String clsGTMGovTalkError::Location() const { return location_; }
void clsGTMGovTalkError::Location(String value) { Change(location_, std::move(value)); }

Long clsGTMGovTalkError::EmployeeIndex() const {
  Long result = 0;
  Handled("clsGTMGovTalkError", "Get EmployeeIndex", [&] {
    constexpr std::string_view kEmployee = ":Employee[";
    const std::size_t found = location_.find(kEmployee);
    if (found == String::npos) return;
    const std::size_t begin = found + kEmployee.size();
    const std::size_t end = location_.find(']', begin);
    if (end == String::npos || end == begin) return;
    const String position = location_.substr(begin, end - begin);
    const bool digits =
        std::all_of(position.begin(), position.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (digits) result = ToLong(position);
  });
  return result;
}

XmlNode clsGTMGovTalkError::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsGTMGovTalkError", "Function ToXML", [&] {
    Element out = Element::Appended("Error", xmlParent);
    result = out.Node();
    out.Text("RaisedBy", raised_by_);
    out.Number("Number", number_);
    out.Text("Type", error_type_);
    out.OptionalText("Text", text_);
    out.OptionalText("Location", location_);
  });
  return result;
}

}  // namespace zelnor
