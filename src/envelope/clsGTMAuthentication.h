#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// How a sender proves who they are, element `Authentication`. The value goes out as it was given: for
/// "clear" it is the password, for "MD5" and "W3Csigned" the finished digest or signature, which the
/// application computes.
///
/// @code
/// auto authentication = std::make_shared<clsGTMAuthentication>();
/// authentication->Create("clear", "principal", password);
/// @endcode
class ZELNOR_API clsGTMAuthentication : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(const String& strMethod, const String& strRole, const String& strValue = {},
              const String& strSignature = {});

  /// Fills the record from text whose first node is `Authentication`. False for text that isn't well formed
  /// or has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record and fills it from the node's children. False for a node of another name, and after a
  /// failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "Authentication".
  String RootElementName() const;

  /// "clear", "MD5" or "W3Csigned" (`Method`); written even when empty.
  ///@{
  String Method() const;
  void Method(String value);
  ///@}

  /// The sender's role, such as "principal" (`Role`); written even when empty.
  ///@{
  String Role() const;
  void Role(String value);
  ///@}

  /// The signature (`Signature`); left out when empty.
  ///@{
  String Signature() const;
  void Signature(String value);
  ///@}

  /// The password, digest or signed value (`Value`); written even when empty.
  ///@{
  String value() const;
  void value(String newValue);
  ///@}

  /// Appends a new `Authentication` to the parent and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String method_;
  String role_;
  String signature_;
  String value_;
};

}  // namespace zelnor
