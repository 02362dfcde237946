#include "zelnor/envelope/clsGTMTargetDetails.h"

#include "zelnor/common/modPublicEnums.h"

namespace zelnor {

clsGTMTargetDetails::clsGTMTargetDetails() : organisations_(std::make_shared<Collection<String>>()) {}

void clsGTMTargetDetails::Create(OrganisationCollection colOrganisations) {
  organisations_ = std::move(colOrganisations);
  validated_ = false;
}

bool clsGTMTargetDetails::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsGTMTargetDetails", strXML);
}

bool clsGTMTargetDetails::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsGTMTargetDetails", "Function CreateFromXML", [&] {
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (child.BaseName() == "Organisation") AddOrganisation(child.Text());
      }
      result = true;
    }
  });
  return result;
}

String clsGTMTargetDetails::RootElementName() const { return "TargetDetails"; }

clsGTMTargetDetails::OrganisationCollection clsGTMTargetDetails::Organisations() {
  return MadeWhenAbsent(organisations_);
}
void clsGTMTargetDetails::Organisations(OrganisationCollection value) {
  Change(organisations_, std::move(value));
}

void clsGTMTargetDetails::AddOrganisation(const String& strOrganisation) {
  Organisations()->Add(strOrganisation);
  validated_ = false;
}

XmlNode clsGTMTargetDetails::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsGTMTargetDetails", "Function ToXML", [&] {
    if (Organisations()->Count() == 0) {
      RemoveChildNodes(xmlParent, RootElementName());
      return;
    }
    Element out = Element::Emptied("TargetDetails", xmlParent);
    result = out.Node();
    for (const String& organisation : *organisations_) out.Append("Organisation", organisation);
  });
  return result;
}

}  // namespace zelnor
