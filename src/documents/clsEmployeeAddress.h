#pragma once

#include "zelnor/documents/clsAddress.h"

namespace zelnor {

/// The postal address of an employee, element `Address`: up to four lines with UK postcode or foreign
/// country.
///
/// @code
/// auto address = std::make_shared<clsEmployeeAddress>();
/// address->Create("4 Mill Row", "Kelby", "", "", "KB4 2LD", "");
/// @endcode
class ZELNOR_API clsEmployeeAddress : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(const String& strAddrLine1, const String& strAddrLine2, const String& strAddrLine3,
              const String& strAddrLine4, const String& strPostcode, const String& strCountry);

  /// Fills the record from text whose first node is `Address`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears all fields and fills them from the node's children. The first four `Line` are the four lines;
  /// further ones are dropped. False for a node of another name, and after a failure, which is shown in the
  /// host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// Whether the rules have checked this record since the last change.
  bool Validated() const override;

  /// For the validators, which mark a record as checked.
  ZELNOR_INTERNAL void Validated(bool value) override;

  /// "Address".
  String RootElementName() const;

  /// The lines of the address. Each that isn't empty is written as one `Line`, in order, without gaps.
  ///@{
  String Address1() const;
  void Address1(String value);
  String Address2() const;
  void Address2(String value);
  String Address3() const;
  void Address3(String value);
  String Address4() const;
  void Address4(String value);
  ///@}

  /// The postcode (`UKPostcode`). Written, even when empty, unless there is a country and no postcode.
  ///@{
  String Postcode() const;
  void Postcode(String value);
  ///@}

  /// The country of an address abroad (`ForeignCountry`); left out when empty.
  ///@{
  String Country() const;
  void Country(String value);
  ///@}

  /// The same as Country.
  String ForeignCountry() const;

  /// How many of the four lines aren't empty.
  Integer PopulatedAddressLineCount() const;

  /// Writes the record under its parent, into an `Address` that is emptied first, and returns that element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  clsAddress address_;
};

}  // namespace zelnor
