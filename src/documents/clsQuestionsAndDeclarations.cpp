#include "zelnor/documents/clsQuestionsAndDeclarations.h"

namespace zelnor {

void clsQuestionsAndDeclarations::Create(bool blnTaxFreePayments, bool blnExpenses, bool blnOverseas,
                                         bool blnPayToOther, bool blnP11DDue, bool blnService) {
  tax_free_payments_ = blnTaxFreePayments;
  expenses_ = blnExpenses;
  overseas_ = blnOverseas;
  pay_to_other_ = blnPayToOther;
  p11d_due_ = blnP11DDue;
  service_ = blnService;
  validated_ = false;
}

bool clsQuestionsAndDeclarations::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsQuestionsAndDeclarations", strXML);
}

bool clsQuestionsAndDeclarations::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsQuestionsAndDeclarations", "Function CreateFromXML", [&] {
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "FreeOfTaxPaymentsMadeToEmployee") tax_free_payments_ = IsYes(child.Text());
        if (name == "ExpensesVouchersOrBenefitsFromOthers") expenses_ = IsYes(child.Text());
        if (name == "PersonEmployedOutsideUKWorkedFor30DaysOrMore") overseas_ = IsYes(child.Text());
        if (name == "PayToSomeoneElse") pay_to_other_ = IsYes(child.Text());
        if (name == "P11DFormsDue") p11d_due_ = IsYes(child.Text());
        if (name == "ServiceCompany") service_ = IsYes(child.Text());
      }
      result = true;
    }
  });
  return result;
}

String clsQuestionsAndDeclarations::RootElementName() const { return "QuestionsAndDeclarations"; }

bool clsQuestionsAndDeclarations::TaxFreePaymentsMadeToEmployee() const { return tax_free_payments_; }
void clsQuestionsAndDeclarations::TaxFreePaymentsMadeToEmployee(bool value) {
  Change(tax_free_payments_, value);
}

bool clsQuestionsAndDeclarations::ExpensesVouchersOrBenefitsFromOthers() const { return expenses_; }
void clsQuestionsAndDeclarations::ExpensesVouchersOrBenefitsFromOthers(bool value) {
  Change(expenses_, value);
}

bool clsQuestionsAndDeclarations::PersonEmployedOutsideUKWorkedFor30DaysOrMore() const { return overseas_; }
void clsQuestionsAndDeclarations::PersonEmployedOutsideUKWorkedFor30DaysOrMore(bool value) {
  Change(overseas_, value);
}

bool clsQuestionsAndDeclarations::PayToSomeoneElse() const { return pay_to_other_; }
void clsQuestionsAndDeclarations::PayToSomeoneElse(bool value) { Change(pay_to_other_, value); }

bool clsQuestionsAndDeclarations::P11DFormsDue() const { return p11d_due_; }
void clsQuestionsAndDeclarations::P11DFormsDue(bool value) { Change(p11d_due_, value); }

bool clsQuestionsAndDeclarations::ServiceCompany() const { return service_; }
void clsQuestionsAndDeclarations::ServiceCompany(bool value) { Change(service_, value); }

XmlNode clsQuestionsAndDeclarations::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsQuestionsAndDeclarations", "Function ToXML", [&] {
    Element out = Element::Single("QuestionsAndDeclarations", xmlParent);
    result = out.Node();
    out.YesNo("FreeOfTaxPaymentsMadeToEmployee", tax_free_payments_);
    out.YesNo("ExpensesVouchersOrBenefitsFromOthers", expenses_);
    out.YesNo("PersonEmployedOutsideUKWorkedFor30DaysOrMore", overseas_);
    out.YesNo("PayToSomeoneElse", pay_to_other_);
    out.YesNo("P11DFormsDue", p11d_due_);
    out.YesNo("ServiceCompany", service_);
  });
  return result;
}

}  // namespace zelnor
