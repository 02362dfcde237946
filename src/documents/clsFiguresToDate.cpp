#include "zelnor/documents/clsFiguresToDate.h"

namespace zelnor {

void clsFiguresToDate::Create(Currency curTaxablePay, Currency curTotalTax, Currency curStudentLoans,
                              Currency curBensTaxedViaPayYTD, Currency curEmpeePenContribnsYTD,
                              Currency curEmpeePenContribnsNotPaidYTD, Currency curPostgradLoans) {
  taxable_pay_ = curTaxablePay;
  total_tax_ = curTotalTax;
  student_loans_ = curStudentLoans;
  benefits_taxed_via_payroll_ytd_ = curBensTaxedViaPayYTD;
  empee_pension_contribns_paid_ytd_ = curEmpeePenContribnsYTD;
  empee_pension_contribns_not_paid_ytd_ = curEmpeePenContribnsNotPaidYTD;
  postgrad_loans_ = curPostgradLoans;
  validated_ = false;
}

bool clsFiguresToDate::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsFiguresToDate", strXML);
}

bool clsFiguresToDate::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsFiguresToDate", "Function CreateFromXML", [&] {
    *this = clsFiguresToDate();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (!child.IsElement()) continue;
        const std::string_view name = child.BaseName();
        if (name == "TaxablePay") taxable_pay_ = ToCurrency(child.Text());
        if (name == "TotalTax") total_tax_ = ToCurrency(child.Text());
        if (name == "StudentLoansTD") student_loans_ = ToCurrency(child.Text());
        if (name == "PostgradLoansTD") postgrad_loans_ = ToCurrency(child.Text());
        if (name == "BenefitsTaxedViaPayrollYTD") benefits_taxed_via_payroll_ytd_ = ToCurrency(child.Text());
        if (name == "EmpeePenContribnsPaidYTD") empee_pension_contribns_paid_ytd_ = ToCurrency(child.Text());
        if (name == "EmpeePenContribnsNotPaidYTD")
          empee_pension_contribns_not_paid_ytd_ = ToCurrency(child.Text());
      }
      result = true;
    }
  });
  return result;
}

String clsFiguresToDate::RootElementName() const { return "FiguresToDate"; }

Currency clsFiguresToDate::TaxablePay() const { return taxable_pay_; }
void clsFiguresToDate::TaxablePay(Currency value) { Change(taxable_pay_, value); }

Currency clsFiguresToDate::TotalTax() const { return total_tax_; }
void clsFiguresToDate::TotalTax(Currency value) { Change(total_tax_, value); }

Currency clsFiguresToDate::StudentLoans() const { return student_loans_; }
void clsFiguresToDate::StudentLoans(Currency value) { Change(student_loans_, value); }

Currency clsFiguresToDate::PostgradLoans() const { return postgrad_loans_; }
void clsFiguresToDate::PostgradLoans(Currency value) { Change(postgrad_loans_, value); }

Currency clsFiguresToDate::BenefitsTaxedViaPayrollYTD() const { return benefits_taxed_via_payroll_ytd_; }
void clsFiguresToDate::BenefitsTaxedViaPayrollYTD(Currency value) {
  Change(benefits_taxed_via_payroll_ytd_, value);
}

Currency clsFiguresToDate::EmpeePensionContribnsPaidYTD() const { return empee_pension_contribns_paid_ytd_; }
void clsFiguresToDate::EmpeePensionContribnsPaidYTD(Currency value) {
  Change(empee_pension_contribns_paid_ytd_, value);
}

Currency clsFiguresToDate::EmpeePensionContribnsNotPaidYTD() const {
  return empee_pension_contribns_not_paid_ytd_;
}
void clsFiguresToDate::EmpeePensionContribnsNotPaidYTD(Currency value) {
  Change(empee_pension_contribns_not_paid_ytd_, value);
}

XmlNode clsFiguresToDate::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsFiguresToDate", "Function ToXML", [&] {
    Element out = Element::Single("FiguresToDate", xmlParent);
    result = out.Node();
    out.Money("TaxablePay", taxable_pay_);
    out.Money("TotalTax", total_tax_);
    out.Money("StudentLoansTD", student_loans_);
    out.Money("PostgradLoansTD", postgrad_loans_);
    out.OptionalMoney("BenefitsTaxedViaPayrollYTD", benefits_taxed_via_payroll_ytd_);
    out.OptionalMoney("EmpeePenContribnsPaidYTD", empee_pension_contribns_paid_ytd_);
    out.OptionalMoney("EmpeePenContribnsNotPaidYTD", empee_pension_contribns_not_paid_ytd_);
  });
  return result;
}

}  // namespace zelnor
