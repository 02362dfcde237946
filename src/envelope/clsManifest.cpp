#include "zelnor/envelope/clsManifest.h"

#include "zelnor/common/modPublicEnums.h"

namespace zelnor {

clsManifest::clsManifest() : references_(MakeCollection<clsManifestReference>()) {}

void clsManifest::Create(const String& strNamespace, const String& strSchemaVersion,
                         const String& strTopElementName) {
  references_ = MakeCollection<clsManifestReference>();
  AddReference(strNamespace, strSchemaVersion, strTopElementName);
  validated_ = false;
}

bool clsManifest::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, "clsManifest", strXML); }

bool clsManifest::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsManifest", "Function CreateFromXML", [&] {
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (child.BaseName() != "Contains") continue;
        for (const XmlNode& each : child.ChildNodes()) {
          if (each.BaseName() == "Reference") references_->Add(NewFromXML<clsManifestReference>(each));
        }
      }
      result = true;
    }
  });
  return result;
}

bool clsManifest::Validated() const { return validated_ && AbsentOrValidated(references_); }

String clsManifest::RootElementName() const { return "Manifest"; }

void clsManifest::AddReference(const String& strNamespace, const String& strSchemaVersion,
                               const String& strTopElementName) {
  const auto reference = std::make_shared<clsManifestReference>();
  reference->Create(strNamespace, strSchemaVersion, strTopElementName);
  references_->Add(reference);
}

CollectionRef<clsManifestReference> clsManifest::References() const { return references_; }

XmlNode clsManifest::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsManifest", "Function ToXML", [&] {
    if (references_->Count() == 0) {
      RemoveChildNodes(xmlParent, RootElementName());
      return;
    }
    Element out = Element::Emptied("Manifest", xmlParent);
    result = out.Node();
    const XmlNode contains = out.Child("Contains");
    for (const Ref<clsManifestReference>& reference : *references_) Required(reference).ToXML(contains);
  });
  return result;
}

}  // namespace zelnor
