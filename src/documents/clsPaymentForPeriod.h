#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// What an employer may recover, in an EPS: statutory payments, the National Insurance compensation on them
/// and the deductions suffered in the Construction Industry Scheme, all for the tax year to date.
///
/// @code
/// Ref<clsPaymentForPeriod> amounts = eps->PaymentForPeriod();
/// amounts->TaxMonth("3");
/// amounts->SMPRecovered(Currency::FromPence(125000));
/// @endcode
class ZELNOR_API clsPaymentForPeriod : public Record {
 public:
  /// Stores its arguments and clears `Validated`; the SPBP and SNCP amounts stay as they are.
  void Create(Currency curSMPRecovered, Currency curOSPPRecovered, Currency curSAPRecovered,
              Currency curASPPRecovered, Currency curNICCompensationSMP, Currency curNICCompensationOSPP,
              Currency curNICCompensationSAP, Currency curNICCompensationASPP, Currency curCISDeductions,
              const String& strTaxMonth = {});

  /// Fills the record from text whose first node is `RecoverableAmountsYTD`. False, and nothing changed, for
  /// text that doesn't parse or begins with another node, an XML declaration among them.
  bool ParseFromXML(const String& strXML);

  /// Fills the record from its element; all fields are cleared first. False when the node has another name,
  /// and for an amount that is no number; what was read before it stays then.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "RecoverableAmountsYTD".
  String RootElementName() const;

  /// The tax month, "1" to "12"; empty for none, and then it isn't written.
  ///@{
  String TaxMonth() const;
  void TaxMonth(String value);
  ///@}

  /// Statutory payments recovered in pounds, always written: maternity, paternity (`SPPRecovered` in XML),
  /// adoption, shared parental (`ShPPRecovered`), parental bereavement and neonatal care pay.
  ///@{
  Currency SMPRecovered() const;
  void SMPRecovered(Currency value);
  Currency OSPPRecovered() const;
  void OSPPRecovered(Currency value);
  Currency SAPRecovered() const;
  void SAPRecovered(Currency value);
  Currency ASPPRecovered() const;
  void ASPPRecovered(Currency value);
  Currency SPBPRecovered() const;
  void SPBPRecovered(Currency value);
  Currency SNCPRecovered() const;
  void SNCPRecovered(Currency value);
  ///@}

  /// National Insurance compensation in pounds on each of these, always written. In XML the second and fourth
  /// are `NICCompensationOnSPP` and `NICCompensationOnShPP`.
  ///@{
  Currency NICCompensationOnSMP() const;
  void NICCompensationOnSMP(Currency value);
  Currency NICCompensationOnOSPP() const;
  void NICCompensationOnOSPP(Currency value);
  Currency NICCompensationOnSAP() const;
  void NICCompensationOnSAP(Currency value);
  Currency NICCompensationOnASPP() const;
  void NICCompensationOnASPP(Currency value);
  Currency NICCompensationOnSPBP() const;
  void NICCompensationOnSPBP(Currency value);
  Currency NICCompensationOnSNCP() const;
  void NICCompensationOnSNCP(Currency value);
  ///@}

  /// Deductions suffered in the Construction Industry Scheme in pounds, always written.
  ///@{
  Currency CISDeductionsSuffered() const;
  void CISDeductionsSuffered(Currency value);
  ///@}

  /// Whether the sum of all amounts isn't zero; amounts that cancel each other out count as none. False after
  /// a failure.
  bool HasPayments() const;

  /// Writes the record under its section.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String tax_month_;
  Currency smp_recovered_;
  Currency ospp_recovered_;
  Currency sap_recovered_;
  Currency aspp_recovered_;
  Currency spbp_recovered_;
  Currency sncp_recovered_;
  Currency nic_compensation_on_smp_;
  Currency nic_compensation_on_ospp_;
  Currency nic_compensation_on_sap_;
  Currency nic_compensation_on_aspp_;
  Currency nic_compensation_on_spbp_;
  Currency nic_compensation_on_sncp_;
  Currency cis_deductions_suffered_;
};

}  // namespace zelnor
