#include "zelnor/documents/clsPaymentForPeriod.h"

namespace zelnor {

void clsPaymentForPeriod::Create(Currency curSMPRecovered, Currency curOSPPRecovered,
                                 Currency curSAPRecovered, Currency curASPPRecovered,
                                 Currency curNICCompensationSMP, Currency curNICCompensationOSPP,
                                 Currency curNICCompensationSAP, Currency curNICCompensationASPP,
                                 Currency curCISDeductions, const String& strTaxMonth) {
  smp_recovered_ = curSMPRecovered;
  ospp_recovered_ = curOSPPRecovered;
  sap_recovered_ = curSAPRecovered;
  aspp_recovered_ = curASPPRecovered;
  nic_compensation_on_smp_ = curNICCompensationSMP;
  nic_compensation_on_ospp_ = curNICCompensationOSPP;
  nic_compensation_on_sap_ = curNICCompensationSAP;
  nic_compensation_on_aspp_ = curNICCompensationASPP;
  cis_deductions_suffered_ = curCISDeductions;
  tax_month_ = strTaxMonth;
  validated_ = false;
}

bool clsPaymentForPeriod::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsPaymentForPeriod", strXML);
}

bool clsPaymentForPeriod::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsPaymentForPeriod", "Function CreateFromXML", [&] {
    *this = clsPaymentForPeriod();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "TaxMonth") tax_month_ = child.Text();
        if (name == "SMPRecovered") smp_recovered_ = ToCurrency(child.Text());
        if (name == "SPPRecovered") ospp_recovered_ = ToCurrency(child.Text());
        if (name == "SAPRecovered") sap_recovered_ = ToCurrency(child.Text());
        if (name == "ShPPRecovered") aspp_recovered_ = ToCurrency(child.Text());
        if (name == "SPBPRecovered") spbp_recovered_ = ToCurrency(child.Text());
        if (name == "SNCPRecovered") sncp_recovered_ = ToCurrency(child.Text());
        if (name == "NICCompensationOnSMP") nic_compensation_on_smp_ = ToCurrency(child.Text());
        if (name == "NICCompensationOnSPP") nic_compensation_on_ospp_ = ToCurrency(child.Text());
        if (name == "NICCompensationOnSAP") nic_compensation_on_sap_ = ToCurrency(child.Text());
        if (name == "NICCompensationOnShPP") nic_compensation_on_aspp_ = ToCurrency(child.Text());
        if (name == "NICCompensationOnSPBP") nic_compensation_on_spbp_ = ToCurrency(child.Text());
        if (name == "NICCompensationOnSNCP") nic_compensation_on_sncp_ = ToCurrency(child.Text());
        if (name == "CISDeductionsSuffered") cis_deductions_suffered_ = ToCurrency(child.Text());
      }
      result = true;
    }
  });
  return result;
}

String clsPaymentForPeriod::RootElementName() const { return "RecoverableAmountsYTD"; }

String clsPaymentForPeriod::TaxMonth() const { return tax_month_; }
void clsPaymentForPeriod::TaxMonth(String value) { Change(tax_month_, std::move(value)); }

Currency clsPaymentForPeriod::SMPRecovered() const { return smp_recovered_; }
void clsPaymentForPeriod::SMPRecovered(Currency value) { Change(smp_recovered_, value); }

Currency clsPaymentForPeriod::OSPPRecovered() const { return ospp_recovered_; }
void clsPaymentForPeriod::OSPPRecovered(Currency value) { Change(ospp_recovered_, value); }

Currency clsPaymentForPeriod::SAPRecovered() const { return sap_recovered_; }
void clsPaymentForPeriod::SAPRecovered(Currency value) { Change(sap_recovered_, value); }

Currency clsPaymentForPeriod::ASPPRecovered() const { return aspp_recovered_; }
void clsPaymentForPeriod::ASPPRecovered(Currency value) { Change(aspp_recovered_, value); }

Currency clsPaymentForPeriod::SPBPRecovered() const { return spbp_recovered_; }
void clsPaymentForPeriod::SPBPRecovered(Currency value) { Change(spbp_recovered_, value); }

Currency clsPaymentForPeriod::SNCPRecovered() const { return sncp_recovered_; }
void clsPaymentForPeriod::SNCPRecovered(Currency value) { Change(sncp_recovered_, value); }

Currency clsPaymentForPeriod::NICCompensationOnSMP() const { return nic_compensation_on_smp_; }
void clsPaymentForPeriod::NICCompensationOnSMP(Currency value) { Change(nic_compensation_on_smp_, value); }

Currency clsPaymentForPeriod::NICCompensationOnOSPP() const { return nic_compensation_on_ospp_; }
void clsPaymentForPeriod::NICCompensationOnOSPP(Currency value) { Change(nic_compensation_on_ospp_, value); }

Currency clsPaymentForPeriod::NICCompensationOnSAP() const { return nic_compensation_on_sap_; }
void clsPaymentForPeriod::NICCompensationOnSAP(Currency value) { Change(nic_compensation_on_sap_, value); }

Currency clsPaymentForPeriod::NICCompensationOnASPP() const { return nic_compensation_on_aspp_; }
void clsPaymentForPeriod::NICCompensationOnASPP(Currency value) { Change(nic_compensation_on_aspp_, value); }

Currency clsPaymentForPeriod::NICCompensationOnSPBP() const { return nic_compensation_on_spbp_; }
void clsPaymentForPeriod::NICCompensationOnSPBP(Currency value) { Change(nic_compensation_on_spbp_, value); }

Currency clsPaymentForPeriod::NICCompensationOnSNCP() const { return nic_compensation_on_sncp_; }
void clsPaymentForPeriod::NICCompensationOnSNCP(Currency value) { Change(nic_compensation_on_sncp_, value); }

Currency clsPaymentForPeriod::CISDeductionsSuffered() const { return cis_deductions_suffered_; }
void clsPaymentForPeriod::CISDeductionsSuffered(Currency value) { Change(cis_deductions_suffered_, value); }

bool clsPaymentForPeriod::HasPayments() const {
  bool result = false;
  Handled("clsPaymentForPeriod", "Get HasPayments", [&] {
    Currency sum;
    for (const Currency& amount :
         {smp_recovered_, ospp_recovered_, sap_recovered_, aspp_recovered_, spbp_recovered_, sncp_recovered_,
          nic_compensation_on_smp_, nic_compensation_on_ospp_, nic_compensation_on_sap_,
          nic_compensation_on_aspp_, nic_compensation_on_spbp_, nic_compensation_on_sncp_,
          cis_deductions_suffered_}) {
      sum += amount;
    }
    result = !sum.IsZero();
  });
  return result;
}

XmlNode clsPaymentForPeriod::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsPaymentForPeriod", "Function ToXML", [&] {
    Element out = Element::Single("RecoverableAmountsYTD", xmlParent);
    result = out.Node();
    out.OptionalText("TaxMonth", tax_month_);
    out.Money("SMPRecovered", smp_recovered_);
    out.Money("SPPRecovered", ospp_recovered_);
    out.Money("SAPRecovered", sap_recovered_);
    out.Money("ShPPRecovered", aspp_recovered_);
    out.Money("SPBPRecovered", spbp_recovered_);
    out.Money("SNCPRecovered", sncp_recovered_);
    out.Money("NICCompensationOnSMP", nic_compensation_on_smp_);
    out.Money("NICCompensationOnSPP", nic_compensation_on_ospp_);
    out.Money("NICCompensationOnSAP", nic_compensation_on_sap_);
    out.Money("NICCompensationOnShPP", nic_compensation_on_aspp_);
    out.Money("NICCompensationOnSPBP", nic_compensation_on_spbp_);
    out.Money("NICCompensationOnSNCP", nic_compensation_on_sncp_);
    out.Money("CISDeductionsSuffered", cis_deductions_suffered_);
  });
  return result;
}

}  // namespace zelnor
