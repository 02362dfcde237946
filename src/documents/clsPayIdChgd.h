#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// Says that an employee's payroll ID has changed, and what it was, element `PayIdChgd` of `Employment`.
///
/// @code
/// auto changed = std::make_shared<clsPayIdChgd>();
/// changed->Create(true, "K-0817");
/// employment->PayIDChange(changed);
/// @endcode
class ZELNOR_API clsPayIdChgd : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(bool blnChanged, const String& strOldID = {});

  /// Fills the record from text whose first node is `PayIdChgd`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears both fields and fills them from the node's children. False for a node of another name, and after
  /// a failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "PayIdChgd".
  String RootElementName() const;

  /// Whether the payroll ID has changed (`PayrollIdChangedIndicator`). Without it nothing of the record is
  /// written. A write leaves Validated as it is.
  ///@{
  bool Changed() const;
  void Changed(bool value);
  ///@}

  /// The former payroll ID (`OldPayrollId`); not written when empty.
  ///@{
  String OldId() const;
  void OldId(String value);
  ///@}

  /// Writes the record under its parent, in place, and returns its element. When nothing has changed it
  /// removes the element instead and returns no object.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String old_id_;
  bool changed_ = false;
};

}  // namespace zelnor
