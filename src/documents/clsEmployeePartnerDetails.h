#pragma once

#include "zelnor/documents/clsEmployeeNameType.h"

namespace zelnor {

/// The partner of an employee who takes shared parental pay, element `PartnerDetails` of `EmployeeDetails`.
/// A new record holds an empty name.
///
/// @code
/// auto partner = std::make_shared<clsEmployeePartnerDetails>();
/// partner->NINO("AB123456C");
/// partner->CreateContact("Mr", "Ivo", "Tolland");
/// details->PartnerDetails(partner);
/// @endcode
class ZELNOR_API clsEmployeePartnerDetails : public Record {
 public:
  clsEmployeePartnerDetails();

  /// Stores its arguments, the name by reference, and clears Validated.
  void Create(const String& strNINO, Ref<clsEmployeeNameType> objContact);

  /// Fills the record from text whose first node is `PartnerDetails`. False for text that isn't well formed
  /// or has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record, then fills it from the node's children. False for a node of another name, and after a
  /// failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;

  /// Whether the rules have checked this record and the name since the last change.
  bool Validated() const override;

  /// "PartnerDetails".
  String RootElementName() const;

  /// The partner's National Insurance number (`NINO`); not written when empty.
  ///@{
  String NINO() const;
  void NINO(String value);
  ///@}

  /// The partner's name (`Name`), always written; an absent one is made by the read. A write clears the
  /// name's Validated.
  ///@{
  Ref<clsEmployeeNameType> Contact();
  void Contact(Ref<clsEmployeeNameType> value);
  ///@}

  /// Fills the name, see clsEmployeeNameType::Create.
  void CreateContact(const String& strTitle, const String& strForename, const String& strSurname);

  /// Writes the record under its parent, in place, and returns its element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String nino_;
  Ref<clsEmployeeNameType> contact_;
};

}  // namespace zelnor
