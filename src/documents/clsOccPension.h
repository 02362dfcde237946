#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// The occupational pension that a starter is paid, element `OccPension` of `Starter`.
///
/// @code
/// auto pension = std::make_shared<clsOccPension>();
/// pension->Create(Currency(4200), false);
/// starter->OccPension(pension);
/// @endcode
class ZELNOR_API clsOccPension : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(Currency curAmount, bool blnBereaved);

  /// Fills the record from text whose first node is `OccPension`. False for text that isn't well formed or
  /// has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears both fields and fills them from the node's children. False for a node of another name, and after
  /// a failure (an amount that is no number), which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "OccPension".
  String RootElementName() const;

  /// The annual amount in pounds (`Amount`); always written, with two decimals.
  ///@{
  Currency Amount() const;
  void Amount(Currency value);
  ///@}

  /// Whether the pension is paid because the employee is a recently bereaved spouse or civil partner
  /// (`Bereaved`); written as "yes" when True, and read as True wherever the element is there.
  ///@{
  bool Bereaved() const;
  void Bereaved(bool value);
  ///@}

  /// Writes the record under its parent, in place, and returns its element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

  /// Clears both fields and reads them from the children of an element of any name.
  ZELNOR_INTERNAL void ReadChildren(const XmlNode& xmlNode);

  /// Writes both fields into an element of any name.
  ZELNOR_INTERNAL void WriteChildren(Element& out) const;

 private:
  Currency amount_;
  bool bereaved_ = false;
};

}  // namespace zelnor
