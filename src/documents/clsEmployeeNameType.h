#pragma once

#include "zelnor/documents/clsNameType.h"

namespace zelnor {

/// The name of an employee or partner, element `Name`: title, up to two forenames or else initials, and
/// surname.
///
/// @code
/// auto name = std::make_shared<clsEmployeeNameType>();
/// name->Create("Ms", "Anne-Marie", "Tolland");
/// name->Initials();  // "AM"
/// @endcode
class ZELNOR_API clsEmployeeNameType : public Record {
 public:
  /// Stores title, forename and surname, each trimmed, and clears Validated. Second forename and initials
  /// stay as they are.
  void Create(const String& strTitle, const String& strForename, const String& strSurname);

  /// Fills the record from text whose first node is `Name`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears all fields, then fills them from the node's children; of several `Fore` the first is the
  /// forename, the second the second forename. Initials are never read: a document that carries nothing else
  /// loses them. False for a node of another name, and after a failure, which is shown in the host's message
  /// box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// Whether the rules have checked this record since the last change.
  bool Validated() const override;

  /// For the validators, which mark a record as checked.
  ZELNOR_INTERNAL void Validated(bool value) override;

  /// "Name".
  String RootElementName() const;

  /// The title (`Ttl`); left out of the document when empty. Writes of these five store the trimmed value.
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

  /// The initials (`Initials`); written, even when empty, where there is no forename at all. A read that
  /// finds none takes them from the forenames and keeps them: first letters of all parts, hyphens dividing
  /// parts as blanks do. Once stored they don't follow a changed forename.
  ///@{
  String Initials();
  void Initials(const String& value);
  ///@}

  /// Writes the record under its parent, into a `Name` that is emptied first, and returns that element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  ZELNOR_INTERNAL static String GetInitials(const String& strNames);

  clsNameType name_;
  String initials_;
};

}  // namespace zelnor
