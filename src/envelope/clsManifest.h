#pragma once

#include "zelnor/envelope/clsManifestReference.h"

namespace zelnor {

/// What a document contains, element `Manifest`: one reference for each kind of content.
///
/// @code
/// auto manifest = std::make_shared<clsManifest>();
/// manifest->Create("http://example/payroll", "1.0", "IRenvelope");
/// @endcode
class ZELNOR_API clsManifest : public Record {
 public:
  clsManifest();

  /// Begins a new collection with one reference and clears Validated.
  void Create(const String& strNamespace, const String& strSchemaVersion, const String& strTopElementName);

  /// Fills the record from text whose first node is `Manifest`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Adds the references of a node to those at hand. False for a node of another name, and after a failure,
  /// which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;

  /// Whether this record and each reference have been checked since the last change.
  bool Validated() const override;

  /// "Manifest".
  String RootElementName() const;

  /// Adds a reference last.
  void AddReference(const String& strNamespace, const String& strSchemaVersion,
                    const String& strTopElementName);

  /// The references (`Contains/Reference`).
  CollectionRef<clsManifestReference> References() const;

  /// Writes the record under its parent, into a `Manifest` that is emptied first, and returns that element.
  /// Without references a `Manifest` under the parent is removed, and there is no object to return.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  CollectionRef<clsManifestReference> references_;
};

}  // namespace zelnor
