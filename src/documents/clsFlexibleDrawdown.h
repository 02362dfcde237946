#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// A payment out of a pension pot, element `FlexibleDrawdown`: one kind, and how much of it is taxed. Of
/// several kinds set, the first in the order of the properties below is written; with none set the element
/// goes out without kind and amounts.
///
/// @code
/// auto drawdown = std::make_shared<clsFlexibleDrawdown>();
/// drawdown->Create(true, false, Currency(7500), Currency(2500), false, false, false);
/// payment->FlexibleDrawdown(drawdown);
/// @endcode
class ZELNOR_API clsFlexibleDrawdown : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(bool blnFlexiblyAccesingPensionRights, bool blnPensionDeathBenefit, Currency curTaxableBenefit,
              Currency curNonTaxableBenefit, bool blnSeriousIllHealthLumpSum,
              bool blnPensionCommencementExcessLumpSum, bool blnStandAloneLumpSum);

  /// Fills the record from text whose first node is `FlexibleDrawdown`. False for text that isn't well formed
  /// or has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record, then fills it from a node's children; the presence of a kind's element sets it,
  /// whatever its text. False for a node of another name, and after a failure, which is shown in the host's
  /// message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "FlexibleDrawdown".
  String RootElementName() const;

  /// Whether the pensioner draws on the pot flexibly (`FlexiblyAccessingPensionRights`).
  bool FlexibleAccessingPensionRights() const;

  /// Whether it is a pension death benefit (`PensionDeathBenefit`).
  bool PensionDeathBenefit() const;

  /// Whether it is a lump sum in serious ill health (`SeriousIllHealthLumpSum`).
  ///@{
  bool SeriousIllHealthLumpSum() const;
  void SeriousIllHealthLumpSum(bool value);
  ///@}

  /// Whether it is a pension commencement excess lump sum (`PensionCommencementExcessLumpSum`).
  ///@{
  bool PensionCommencementExcessLumpSum() const;
  void PensionCommencementExcessLumpSum(bool value);
  ///@}

  /// Whether it is a stand-alone lump sum (`StandAloneLumpSum`).
  ///@{
  bool StandAloneLumpSum() const;
  void StandAloneLumpSum(bool value);
  ///@}

  /// The taxed part in pounds (`TaxablePayment`).
  ///@{
  Currency TaxablePayment() const;
  void TaxablePayment(Currency value);
  ///@}

  /// The untaxed part in pounds (`NontaxablePayment`).
  ///@{
  Currency NonTaxablePayment() const;
  void NonTaxablePayment(Currency value);
  ///@}

  /// Writes the parent's one `FlexibleDrawdown` and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  Currency taxable_payment_;
  Currency non_taxable_payment_;
  bool flexible_accessing_pension_rights_ = false;
  bool pension_death_benefit_ = false;
  bool serious_ill_health_lump_sum_ = false;
  bool pension_commencement_excess_lump_sum_ = false;
  bool stand_alone_lump_sum_ = false;
};

}  // namespace zelnor
