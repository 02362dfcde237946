#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// The employer's answers at the end of the year. No section writes them in this version.
class ZELNOR_API clsQuestionsAndDeclarations : public Record {
 public:
  /// Stores its arguments and clears `Validated`.
  void Create(bool blnTaxFreePayments, bool blnExpenses, bool blnOverseas, bool blnPayToOther,
              bool blnP11DDue, bool blnService);

  /// Fills the record from text whose first node is `QuestionsAndDeclarations`. False, and nothing changed,
  /// for text that doesn't parse or begins with another node, an XML declaration among them.
  bool ParseFromXML(const String& strXML);

  /// Fills the record from its element; an answer whose element is absent stays as it was. False when the
  /// node has another name.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "QuestionsAndDeclarations".
  String RootElementName() const;

  /// Payments free of tax were made to employees (element `FreeOfTaxPaymentsMadeToEmployee`).
  ///@{
  bool TaxFreePaymentsMadeToEmployee() const;
  void TaxFreePaymentsMadeToEmployee(bool value);
  ///@}

  /// Others paid expenses, or gave vouchers or benefits.
  ///@{
  bool ExpensesVouchersOrBenefitsFromOthers() const;
  void ExpensesVouchersOrBenefitsFromOthers(bool value);
  ///@}

  /// A person employed outside the UK worked here for 30 days or more.
  ///@{
  bool PersonEmployedOutsideUKWorkedFor30DaysOrMore() const;
  void PersonEmployedOutsideUKWorkedFor30DaysOrMore(bool value);
  ///@}

  /// Pay went to someone else than the employee.
  ///@{
  bool PayToSomeoneElse() const;
  void PayToSomeoneElse(bool value);
  ///@}

  /// Forms P11D are due.
  ///@{
  bool P11DFormsDue() const;
  void P11DFormsDue(bool value);
  ///@}

  /// The employer is a service company.
  ///@{
  bool ServiceCompany() const;
  void ServiceCompany(bool value);
  ///@}

  /// Writes the record under its parent.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  bool tax_free_payments_ = false;
  bool expenses_ = false;
  bool overseas_ = false;
  bool pay_to_other_ = false;
  bool p11d_due_ = false;
  bool service_ = false;
};

}  // namespace zelnor
