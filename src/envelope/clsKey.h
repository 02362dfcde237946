#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// One key that tells whose document it is, element `Key`: the value as its text, the kind of key as its
/// attribute `Type`.
///
/// @code
/// auto key = std::make_shared<clsKey>();
/// key->Create("527", "TaxOfficeNumber");
/// @endcode
class ZELNOR_API clsKey : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(const String& strKeyValue, const String& strType);

  /// Fills the record from text whose first node is `Key`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears value and type and fills them from a node. False for a node of another name, and after a failure,
  /// which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "Key".
  String RootElementName() const;

  /// The value: the element's text.
  ///@{
  String KeyValue() const;
  void KeyValue(String value);
  ///@}

  /// The kind of key, such as "TaxOfficeNumber" (attribute `Type`).
  ///@{
  String KeyType() const;
  void KeyType(String value);
  ///@}

  /// Appends a new `Key` to the parent and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String key_value_;
  String key_type_;
};

}  // namespace zelnor
