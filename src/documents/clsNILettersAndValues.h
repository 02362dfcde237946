#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"

namespace zelnor {

/// One NI category letter of an employment with its earnings and contributions, element
/// `NIlettersAndValues`. An Earlier Year Update spells the elements without period and year to date; the
/// second name below is that of the update. All amounts are in pounds.
///
/// @code
/// auto row = std::make_shared<clsNILettersAndValues>();
/// row->Create("A", Currency(2140), Currency(12840), Currency(3252), Currency(3036), {}, {},
///             Currency::FromPence(25845), Currency::FromPence(155070), Currency::FromPence(8736),
///             Currency::FromPence(52416));
/// row->PTtoUEL(Currency(6552));
/// employment->AddNILettersAndValues(row);
/// @endcode
class ZELNOR_API clsNILettersAndValues : public Record {
 public:
  /// Stores its arguments and clears Validated. `cur1A` to `cur1D` are AtLEL, LELtoPT, PTtoUAP and UAPtoUEL;
  /// PTtoUEL stays.
  void Create(const String& strNILetter, Currency curPaySubjectToNIC, Currency curPaySubjectToNICYTD,
              Currency cur1A, Currency cur1B, Currency cur1C, Currency cur1D, Currency curTotalEmpNIC = {},
              Currency curTotalEmpNICYTD = {}, Currency curEmpeeContribns = {},
              Currency curEmpeeContribnsYTD = {}, const String& strSCON = {}, bool blnNICRefund = false,
              Currency curGrossEarningsForNICs = {});

  /// Fills the record from text whose first node is `NIlettersAndValues`. False for text that isn't well
  /// formed or has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record, then fills it from a node's children, in either spelling. False for a node of another
  /// name, and after a failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "NIlettersAndValues".
  String RootElementName() const;

  /// The category letter (`NIletter`); written even when empty.
  ///@{
  String NILetter() const;
  void NILetter(String value);
  ///@}

  /// Gross earnings in the period (`GrossEarningsForNICsInPd`); not in an Earlier Year Update, which takes
  /// GrossEarningsForNICs.
  ///@{
  Currency PaySubjectToNIC() const;
  void PaySubjectToNIC(Currency value);
  ///@}

  /// Gross earnings to date (`GrossEarningsForNICsYTD`); not in an Earlier Year Update.
  ///@{
  Currency PaySubjectToNICYTD() const;
  void PaySubjectToNICYTD(Currency value);
  ///@}

  /// Earnings at the lower earnings limit (`AtLELYTD`, `AtLEL`).
  ///@{
  Currency AtLEL() const;
  void AtLEL(Currency value);
  ///@}

  /// Earnings from there to the primary threshold (`LELtoPTYTD`, `LELtoPT`).
  ///@{
  Currency LELtoPT() const;
  void LELtoPT(Currency value);
  ///@}

  /// Earnings up to the former upper accrual point; neither read nor written.
  ///@{
  Currency PTtoUAP() const;
  void PTtoUAP(Currency value);
  ///@}

  /// Earnings from the former upper accrual point to the upper earnings limit; neither read nor written.
  ///@{
  Currency UAPtoUEL() const;
  void UAPtoUEL(Currency value);
  ///@}

  /// Earnings from the primary threshold to the upper earnings limit (`PTtoUELYTD`, `PTtoUEL`).
  ///@{
  Currency PTtoUEL() const;
  void PTtoUEL(Currency value);
  ///@}

  /// The employer's contributions in the period (`TotalEmpNICInPd`, `TotalEmpNIC`).
  ///@{
  Currency TotalEmpNIC() const;
  void TotalEmpNIC(Currency value);
  ///@}

  /// The employer's contributions to date (`TotalEmpNICYTD`); not in an Earlier Year Update.
  ///@{
  Currency TotalEmpNICYTD() const;
  void TotalEmpNICYTD(Currency value);
  ///@}

  /// The employee's contributions in the period (`EmpeeContribnsInPd`, `EmpeeContribns`).
  ///@{
  Currency EmpeeContribns() const;
  void EmpeeContribns(Currency value);
  ///@}

  /// The employee's contributions to date (`EmpeeContribnsYTD`); not in an Earlier Year Update.
  ///@{
  Currency EmpeeContribnsYTD() const;
  void EmpeeContribnsYTD(Currency value);
  ///@}

  /// Whether contributions were refunded to the employee; `NICRefund`, "yes" or "no", only in an Earlier Year
  /// Update and only with EmpeeContribns below zero. Any text but "yes", in any case, reads as False.
  ///@{
  bool NICRefund() const;
  void NICRefund(bool value);
  ///@}

  /// The number of a contracted-out pension scheme, for the rules; read (`SCON`) and never written.
  ///@{
  String SCON() const;
  void SCON(String value);
  ///@}

  /// Gross earnings, in an Earlier Year Update alone (`GrossEarningsForNICs`). Written and not read: after
  /// reading an update it is zero, and the application sets it anew.
  ///@{
  Currency GrossEarningsForNICs() const;
  void GrossEarningsForNICs(Currency value);
  ///@}

  /// Appends a new `NIlettersAndValues` to the parent, spelled for the type of document, and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent, eRTISUBMISSIONTYPE submissionType);

 private:
  // The amount that an element of this name holds in either spelling; nothing for any other name.
  Currency* AmountNamed(std::string_view element);

  String ni_letter_;
  String scon_;
  Currency pay_subject_to_nic_;
  Currency pay_subject_to_nic_ytd_;
  Currency at_lel_;
  Currency lel_to_pt_;
  Currency pt_to_uap_;
  Currency uap_to_uel_;
  Currency pt_to_uel_;
  Currency total_emp_nic_;
  Currency total_emp_nic_ytd_;
  Currency empee_contribns_;
  Currency empee_contribns_ytd_;
  Currency gross_earnings_for_nics_;
  bool nic_refund_ = false;
};

}  // namespace zelnor
