#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"

namespace zelnor {

/// What an employer says of an employee seconded to work in the United Kingdom, element `Seconded` of
/// `Starter`.
///
/// @code
/// auto seconded = std::make_shared<clsSeconded>();
/// seconded->Create(SECONDMENT_LENGTH::StayOver6Months, true, false);
/// starter->Seconded(seconded);
/// @endcode
class ZELNOR_API clsSeconded : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(SECONDMENT_LENGTH enmSecondLength, bool blnEEACommCit, bool blnEPM6);

  /// Fills the record from text whose first node is `Seconded`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the two flags and fills the record from the node's children; the length stays until an element
  /// says otherwise, and the last such element wins. False for a node of another name, and after a failure,
  /// which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "Seconded".
  String RootElementName() const;

  /// How long the employee stays: `Stay183DaysOrMore` for StayOver6Months, `StayLessThan183Days` for
  /// StayLessThan6Months, `InOutUK` for every other value, Undefined among them.
  ///@{
  SECONDMENT_LENGTH SecondmentLength() const;
  void SecondmentLength(SECONDMENT_LENGTH value);
  ///@}

  /// Whether the employee is a citizen of the European Economic Area or the Commonwealth (`EEACitizen`);
  /// written as "yes" when True.
  ///@{
  bool IsCitizenOfEEAOrCommonwealth() const;
  void IsCitizenOfEEAOrCommonwealth(bool value);
  ///@}

  /// Whether an EPM6 (modified PAYE) scheme applies (`EPM6`); written as "yes" when True.
  ///@{
  bool IsEPM6() const;
  void IsEPM6(bool value);
  ///@}

  /// Writes the record under its parent, in place, and returns its element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  SECONDMENT_LENGTH secondment_length_ = SECONDMENT_LENGTH::Undefined;
  bool is_citizen_ = false;
  bool is_epm6_ = false;
};

}  // namespace zelnor
