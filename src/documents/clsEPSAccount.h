#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// The bank account to which HMRC repays, in an EPS. Unlike other records it hands its failures on: they
/// reach the caller as a RuntimeError with the source "[ZELNOR.dll::clsEPSAccount]: " and the member's name.
///
/// @code
/// eps->Account()->Create("A N Employer", "12345678", "123456");
/// @endcode
class ZELNOR_API clsEPSAccount : public Record {
 public:
  /// Stores its arguments and clears `Validated`. An empty building society reference means none.
  void Create(const String& strAccountName, const String& strAccountNo, const String& strSortCode,
              const String& strBuildSocRef = {});

  /// Fills the record from text whose document element is `Account`; a declaration may stand before it.
  /// False, and nothing changed, for text that doesn't parse or has another root.
  bool ParseFromXML(const String& strXML);

  /// Fills the record from its element; all fields are cleared first. False when the node has another name.
  /// Raises error 91 for no node.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// The account holder's name.
  ///@{
  String AccountName() const;
  void AccountName(String value);
  ///@}

  /// The account's number, eight digits.
  ///@{
  String AccountNo() const;
  void AccountNo(String value);
  ///@}

  /// The bank's sort code, six digits.
  ///@{
  String SortCode() const;
  void SortCode(String value);
  ///@}

  /// The building society's reference (roll number); empty for none, and then it isn't written.
  ///@{
  String RollNo() const;
  void RollNo(String value);
  ///@}

  /// Writes the record as a new element behind its parent's other children. Raises error 91 for no parent.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String account_name_;
  String account_no_;
  String sort_code_;
  String roll_no_;
};

}  // namespace zelnor
