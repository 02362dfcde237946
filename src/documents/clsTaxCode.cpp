#include "zelnor/documents/clsTaxCode.h"

#include "zelnor/platform/text.h"

namespace zelnor {
namespace {

// HMRC's code for "no tax" is NT; payrolls that know it as NI mean the same.
String Spelled(String code) { return UpperCase(code) == "NI" ? "NT" : std::move(code); }

}  // namespace

void clsTaxCode::Create(const String& strTaxCodeValue, bool blnBasisNonCumulative, const String& strSVR) {
  TaxCode(strTaxCodeValue);
  basis_non_cumulative_ = blnBasisNonCumulative;
  svr_ = strSVR;
  validated_ = false;
}

bool clsTaxCode::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, "clsTaxCode", strXML); }

bool clsTaxCode::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsTaxCode", "Function CreateFromXML", [&] {
    *this = clsTaxCode();
    if (xmlNode.NodeName() == RootElementName()) {
      basis_non_cumulative_ = xmlNode.Attribute("BasisNonCumulative").has_value();
      const String regime = UpperCase(xmlNode.Attribute("TaxRegime").value_or(""));
      scottish_ = regime == "S";
      welsh_ = regime == "C";
      svr_ = xmlNode.Attribute("SVR").value_or("");
      tax_code_ = Spelled(xmlNode.Text());
      result = true;
    }
  });
  return result;
}

String clsTaxCode::RootElementName() const { return "TaxCode"; }

String clsTaxCode::TaxCode() const { return tax_code_; }
void clsTaxCode::TaxCode(const String& value) {
  scottish_ = value.starts_with('S');
  welsh_ = value.starts_with('C');
  Change(tax_code_, Spelled(value));
}

bool clsTaxCode::BasisNonCumulative() const { return basis_non_cumulative_; }
void clsTaxCode::BasisNonCumulative(bool value) { Change(basis_non_cumulative_, value); }

String clsTaxCode::SVR() const { return svr_; }
void clsTaxCode::SVR(String value) { Change(svr_, std::move(value)); }

bool clsTaxCode::IsScottishTaxRegime() const { return scottish_; }
void clsTaxCode::IsScottishTaxRegime(bool value) { Change(scottish_, value); }

bool clsTaxCode::IsWelshTaxRegime() const { return welsh_; }
void clsTaxCode::IsWelshTaxRegime(bool value) { Change(welsh_, value); }

XmlNode clsTaxCode::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsTaxCode", "Function ToXML", [&] {
    result = Element::Single("TaxCode", xmlParent).Node();
    if (basis_non_cumulative_) {
      result.Attribute("BasisNonCumulative", "yes");
    } else {
      result.RemoveAttribute("BasisNonCumulative");
    }
    if (scottish_ || welsh_) {
      result.Attribute("TaxRegime", scottish_ ? "S" : "C");
    } else {
      result.RemoveAttribute("TaxRegime");
    }
    result.Text(tax_code_);
  });
  return result;
}

}  // namespace zelnor
