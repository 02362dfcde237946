#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// The totals of an employment in the tax year so far, element `FiguresToDate`. All amounts are in pounds.
///
/// @code
/// auto figures = std::make_shared<clsFiguresToDate>();
/// figures->Create(Currency(20100), Currency::FromPence(276120), Currency(522));
/// employment->FiguresToDate(figures);
/// @endcode
class ZELNOR_API clsFiguresToDate : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(Currency curTaxablePay, Currency curTotalTax, Currency curStudentLoans = {},
              Currency curBensTaxedViaPayYTD = {}, Currency curEmpeePenContribnsYTD = {},
              Currency curEmpeePenContribnsNotPaidYTD = {}, Currency curPostgradLoans = {});

  /// Fills the record from text whose first node is `FiguresToDate`. False for text that isn't well formed or
  /// has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record, then fills it from a node's children. False for a node of another name, and after a
  /// failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "FiguresToDate".
  String RootElementName() const;

  /// Taxable pay (`TaxablePay`); always written.
  ///@{
  Currency TaxablePay() const;
  void TaxablePay(Currency value);
  ///@}

  /// Tax (`TotalTax`); always written.
  ///@{
  Currency TotalTax() const;
  void TotalTax(Currency value);
  ///@}

  /// Student loan deductions (`StudentLoansTD`); always written.
  ///@{
  Currency StudentLoans() const;
  void StudentLoans(Currency value);
  ///@}

  /// Postgraduate loan deductions (`PostgradLoansTD`); always written.
  ///@{
  Currency PostgradLoans() const;
  void PostgradLoans(Currency value);
  ///@}

  /// Benefits taxed via the payroll (`BenefitsTaxedViaPayrollYTD`); left out when zero.
  ///@{
  Currency BenefitsTaxedViaPayrollYTD() const;
  void BenefitsTaxedViaPayrollYTD(Currency value);
  ///@}

  /// The employee's pension contributions paid under net pay arrangements (`EmpeePenContribnsPaidYTD`); left
  /// out when zero.
  ///@{
  Currency EmpeePensionContribnsPaidYTD() const;
  void EmpeePensionContribnsPaidYTD(Currency value);
  ///@}

  /// The employee's pension contributions not paid under net pay arrangements
  /// (`EmpeePenContribnsNotPaidYTD`); left out when zero.
  ///@{
  Currency EmpeePensionContribnsNotPaidYTD() const;
  void EmpeePensionContribnsNotPaidYTD(Currency value);
  ///@}

  /// Writes the parent's one `FiguresToDate` and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  Currency taxable_pay_;
  Currency total_tax_;
  Currency student_loans_;
  Currency postgrad_loans_;
  Currency benefits_taxed_via_payroll_ytd_;
  Currency empee_pension_contribns_paid_ytd_;
  Currency empee_pension_contribns_not_paid_ytd_;
};

}  // namespace zelnor
