#pragma once

#include "zelnor/documents/clsTelephoneType.h"

namespace zelnor {

/// One fax number of a contact, element `Fax`: a telephone record under another name, whose `Mobile` is
/// written and never read.
///
/// @code
/// auto fax = std::make_shared<clsFaxType>();
/// fax->Create("01632 960418");
/// @endcode
class ZELNOR_API clsFaxType : public Record {
 public:
  /// Stores its arguments, sets `IsMobile` to False and clears Validated.
  void Create(const String& strFaxNo, TELEPHONE_TYPE eniType = TELEPHONE_TYPE::Work,
              bool blnPreferred = false, const String& strExtension = {});

  /// Fills the record from text whose first node is `Fax`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Returns all fields to those of a new record, then fills them from a node; the attribute `Mobile` isn't
  /// read, so that `IsMobile` is False afterwards. False for a node of another name, and after a failure,
  /// which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// Whether the rules have checked the record since the last change.
  bool Validated() const override;

  /// For the validators, which mark a record as checked.
  ZELNOR_INTERNAL void Validated(bool value) override;

  /// "Fax".
  String RootElementName() const;

  /// Attribute `Mobile`, "yes" or "no".
  ///@{
  bool IsMobile() const;
  void IsMobile(bool value);
  ///@}

  /// Whether this is the number to be used first; attribute `Preferred`, "yes" or "no".
  ///@{
  bool Preferred() const;
  void Preferred(bool value);
  ///@}

  /// Home or work; attribute `Type`, "home" or "work".
  ///@{
  TELEPHONE_TYPE TelType() const;
  void TelType(TELEPHONE_TYPE value);
  ///@}

  /// The number (`Number`); written even when empty.
  ///@{
  String Number() const;
  void Number(String value);
  ///@}

  /// The extension (`Extension`); left out when empty.
  ///@{
  String Extension() const;
  void Extension(String value);
  ///@}

  /// Appends a new `Fax` to the parent and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  clsTelephoneType line_;
};

}  // namespace zelnor
