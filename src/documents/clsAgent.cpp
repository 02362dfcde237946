#include "zelnor/documents/clsAgent.h"

namespace zelnor {

void clsAgent::Create(const String& strAgentID, const String& strCompany, Ref<clsAddress> objAddress,
                      Ref<clsContact> objContact) {
  agent_id_ = strAgentID;
  company_ = strCompany;
  address_ = std::move(objAddress);
  contact_ = std::move(objContact);
  validated_ = false;
}

bool clsAgent::ParseFromXML(const String& strXML) {
  bool result = false;
  Handled("clsAgent", "Function ParseFromXML", [&] {
    const XmlNode node = DocumentElementNamed(strXML, RootElementName());
    result = node && CreateFromXML(node);
  });
  return result;
}

bool clsAgent::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsAgent", "Function CreateFromXML", [&] {
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "AgentID") {
          agent_id_ = child.Text();
        } else if (name == "Company") {
          company_ = child.Text();
        } else if (name == "Address") {
          address_ = NewFromXML<clsAddress>(child);
        } else if (name == "Contact") {
          contact_ = NewFromXML<clsContact>(child);
        }
      }
      result = true;
    }
  });
  return result;
}

bool clsAgent::Validated() const {
  return validated_ && AbsentOrValidated(address_) && AbsentOrValidated(contact_);
}

String clsAgent::RootElementName() const { return "Agent"; }

String clsAgent::AgentID() const { return agent_id_; }
void clsAgent::AgentID(String value) { Change(agent_id_, std::move(value)); }

String clsAgent::Company() const { return company_; }
void clsAgent::Company(String value) { Change(company_, std::move(value)); }

Ref<clsAddress> clsAgent::Address() { return MadeWhenAbsent(address_); }
void clsAgent::Address(Ref<clsAddress> value) {
  address_ = std::move(value);
  ClearValidated(address_);
}

Ref<clsContact> clsAgent::Contact() { return MadeWhenAbsent(contact_); }
void clsAgent::Contact(Ref<clsContact> value) {
  contact_ = std::move(value);
  ClearValidated(contact_);
}

XmlNode clsAgent::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsAgent", "Function ToXML", [&] {
    Element out = xmlParent.NodeName() == RootElementName() ? Element::Reused(xmlParent)
                                                            : Element::Emptied("Agent", xmlParent);
    result = out.Node();
    out.Text("AgentID", agent_id_);
    out.Text("Company", company_);
    if (address_) address_->ToXML(result);
    if (contact_) contact_->ToXML(result);
  });
  return result;
}

}  // namespace zelnor
