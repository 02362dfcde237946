#pragma once

#include "zelnor/envelope/clsGTMAuthentication.h"

namespace zelnor {

/// Who sends, element `SenderDetails` of the envelope's header.
///
/// @code
/// message->Header_SenderDetails()->Create(user, "principal", password, "", "clear");
/// @endcode
class ZELNOR_API clsGTMSenderDetails : public Record {
 public:
  clsGTMSenderDetails();

  /// Stores sender and e-mail address, clears the certificate and Validated, and adds one authentication
  /// record made of role, password and method.
  void Create(const String& strSenderID, const String& strAuthRole, const String& strAuthPassword,
              const String& strEmailAddress = {}, const String& strAuthMethod = {});

  /// Fills the record from text whose first node is `SenderDetails`. False for text that isn't well formed or
  /// has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the texts and fills the record from a node; its authentication records are added to those at
  /// hand. False for a node of another name, and after a failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;

  /// Whether the rules have checked this record and each authentication record since the last change.
  bool Validated() const override;

  /// "SenderDetails".
  String RootElementName() const;

  /// The sender's id at the gateway (`IDAuthentication/SenderID`); left out when empty.
  ///@{
  String SenderID() const;
  void SenderID(String value);
  ///@}

  /// The authentication records (`IDAuthentication/Authentication`); an absent collection is made by the
  /// read. Without any, nothing of the sender is written.
  ///@{
  CollectionRef<clsGTMAuthentication> Authentication();
  void Authentication(CollectionRef<clsGTMAuthentication> value);
  ///@}

  /// Adds an authentication record last.
  void AddAuthentication(Ref<clsGTMAuthentication> objAuthentication);

  /// The authentication record at a position from 1. No object, and error 9 in the host's message box, for a
  /// position without one.
  Ref<clsGTMAuthentication> GetAuthentication(Integer intIndex);

  /// Makes an authentication record and adds it last.
  void CreateAuthentication(const String& strMethod, const String& strValue = {},
                            const String& strSignature = {}, const String& strRole = {});

  /// A certificate in Base64 (`X509Certificate`); left out when empty.
  ///@{
  String X509Certificate() const;
  void X509Certificate(String value);
  ///@}

  /// Where the gateway may write to (`EmailAddress`); left out when empty.
  ///@{
  String EmailAddress() const;
  void EmailAddress(String value);
  ///@}

  /// Writes the record under its parent, into a `SenderDetails` that is emptied first, and returns that
  /// element. Without an authentication record the whole `SenderDetails` is removed, however much else is
  /// filled in, and there is no object to return.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  void ReadIDAuthentication(const XmlNode& node);

  String sender_id_;
  String certificate_;
  String email_address_;
  CollectionRef<clsGTMAuthentication> authentication_;
};

}  // namespace zelnor
