#pragma once

#include "zelnor/documents/paid_section.h"

namespace zelnor {

/// The body of an Earlier Year Update: a correction for a past tax year. It has the shape of the FPS without
/// a final submission; its employees write themselves in their EYU form.
///
/// @code
/// Ref<clsSectionEYU> eyu = rti.Submission()->EYU();
/// eyu->TaxYear("19-20");
/// Ref<clsEmployee> employee = eyu->AddEmployee();
/// @endcode
class ZELNOR_API clsSectionEYU : public PaidSection {
 public:
  /// Stores its arguments (the flag as `UseCompression`) and clears `Validated`.
  void Create(Ref<clsEmployerReferences> objEmployerReferences, const String& strTaxYear,
              CollectionRef<clsEmployee> colEmployees, bool blnCompressed = false);

  /// Fills the section from text whose first node is `EarlierYearUpdate`. False, and nothing changed, for
  /// text that doesn't parse or begins with another node, an XML declaration among them.
  bool ParseFromXML(const String& strXML);

  /// Fills the section from its element. References and employees are cleared first; tax year and flags stay.
  /// Unknown children are ignored. False when the node has another name.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "EarlierYearUpdate".
  String RootElementName() const;

  /// "HMRC-PAYE-RTI-EYU".
  String Class() const;

  /// The schema's path below the program's folder.
  String DefaultSchema() const;

  /// Appends an employee, a new one when none is given, clears its `Validated` and returns it.
  Ref<clsEmployee> AddEmployee(Ref<clsEmployee> objEmployee = nullptr);

  /// Writes the section under its envelope.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String ClassName() const override;
};

}  // namespace zelnor
