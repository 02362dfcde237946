#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// What the gateway's own validation came to, element `GatewayValidation`.
///
/// @code
/// auto validation = std::make_shared<clsGTMGatewayValidation>();
/// validation->Create("yes", "pass");
/// @endcode
class ZELNOR_API clsGTMGatewayValidation : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(const String& strProcessed, const String& strResult);

  /// Fills the record from text whose first node is `GatewayValidation`. False for text that isn't well
  /// formed or has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record and fills it from the node's children. False for a node of another name, and after a
  /// failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "GatewayValidation".
  String RootElementName() const;

  /// Whether the message was looked at, "yes" or "no" (`Processed`); written even when empty.
  ///@{
  String Processed() const;
  void Processed(String value);
  ///@}

  /// What came of it, "pass" or "fail" (`Result`); written even when empty.
  ///@{
  String Result() const;
  void Result(String value);
  ///@}

  /// Writes the record under its parent, into a `GatewayValidation` that is emptied first, and returns that
  /// element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String processed_;
  String result_;
};

}  // namespace zelnor
