#include "zelnor/documents/clsNILettersAndValues.h"

namespace zelnor {

void clsNILettersAndValues::Create(const String& strNILetter, Currency curPaySubjectToNIC,
                                   Currency curPaySubjectToNICYTD, Currency cur1A, Currency cur1B,
                                   Currency cur1C, Currency cur1D, Currency curTotalEmpNIC,
                                   Currency curTotalEmpNICYTD, Currency curEmpeeContribns,
                                   Currency curEmpeeContribnsYTD, const String& strSCON, bool blnNICRefund,
                                   Currency curGrossEarningsForNICs) {
  ni_letter_ = strNILetter;
  pay_subject_to_nic_ = curPaySubjectToNIC;
  pay_subject_to_nic_ytd_ = curPaySubjectToNICYTD;
  at_lel_ = cur1A;
  lel_to_pt_ = cur1B;
  pt_to_uap_ = cur1C;
  uap_to_uel_ = cur1D;
  total_emp_nic_ = curTotalEmpNIC;
  total_emp_nic_ytd_ = curTotalEmpNICYTD;
  empee_contribns_ = curEmpeeContribns;
  empee_contribns_ytd_ = curEmpeeContribnsYTD;
  scon_ = strSCON;
  nic_refund_ = blnNICRefund;
  gross_earnings_for_nics_ = curGrossEarningsForNICs;
  validated_ = false;
}

bool clsNILettersAndValues::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsNILettersAndValues", strXML);
}

bool clsNILettersAndValues::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsNILettersAndValues", "Function CreateFromXML", [&] {
    *this = clsNILettersAndValues();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (!child.IsElement()) continue;
        const std::string_view name = child.BaseName();
        if (name == "NIletter") {
          ni_letter_ = child.Text();
        } else if (name == "SCON") {
          scon_ = child.Text();
        } else if (name == "NICRefund") {
          nic_refund_ = IsYes(child.Text());
        } else if (Currency* amount = AmountNamed(name)) {
          *amount = ToCurrency(child.Text());
        }
      }
      result = true;
    }
  });
  return result;
}

// The plain GrossEarningsForNICs isn't among them: an application that reads an Earlier Year Update sets that
// figure itself.
Currency* clsNILettersAndValues::AmountNamed(std::string_view element) {
  if (element == "GrossEarningsForNICsInPd") return &pay_subject_to_nic_;
  if (element == "GrossEarningsForNICsYTD") return &pay_subject_to_nic_ytd_;
  if (element == "AtLELYTD" || element == "AtLEL") return &at_lel_;
  if (element == "LELtoPTYTD" || element == "LELtoPT") return &lel_to_pt_;
  if (element == "PTtoUELYTD" || element == "PTtoUEL") return &pt_to_uel_;
  if (element == "TotalEmpNICInPd" || element == "TotalEmpNIC") return &total_emp_nic_;
  if (element == "TotalEmpNICYTD") return &total_emp_nic_ytd_;
  if (element == "EmpeeContribnsInPd" || element == "EmpeeContribns") return &empee_contribns_;
  if (element == "EmpeeContribnsYTD") return &empee_contribns_ytd_;
  return nullptr;
}

String clsNILettersAndValues::RootElementName() const { return "NIlettersAndValues"; }

String clsNILettersAndValues::NILetter() const { return ni_letter_; }
void clsNILettersAndValues::NILetter(String value) { Change(ni_letter_, std::move(value)); }

Currency clsNILettersAndValues::PaySubjectToNIC() const { return pay_subject_to_nic_; }
void clsNILettersAndValues::PaySubjectToNIC(Currency value) { Change(pay_subject_to_nic_, value); }

Currency clsNILettersAndValues::PaySubjectToNICYTD() const { return pay_subject_to_nic_ytd_; }
void clsNILettersAndValues::PaySubjectToNICYTD(Currency value) { Change(pay_subject_to_nic_ytd_, value); }

Currency clsNILettersAndValues::AtLEL() const { return at_lel_; }
void clsNILettersAndValues::AtLEL(Currency value) { Change(at_lel_, value); }

Currency clsNILettersAndValues::LELtoPT() const { return lel_to_pt_; }
void clsNILettersAndValues::LELtoPT(Currency value) { Change(lel_to_pt_, value); }

Currency clsNILettersAndValues::PTtoUAP() const { return pt_to_uap_; }
void clsNILettersAndValues::PTtoUAP(Currency value) { Change(pt_to_uap_, value); }

Currency clsNILettersAndValues::UAPtoUEL() const { return uap_to_uel_; }
void clsNILettersAndValues::UAPtoUEL(Currency value) { Change(uap_to_uel_, value); }

Currency clsNILettersAndValues::PTtoUEL() const { return pt_to_uel_; }
void clsNILettersAndValues::PTtoUEL(Currency value) { Change(pt_to_uel_, value); }

Currency clsNILettersAndValues::TotalEmpNIC() const { return total_emp_nic_; }
void clsNILettersAndValues::TotalEmpNIC(Currency value) { Change(total_emp_nic_, value); }

Currency clsNILettersAndValues::TotalEmpNICYTD() const { return total_emp_nic_ytd_; }
void clsNILettersAndValues::TotalEmpNICYTD(Currency value) { Change(total_emp_nic_ytd_, value); }

Currency clsNILettersAndValues::EmpeeContribns() const { return empee_contribns_; }
void clsNILettersAndValues::EmpeeContribns(Currency value) { Change(empee_contribns_, value); }

Currency clsNILettersAndValues::EmpeeContribnsYTD() const { return empee_contribns_ytd_; }
void clsNILettersAndValues::EmpeeContribnsYTD(Currency value) { Change(empee_contribns_ytd_, value); }

bool clsNILettersAndValues::NICRefund() const { return nic_refund_; }
void clsNILettersAndValues::NICRefund(bool value) { Change(nic_refund_, value); }

String clsNILettersAndValues::SCON() const { return scon_; }
void clsNILettersAndValues::SCON(String value) { Change(scon_, std::move(value)); }

Currency clsNILettersAndValues::GrossEarningsForNICs() const { return gross_earnings_for_nics_; }
void clsNILettersAndValues::GrossEarningsForNICs(Currency value) { Change(gross_earnings_for_nics_, value); }

XmlNode clsNILettersAndValues::ToXML(const XmlNode& xmlParent, eRTISUBMISSIONTYPE submissionType) {
  XmlNode result;
  Handled("clsNILettersAndValues", "Function ToXML", [&] {
    // New at each call, so that what isn't written, such as SCON, isn't there either.
    Element out = Element::Appended("NIlettersAndValues", xmlParent);
    result = out.Node();
    out.Text("NIletter", ni_letter_);
    if (submissionType == eRTISUBMISSIONTYPE::IsEYU) {
      out.Money("GrossEarningsForNICs", gross_earnings_for_nics_);
      out.Money("AtLEL", at_lel_);
      out.Money("LELtoPT", lel_to_pt_);
      out.Money("PTtoUEL", pt_to_uel_);
      out.Money("TotalEmpNIC", total_emp_nic_);
      out.Money("EmpeeContribns", empee_contribns_);
      if (empee_contribns_ < Currency()) out.YesNo("NICRefund", nic_refund_);
    } else {
      out.Money("GrossEarningsForNICsInPd", pay_subject_to_nic_);
      out.Money("GrossEarningsForNICsYTD", pay_subject_to_nic_ytd_);
      out.Money("AtLELYTD", at_lel_);
      out.Money("LELtoPTYTD", lel_to_pt_);
      out.Money("PTtoUELYTD", pt_to_uel_);
      out.Money("TotalEmpNICInPd", total_emp_nic_);
      out.Money("TotalEmpNICYTD", total_emp_nic_ytd_);
      out.Money("EmpeeContribnsInPd", empee_contribns_);
      out.Money("EmpeeContribnsYTD", empee_contribns_ytd_);
    }
  });
  return result;
}

}  // namespace zelnor
