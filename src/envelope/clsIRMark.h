#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"

namespace zelnor {

/// The IRmark of a document, element `IRmark`: the digest by which HMRC sees that the body arrived unchanged.
/// clsSHA1 computes it.
///
/// @code
/// auto mark = std::make_shared<clsIRMark>();
/// mark->Create("ffVKxsZfcMlrhIiAL2bhQlSEEXs=", IR_MARK_TYPE::generic);
/// @endcode
class ZELNOR_API clsIRMark : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(const String& strValue, IR_MARK_TYPE eniType);

  /// Fills the record from text whose first node is `IRmark`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the value and fills the record from a node; without a known `Type` the type stays. False for a
  /// node of another name, and after a failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "IRmark".
  String RootElementName() const;

  /// The mark in Base64: the element's text.
  ///@{
  String value() const;
  void value(String newValue);
  ///@}

  /// The rule set of the mark. Read from the attribute `Type`, "SAonly" or "generic" in any case; the
  /// attribute is always written as "generic", the one that HMRC takes for RTI.
  ///@{
  IR_MARK_TYPE IRMarkType() const;
  void IRMarkType(IR_MARK_TYPE value);
  ///@}

  /// Writes the record into `IRmark` under the parent and returns that element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String value_;
  IR_MARK_TYPE type_ = IR_MARK_TYPE::SAOnly;
};

}  // namespace zelnor
