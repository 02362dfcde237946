#pragma once

#include "zelnor/documents/clsOccPension.h"

namespace zelnor {

/// The state pension that a starter is paid, element `StatePension` of `Starter`. It has the fields of an
/// occupational pension under a root of its own.
///
/// @code
/// auto pension = std::make_shared<clsStatePension>();
/// pension->Create(Currency(8900), false);
/// starter->StatePension(pension);
/// @endcode
class ZELNOR_API clsStatePension : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(Currency curAmount, bool blnBereaved);

  /// Fills the record from text whose first node is `StatePension`. False for text that isn't well formed or
  /// has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears both fields and fills them from the node's children. False for a node of another name, and after
  /// a failure (an amount that is no number), which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// Whether the rules have checked this record since the last change.
  bool Validated() const override;

  /// For the validators, which mark a record as checked.
  ZELNOR_INTERNAL void Validated(bool value) override;

  /// "StatePension".
  String RootElementName() const;

  /// The annual amount in pounds (`Amount`); always written, with two decimals.
  ///@{
  Currency Amount() const;
  void Amount(Currency value);
  ///@}

  /// Whether the pension is paid because of a recent bereavement (`Bereaved`); written as "yes" when True,
  /// and read as True wherever the element is there.
  ///@{
  bool Bereaved() const;
  void Bereaved(bool value);
  ///@}

  /// Writes the record under its parent, in place, and returns its element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  clsOccPension pension_;
};

}  // namespace zelnor
