#include "zelnor/documents/clsEmployeePartnerDetails.h"

namespace zelnor {

clsEmployeePartnerDetails::clsEmployeePartnerDetails() : contact_(std::make_shared<clsEmployeeNameType>()) {}

void clsEmployeePartnerDetails::Create(const String& strNINO, Ref<clsEmployeeNameType> objContact) {
  nino_ = strNINO;
  contact_ = std::move(objContact);
  validated_ = false;
}

bool clsEmployeePartnerDetails::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsEmployeePartnerDetails", strXML);
}

bool clsEmployeePartnerDetails::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsEmployeePartnerDetails", "Function CreateFromXML", [&] {
    Create({}, std::make_shared<clsEmployeeNameType>());
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "NINO") {
          nino_ = child.Text();
        } else if (name == "Name") {
          contact_ = NewFromXML<clsEmployeeNameType>(child);
        }
      }
      result = true;
    }
  });
  return result;
}

bool clsEmployeePartnerDetails::Validated() const { return validated_ && AbsentOrValidated(contact_); }

String clsEmployeePartnerDetails::RootElementName() const { return "PartnerDetails"; }

String clsEmployeePartnerDetails::NINO() const { return nino_; }
void clsEmployeePartnerDetails::NINO(String value) { Change(nino_, std::move(value)); }

Ref<clsEmployeeNameType> clsEmployeePartnerDetails::Contact() { return MadeWhenAbsent(contact_); }
void clsEmployeePartnerDetails::Contact(Ref<clsEmployeeNameType> value) {
  contact_ = std::move(value);
  ClearValidated(contact_);
}

void clsEmployeePartnerDetails::CreateContact(const String& strTitle, const String& strForename,
                                              const String& strSurname) {
  Contact()->Create(strTitle, strForename, strSurname);
}

XmlNode clsEmployeePartnerDetails::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsEmployeePartnerDetails", "Function ToXML", [&] {
    Element out = Element::Single("PartnerDetails", xmlParent);
    result = out.Node();
    out.OptionalText("NINO", nino_);
    Contact()->ToXML(result);
  });
  return result;
}

}  // namespace zelnor
