#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/documents/clsEmployeeAddress.h"
#include "zelnor/documents/clsEmployeeNameType.h"
#include "zelnor/documents/clsEmployeePartnerDetails.h"

namespace zelnor {

class clsEmployee;

/// Who an employee is: NINO, name, address, birth date, gender, passport and partner, element
/// `EmployeeDetails`. A new record holds an empty name and neither address nor partner.
///
/// @code
/// Ref<clsEmployeeDetails> details = employee->EmployeeDetails();
/// details->CreateContact("Ms", "Petra", "Oakshott");
/// details->DateOfBirth(Date::FromParts(1984, 2, 29));
/// details->Gender(EMPLOYEE_GENDER::f);
/// @endcode
class ZELNOR_API clsEmployeeDetails : public Record {
 public:
  clsEmployeeDetails();

  /// Stores its arguments, the children by reference and the passport number trimmed, and clears Validated
  /// here and on the children given.
  void Create(const String& strNINO, Ref<clsEmployeeNameType> objContact, Ref<clsEmployeeAddress> objAddress,
              Date datBirthDate, EMPLOYEE_GENDER eniGender, const String& strPassportNo,
              Ref<clsEmployeePartnerDetails> objPartner);

  /// Fills the record from text whose first node is `EmployeeDetails`. False for text that isn't well formed
  /// or has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record but for the gender, then fills it from the node's children. A birth date that is no
  /// date gives the zero date; a gender other than "F" gives M. False for a node of another name, and after a
  /// failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;

  /// Whether the rules have checked this record and every child that it holds since the last change.
  bool Validated() const override;

  /// "EmployeeDetails".
  String RootElementName() const;

  /// The National Insurance number (`NINO`); not written when empty. A write leaves Validated as it is; so do
  /// DateOfBirth, Gender and PassportNo.
  ///@{
  String NINO() const;
  void NINO(String value);
  ///@}

  /// The name (`Name`), always written; an absent one is made by the read. A write clears the name's
  /// Validated.
  ///@{
  Ref<clsEmployeeNameType> Contact();
  void Contact(Ref<clsEmployeeNameType> value);
  ///@}

  /// The address (`Address`), written when it has a line or a postcode. An absent one is made by the read; a
  /// write clears the address's Validated.
  ///@{
  Ref<clsEmployeeAddress> Address();
  void Address(Ref<clsEmployeeAddress> value);
  ///@}

  /// The birth date (`BirthDate`); not written up to 1 January 1900, and empty for a later day of that year.
  /// An EYU that reports a payment to a non-individual always has the element, empty without a date.
  ///@{
  Date DateOfBirth() const;
  void DateOfBirth(Date value);
  ///@}

  /// The gender (`Gender`): "F" for f, "M" for every other value.
  ///@{
  EMPLOYEE_GENDER Gender() const;
  void Gender(EMPLOYEE_GENDER value);
  ///@}

  /// The passport number (`PassportNumber`), stored trimmed; written in an FPS or EYU when not empty.
  ///@{
  String PassportNo() const;
  void PassportNo(const String& value);
  ///@}

  /// The partner (`PartnerDetails`), written in an FPS or EYU when held. An absent one is made by the read,
  /// and is then written; ask HasPartnerDetails first. A write clears the partner's Validated.
  ///@{
  Ref<clsEmployeePartnerDetails> PartnerDetails();
  void PartnerDetails(Ref<clsEmployeePartnerDetails> value);
  ///@}

  /// The employee whose details these are; no object when there is none or it is gone. The link keeps nothing
  /// alive.
  ///@{
  Ref<clsEmployee> Parent() const;
  void Parent(const Ref<clsEmployee>& value);
  ///@}

  /// Whether an address is held; makes none.
  bool HasAddress() const;

  /// Whether a partner is held; makes none.
  bool HasPartnerDetails() const;

  /// Fills the name, made when absent; see clsEmployeeNameType::Create.
  void CreateContact(const String& strTitle, const String& strForename, const String& strSurname);

  /// Fills the address, made when absent; see clsEmployeeAddress::Create.
  void CreateAddress(const String& strAddress1, const String& strAddress2, const String& strAddress3,
                     const String& strAddress4, const String& strUKPostcode = {},
                     const String& strForeignCountry = {});

  /// Fills the partner, made when absent; see clsEmployeePartnerDetails::Create.
  void CreatePartnerDetails(const String& strPartnerNINO, Ref<clsEmployeeNameType> objPartnerName);

  /// Writes the record under its parent, into an `EmployeeDetails` that is emptied first, and returns that
  /// element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  void WriteBirthDate(Element& out, eRTISUBMISSIONTYPE type) const;

  String nino_;
  String passport_no_;
  Date date_of_birth_;
  EMPLOYEE_GENDER gender_ = EMPLOYEE_GENDER::M;
  Ref<clsEmployeeNameType> contact_;
  Ref<clsEmployeeAddress> address_;
  Ref<clsEmployeePartnerDetails> partner_details_;
  std::weak_ptr<clsEmployee> parent_;
};

}  // namespace zelnor
