#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// The name of a contact person: title, up to two forenames and surname, element `Name`. All four are kept
/// without blanks at their ends.
///
/// @code
/// auto name = std::make_shared<clsNameType>();
/// name->Create("Ms", "Petra", "Oakshott");
/// name->Forename1("Jane");
/// @endcode
class ZELNOR_API clsNameType : public Record {
 public:
  /// Stores title, forename and surname, each trimmed, and clears Validated. The second forename stays as it
  /// is.
  void Create(const String& strTitle, const String& strForename, const String& strSurname);

  /// Fills the record from text whose first node is `Name`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears all four texts, then fills them from the node's children; of several `Fore` the first is the
  /// forename, the second the second forename, and further ones are dropped. False for a node of another
  /// name, and after a failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "Name".
  String RootElementName() const;

  /// The title (`Ttl`); left out of the document when empty. A write stores the trimmed value and clears
  /// Validated when the value as given differs from the stored one; so do the other three.
  ///@{
  String Title() const;
  void Title(const String& value);
  ///@}

  /// The first forename (first `Fore`); written even when empty.
  ///@{
  String Forename() const;
  void Forename(const String& value);
  ///@}

  /// The second forename (second `Fore`); left out when empty.
  ///@{
  String Forename1() const;
  void Forename1(const String& value);
  ///@}

  /// The surname (`Sur`); written even when empty.
  ///@{
  String Surname() const;
  void Surname(const String& value);
  ///@}

  /// Writes the record under its parent, into a `Name` that is emptied first, and returns that element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  void ChangeTrimmed(String& field, const String& value);

  String title_;
  String forename_;
  String forename1_;
  String surname_;
};

}  // namespace zelnor
