#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"

namespace zelnor {

/// The apprenticeship levy due in an EPS. Its fields are set together, by Create or by reading.
///
/// @code
/// auto levy = std::make_shared<clsApprenticeshipLevy>();
/// levy->Create(3, Currency::FromPence(50000), Currency(15000));
/// eps->ApprenticeshipLevy(levy);
/// @endcode
class ZELNOR_API clsApprenticeshipLevy : public Record {
 public:
  /// Stores its arguments and clears `Validated`.
  void Create(Integer intTaxMonth, Currency curLevyDueYTD, Currency curAnnualAllowance);

  /// Fills the record from text whose first node is `ApprenticeshipLevy`. False, and nothing changed, for
  /// text that doesn't parse or begins with another node, an XML declaration among them.
  bool ParseFromXML(const String& strXML);

  /// Fills the record from its element; all fields are cleared first. False when the node has another name,
  /// and for a field that is no number; what was read before it stays then.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "ApprenticeshipLevy".
  String RootElementName() const;

  /// The tax month, 1 to 12.
  Integer TaxMonth() const;

  /// The levy due in pounds, for the tax year to date.
  Currency LevyDueYTD() const;

  /// The annual allowance in pounds (element `AnnualAllce`).
  Currency AnnualAllowance() const;

  /// Writes the record under its section; it is the same in every kind of document.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent, eRTISUBMISSIONTYPE submissionType);

 private:
  Currency levy_due_ytd_;
  Currency annual_allowance_;
  Integer tax_month_ = 0;
};

}  // namespace zelnor
