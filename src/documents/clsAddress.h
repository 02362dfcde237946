#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// A postal address of up to four lines with postcode or country, element `Address`.
///
/// @code
/// auto address = std::make_shared<clsAddress>();
/// address->Create("12 Ferry Lane", "Kelby", "", "", "KB4 7QT");
/// @endcode
class ZELNOR_API clsAddress : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(const String& strAddrLine1, const String& strAddrLine2 = {}, const String& strAddrLine3 = {},
              const String& strAddrLine4 = {}, const String& strPostcode = {}, const String& strCountry = {});

  /// Fills the record from text whose document element is `Address`; a declaration may stand before it. False
  /// for text that isn't well formed or has another root, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Fills the record from the node's children and clears nothing first: a field without element keeps its
  /// value. The first four `Line` are the four lines; further ones are dropped. False for a node of another
  /// name, and after a failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

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

  /// The postcode (`PostCode`). Written, even when empty, unless there is a country and no postcode.
  ///@{
  String Postcode() const;
  void Postcode(String value);
  ///@}

  /// The country (`Country`); left out when empty.
  ///@{
  String Country() const;
  void Country(String value);
  ///@}

  /// Writes the record under its parent, into an `Address` that is emptied first, and returns that element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String lines_[4];
  String postcode_;
  String country_;
};

}  // namespace zelnor
