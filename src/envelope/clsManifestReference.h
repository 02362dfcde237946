#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// One entry of a manifest, element `Reference`: which kind of document is contained.
///
/// @code
/// auto reference = std::make_shared<clsManifestReference>();
/// reference->Namespace("http://example/payroll");
/// reference->SchemaVersion("1.0");
/// reference->TopElementName("IRenvelope");
/// @endcode
class ZELNOR_API clsManifestReference : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(const String& strNamespace, const String& strSchemaVersion, const String& strTopElementName);

  /// Fills the record from text whose first node is `Reference`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record and fills it from the node's children. False for a node of another name, and after a
  /// failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "Reference".
  String RootElementName() const;

  /// The namespace of the contained document (`Namespace`); written even when empty, as the other two are.
  ///@{
  String Namespace() const;
  void Namespace(String value);
  ///@}

  /// The version of its schema (`SchemaVersion`).
  ///@{
  String SchemaVersion() const;
  void SchemaVersion(String value);
  ///@}

  /// The name of its root (`TopElementName`).
  ///@{
  String TopElementName() const;
  void TopElementName(String value);
  ///@}

  /// Appends a new `Reference` to the parent and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String namespace_;
  String schema_version_;
  String top_element_name_;
};

}  // namespace zelnor
