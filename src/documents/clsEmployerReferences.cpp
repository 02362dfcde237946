#include "zelnor/documents/clsEmployerReferences.h"

#include "zelnor/platform/text.h"

namespace zelnor {
namespace {

// The document in which the references are written, told by the section around them; IsUndefined where it is
// none of the three in which their rules differ.
eRTISUBMISSIONTYPE DocumentAround(const XmlNode& node) {
  for (XmlNode at = node; at; at = at.ParentNode()) {
    const std::string_view name = at.BaseName();
    if (name == "FullPaymentSubmission") return eRTISUBMISSIONTYPE::IsFPS;
    if (name == "EarlierYearUpdate") return eRTISUBMISSIONTYPE::IsEYU;
    if (name == "EmployerPaymentSummary") return eRTISUBMISSIONTYPE::IsEPS;
  }
  return eRTISUBMISSIONTYPE::IsUndefined;
}

}  // namespace

void clsEmployerReferences::Create(const String& strOfficeNo, const String& strPayeRef,
                                   const String& strAORef, const String& strECON, const String& strUTROrCOTAX,
                                   etaxEmpRefTaxRef eniUTROrCOTAX) {
  office_no_ = strOfficeNo;
  paye_ref_ = strPayeRef;
  ao_ref_ = strAORef;
  if (!strECON.empty()) econ_ = Trim(strECON);
  if (strUTROrCOTAX.empty()) {
    tax_ref_type_ = etaxEmpRefTaxRef::extUndefined;
  } else {
    tax_ref_ = strUTROrCOTAX;
    tax_ref_type_ = eniUTROrCOTAX;
  }
  validated_ = false;
}

bool clsEmployerReferences::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsEmployerReferences", strXML);
}

bool clsEmployerReferences::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsEmployerReferences", "Function CreateFromXML", [&] {
    office_no_.clear();
    paye_ref_.clear();
    ao_ref_.clear();
    econ_.clear();
    tax_ref_.clear();
    tax_ref_type_ = etaxEmpRefTaxRef::extUndefined;
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "OfficeNo") {
          office_no_ = child.Text();
        } else if (name == "PayeRef") {
          paye_ref_ = child.Text();
        } else if (name == "AORef") {
          ao_ref_ = child.Text();
        } else if (name == "ECON") {
          econ_ = child.Text();
        } else if (name == "SAUTR") {
          tax_ref_ = child.Text();
          tax_ref_type_ = etaxEmpRefTaxRef::etxUseUTR;
        } else if (name == "COTAXRef") {
          tax_ref_ = child.Text();
          tax_ref_type_ = etaxEmpRefTaxRef::extUseCOTAXRef;
        }
      }
      result = true;
    }
  });
  return result;
}

String clsEmployerReferences::RootElementName() const { return "EmpRefs"; }

String clsEmployerReferences::OfficeNo() const { return office_no_; }
void clsEmployerReferences::OfficeNo(String value) { Change(office_no_, std::move(value)); }

String clsEmployerReferences::PayeRef() const { return paye_ref_; }
void clsEmployerReferences::PayeRef(String value) { Change(paye_ref_, std::move(value)); }

String clsEmployerReferences::AORef() const { return ao_ref_; }
void clsEmployerReferences::AORef(String value) { Change(ao_ref_, std::move(value)); }

String clsEmployerReferences::ECON() const { return econ_; }
void clsEmployerReferences::ECON(const String& value) { econ_ = Trim(value); }

String clsEmployerReferences::SAUTROrCOTAXRef() const { return tax_ref_; }
void clsEmployerReferences::SAUTROrCOTAXRef(String value) { Change(tax_ref_, std::move(value)); }

etaxEmpRefTaxRef clsEmployerReferences::SAUTROrCOTAXRefType() const { return tax_ref_type_; }

void clsEmployerReferences::SetSAUTROrCOTAXRef(const String& strRefCode, etaxEmpRefTaxRef eniRefType) {
  tax_ref_ = strRefCode;
  tax_ref_type_ = eniRefType;
}

bool clsEmployerReferences::HasSAUTR() const { return tax_ref_type_ == etaxEmpRefTaxRef::etxUseUTR; }

bool clsEmployerReferences::HasCOTAXRef() const { return tax_ref_type_ == etaxEmpRefTaxRef::extUseCOTAXRef; }

String clsEmployerReferences::COTAXRef() const { return HasCOTAXRef() ? tax_ref_ : String(); }

XmlNode clsEmployerReferences::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsEmployerReferences", "Function ToXML", [&] {
    const eRTISUBMISSIONTYPE document = DocumentAround(xmlParent);
    Element out = Element::Single("EmpRefs", xmlParent);
    result = out.Node();
    out.Text("OfficeNo", office_no_);
    out.Text("PayeRef", paye_ref_);
    out.Text("AORef", ao_ref_);
    out.Remove("ECON");
    WriteTaxReference(out, document);
  });
  return result;
}

// An element of the other kind that is already there stays beside the one written.
void clsEmployerReferences::WriteTaxReference(Element& out, eRTISUBMISSIONTYPE document) const {
  const bool fps = document == eRTISUBMISSIONTYPE::IsFPS;
  const bool eps = document == eRTISUBMISSIONTYPE::IsEPS;
  if (fps && HasSAUTR() && !tax_ref_.empty()) {
    out.Text("SAUTR", tax_ref_);
  } else if ((fps || eps) && HasCOTAXRef() && !tax_ref_.empty()) {
    out.Text("COTAXRef", tax_ref_);
  } else {
    out.Remove("SAUTR");
    out.Remove("COTAXRef");
  }
}

}  // namespace zelnor
