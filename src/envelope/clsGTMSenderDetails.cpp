#include "zelnor/envelope/clsGTMSenderDetails.h"

#include "zelnor/common/modPublicEnums.h"

namespace zelnor {

clsGTMSenderDetails::clsGTMSenderDetails() : authentication_(MakeCollection<clsGTMAuthentication>()) {}

void clsGTMSenderDetails::Create(const String& strSenderID, const String& strAuthRole,
                                 const String& strAuthPassword, const String& strEmailAddress,
                                 const String& strAuthMethod) {
  sender_id_ = strSenderID;
  certificate_.clear();
  email_address_ = strEmailAddress;
  CreateAuthentication(strAuthMethod, strAuthPassword, {}, strAuthRole);
  validated_ = false;
}

bool clsGTMSenderDetails::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsGTMSenderDetails", strXML);
}

bool clsGTMSenderDetails::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsGTMSenderDetails", "Function CreateFromXML", [&] {
    sender_id_.clear();
    certificate_.clear();
    email_address_.clear();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "IDAuthentication") {
          ReadIDAuthentication(child);
        } else if (name == "X509Certificate") {
          certificate_ = child.Text();
        } else if (name == "EmailAddress") {
          email_address_ = child.Text();
        }
      }
      result = true;
    }
  });
  return result;
}

void clsGTMSenderDetails::ReadIDAuthentication(const XmlNode& node) {
  for (const XmlNode& child : node.ChildNodes()) {
    const std::string_view name = child.BaseName();
    if (name == "SenderID") {
      sender_id_ = child.Text();
    } else if (name == "Authentication") {
      Authentication()->Add(NewFromXML<clsGTMAuthentication>(child));
    }
  }
}

bool clsGTMSenderDetails::Validated() const { return validated_ && AbsentOrValidated(authentication_); }

String clsGTMSenderDetails::RootElementName() const { return "SenderDetails"; }

String clsGTMSenderDetails::SenderID() const { return sender_id_; }
void clsGTMSenderDetails::SenderID(String value) { Change(sender_id_, std::move(value)); }

CollectionRef<clsGTMAuthentication> clsGTMSenderDetails::Authentication() {
  return MadeWhenAbsent(authentication_);
}
void clsGTMSenderDetails::Authentication(CollectionRef<clsGTMAuthentication> value) {
  Change(authentication_, std::move(value));
}

void clsGTMSenderDetails::AddAuthentication(Ref<clsGTMAuthentication> objAuthentication) {
  Authentication()->Add(std::move(objAuthentication));
}

Ref<clsGTMAuthentication> clsGTMSenderDetails::GetAuthentication(Integer intIndex) {
  Ref<clsGTMAuthentication> result;
  Handled("clsGTMSenderDetails", "Function GetAuthentication",
          [&] { result = Authentication()->Item(Long{intIndex}); });
  return result;
}

void clsGTMSenderDetails::CreateAuthentication(const String& strMethod, const String& strValue,
                                               const String& strSignature, const String& strRole) {
  const auto authentication = std::make_shared<clsGTMAuthentication>();
  authentication->Create(strMethod, strRole, strValue, strSignature);
  AddAuthentication(authentication);
}

String clsGTMSenderDetails::X509Certificate() const { return certificate_; }
void clsGTMSenderDetails::X509Certificate(String value) { Change(certificate_, std::move(value)); }

String clsGTMSenderDetails::EmailAddress() const { return email_address_; }
void clsGTMSenderDetails::EmailAddress(String value) { Change(email_address_, std::move(value)); }

XmlNode clsGTMSenderDetails::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsGTMSenderDetails", "Function ToXML", [&] {
    // A sender who proves nothing is not told to the gateway at all.
    if (Authentication()->Count() == 0) {
      RemoveChildNodes(xmlParent, RootElementName());
      return;
    }
    Element out = Element::Emptied("SenderDetails", xmlParent);
    result = out.Node();
    Element id = Element::Single("IDAuthentication", result);
    id.OptionalText("SenderID", sender_id_);
    for (const Ref<clsGTMAuthentication>& each : *authentication_) Required(each).ToXML(id.Node());
    out.OptionalText("X509Certificate", certificate_);
    out.OptionalText("EmailAddress", email_address_);
  });
  return result;
}

}  // namespace zelnor
