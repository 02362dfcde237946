#include "zelnor/documents/clsFlexibleDrawdown.h"

#include <array>

namespace zelnor {

void clsFlexibleDrawdown::Create(bool blnFlexiblyAccesingPensionRights, bool blnPensionDeathBenefit,
                                 Currency curTaxableBenefit, Currency curNonTaxableBenefit,
                                 bool blnSeriousIllHealthLumpSum, bool blnPensionCommencementExcessLumpSum,
                                 bool blnStandAloneLumpSum) {
  flexible_accessing_pension_rights_ = blnFlexiblyAccesingPensionRights;
  pension_death_benefit_ = blnPensionDeathBenefit;
  taxable_payment_ = curTaxableBenefit;
  non_taxable_payment_ = curNonTaxableBenefit;
  serious_ill_health_lump_sum_ = blnSeriousIllHealthLumpSum;
  pension_commencement_excess_lump_sum_ = blnPensionCommencementExcessLumpSum;
  stand_alone_lump_sum_ = blnStandAloneLumpSum;
  validated_ = false;
}

bool clsFlexibleDrawdown::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsFlexibleDrawdown", strXML);
}

bool clsFlexibleDrawdown::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsFlexibleDrawdown", "Function CreateFromXML", [&] {
    *this = clsFlexibleDrawdown();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (!child.IsElement()) continue;
        const std::string_view name = child.BaseName();
        if (name == "FlexiblyAccessingPensionRights") flexible_accessing_pension_rights_ = true;
        if (name == "PensionDeathBenefit") pension_death_benefit_ = true;
        if (name == "SeriousIllHealthLumpSum") serious_ill_health_lump_sum_ = true;
        if (name == "PensionCommencementExcessLumpSum") pension_commencement_excess_lump_sum_ = true;
        if (name == "StandAloneLumpSum") stand_alone_lump_sum_ = true;
        if (name == "TaxablePayment") taxable_payment_ = ToCurrency(child.Text());
        if (name == "NontaxablePayment") non_taxable_payment_ = ToCurrency(child.Text());
      }
      result = true;
    }
  });
  return result;
}

String clsFlexibleDrawdown::RootElementName() const { return "FlexibleDrawdown"; }

bool clsFlexibleDrawdown::FlexibleAccessingPensionRights() const {
  return flexible_accessing_pension_rights_;
}
bool clsFlexibleDrawdown::PensionDeathBenefit() const { return pension_death_benefit_; }

bool clsFlexibleDrawdown::SeriousIllHealthLumpSum() const { return serious_ill_health_lump_sum_; }
void clsFlexibleDrawdown::SeriousIllHealthLumpSum(bool value) { Change(serious_ill_health_lump_sum_, value); }

bool clsFlexibleDrawdown::PensionCommencementExcessLumpSum() const {
  return pension_commencement_excess_lump_sum_;
}
void clsFlexibleDrawdown::PensionCommencementExcessLumpSum(bool value) {
  Change(pension_commencement_excess_lump_sum_, value);
}

bool clsFlexibleDrawdown::StandAloneLumpSum() const { return stand_alone_lump_sum_; }
void clsFlexibleDrawdown::StandAloneLumpSum(bool value) { Change(stand_alone_lump_sum_, value); }

Currency clsFlexibleDrawdown::TaxablePayment() const { return taxable_payment_; }
void clsFlexibleDrawdown::TaxablePayment(Currency value) { Change(taxable_payment_, value); }

Currency clsFlexibleDrawdown::NonTaxablePayment() const { return non_taxable_payment_; }
void clsFlexibleDrawdown::NonTaxablePayment(Currency value) { Change(non_taxable_payment_, value); }

XmlNode clsFlexibleDrawdown::ToXML(const XmlNode& xmlParent) {
  struct Kind {
    std::string_view element;
    bool set;
  };
  const std::array<Kind, 5> kinds{{
      {"FlexiblyAccessingPensionRights", flexible_accessing_pension_rights_},
      {"PensionDeathBenefit", pension_death_benefit_},
      {"SeriousIllHealthLumpSum", serious_ill_health_lump_sum_},
      {"PensionCommencementExcessLumpSum", pension_commencement_excess_lump_sum_},
      {"StandAloneLumpSum", stand_alone_lump_sum_},
  }};
  XmlNode result;
  Handled("clsFlexibleDrawdown", "Function ToXML", [&] {
    Element out = Element::Single("FlexibleDrawdown", xmlParent);
    result = out.Node();
    for (const Kind& kind : kinds) out.Remove(kind.element);
    for (const Kind& kind : kinds) {
      if (!kind.set) continue;
      out.Yes(kind.element, true);
      out.Money("TaxablePayment", taxable_payment_);
      out.Money("NontaxablePayment", non_taxable_payment_);
      return;
    }
  });
  return result;
}

}  // namespace zelnor
