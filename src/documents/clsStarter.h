#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/documents/clsOccPension.h"
#include "zelnor/documents/clsSeconded.h"
#include "zelnor/documents/clsStatePension.h"

namespace zelnor {

/// A new employee's starter record: start date, declaration, loans, secondment and pensions, element
/// `Starter` of `Employment`.
///
/// @code
/// auto starter = std::make_shared<clsStarter>();
/// starter->Create(Date::FromParts(2025, 5, 12), STARTER_DECLARATION::MyOnlyCurrentJob);
/// employment->Starter(starter);
/// @endcode
class ZELNOR_API clsStarter : public Record {
 public:
  /// Stores its arguments, the children by reference, and clears Validated.
  void Create(Date datStartDate, STARTER_DECLARATION enmStartDec = STARTER_DECLARATION::Undefined,
              bool blnStudentLoan = false, Ref<clsSeconded> objSeconded = nullptr,
              Ref<clsOccPension> objOccPension = nullptr, Ref<clsStatePension> objStatePension = nullptr,
              bool blnPostgradLoan = false);

  /// Fills the record from text whose first node is `Starter`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the date, both flags and the children, takes declaration C until the node says otherwise, and
  /// fills the record from the node's children. False for a node of another name, and after a failure (a text
  /// that is no date), which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;

  /// Whether the rules have checked this record and every child that it holds since the last change.
  bool Validated() const override;

  /// "Starter".
  String RootElementName() const;

  /// The day on which the employment began (`StartDate`); written when later than 1 January 1901.
  ///@{
  Date StartDate() const;
  void StartDate(Date value);
  ///@}

  /// The starter declaration (`StartDec`): statement "A", "B" or "C"; not written when Undefined.
  ///@{
  STARTER_DECLARATION StarterDeclaration() const;
  void StarterDeclaration(STARTER_DECLARATION value);
  ///@}

  /// Whether student loan deductions are to continue (`StudentLoan`); written as "yes" when True.
  ///@{
  bool StudentLoan() const;
  void StudentLoan(bool value);
  ///@}

  /// Whether postgraduate loan deductions are to continue (`PostgradLoan`); written as "yes" when True.
  ///@{
  bool PostgradLoan() const;
  void PostgradLoan(bool value);
  ///@}

  /// The secondment. Reading makes an empty record when none is held, which is then written; ask IsSeconded
  /// first. Writing clears the child's Validated; so do the two pensions.
  ///@{
  Ref<clsSeconded> Seconded();
  void Seconded(Ref<clsSeconded> value);
  ///@}

  /// The occupational pension, likewise; ask HasOccPension first.
  ///@{
  Ref<clsOccPension> OccPension();
  void OccPension(Ref<clsOccPension> value);
  ///@}

  /// The state pension, likewise; ask HasStatePension first.
  ///@{
  Ref<clsStatePension> StatePension();
  void StatePension(Ref<clsStatePension> value);
  ///@}

  /// Whether a secondment is held.
  bool IsSeconded() const;
  /// Whether an occupational pension is held.
  bool HasOccPension() const;
  /// Whether a state pension is held.
  bool HasStatePension() const;

  /// Writes the record under its parent, into a `Starter` that is emptied first, and returns that element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  Date start_date_;
  STARTER_DECLARATION starter_declaration_ = STARTER_DECLARATION::Undefined;
  bool student_loan_ = false;
  bool postgrad_loan_ = false;
  Ref<clsSeconded> seconded_;
  Ref<clsOccPension> occ_pension_;
  Ref<clsStatePension> state_pension_;
};

}  // namespace zelnor
