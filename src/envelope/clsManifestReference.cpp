#include "zelnor/envelope/clsManifestReference.h"

namespace zelnor {

void clsManifestReference::Create(const String& strNamespace, const String& strSchemaVersion,
                                  const String& strTopElementName) {
  namespace_ = strNamespace;
  schema_version_ = strSchemaVersion;
  top_element_name_ = strTopElementName;
  validated_ = false;
}

bool clsManifestReference::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsManifestReference", strXML);
}

bool clsManifestReference::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsManifestReference", "Function CreateFromXML", [&] {
    namespace_.clear();
    schema_version_.clear();
    top_element_name_.clear();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "Namespace") {
          namespace_ = child.Text();
        } else if (name == "SchemaVersion") {
          schema_version_ = child.Text();
        } else if (name == "TopElementName") {
          top_element_name_ = child.Text();
        }
      }
      result = true;
    }
  });
  return result;
}

String clsManifestReference::RootElementName() const { return "Reference"; }

String clsManifestReference::Namespace() const { return namespace_; }
void clsManifestReference::Namespace(String value) { Change(namespace_, std::move(value)); }

String clsManifestReference::SchemaVersion() const { return schema_version_; }
void clsManifestReference::SchemaVersion(String value) { Change(schema_version_, std::move(value)); }

String clsManifestReference::TopElementName() const { return top_element_name_; }
void clsManifestReference::TopElementName(String value) { Change(top_element_name_, std::move(value)); }

XmlNode clsManifestReference::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsManifestReference", "Function ToXML", [&] {
    Element out = Element::Appended("Reference", xmlParent);
    result = out.Node();
    out.Text("Namespace", namespace_);
    out.Text("SchemaVersion", schema_version_);
    out.Text("TopElementName", top_element_name_);
  });
  return result;
}

}  // namespace zelnor
