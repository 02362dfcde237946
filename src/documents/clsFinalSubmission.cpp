#include "zelnor/documents/clsFinalSubmission.h"

namespace zelnor {

void clsFinalSubmission::Create(bool blnSchemeCeased, bool blnFinalForYear, Date datDateSchemeCeased) {
  scheme_ceased_ = blnSchemeCeased;
  final_for_year_ = blnFinalForYear;
  date_scheme_ceased_ = datDateSchemeCeased;
  validated_ = false;
}

bool clsFinalSubmission::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsFinalSubmission", strXML);
}

bool clsFinalSubmission::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsFinalSubmission", "Function CreateFromXML", [&] {
    scheme_ceased_ = false;
    final_for_year_ = false;
    date_scheme_ceased_ = {};
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "BecauseSchemeCeased") scheme_ceased_ = true;
        if (name == "DateSchemeCeased") date_scheme_ceased_ = ToDate(child.Text());
        if (name == "ForYear") final_for_year_ = true;
      }
      result = true;
    }
  });
  return result;
}

String clsFinalSubmission::RootElementName() const { return "FinalSubmission"; }

bool clsFinalSubmission::SchemeCeased() const { return scheme_ceased_; }
void clsFinalSubmission::SchemeCeased(bool value) { Change(scheme_ceased_, value); }

Date clsFinalSubmission::DateSchemeCeased() const { return date_scheme_ceased_; }
void clsFinalSubmission::DateSchemeCeased(Date value) { Change(date_scheme_ceased_, value); }

bool clsFinalSubmission::FinalForYear() const { return final_for_year_; }
void clsFinalSubmission::FinalForYear(bool value) { Change(final_for_year_, value); }

XmlNode clsFinalSubmission::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsFinalSubmission", "Function ToXML", [&] {
    Element out = Element::Emptied("FinalSubmission", xmlParent);
    result = out.Node();
    out.Yes("BecauseSchemeCeased", scheme_ceased_);
    out.OptionalDay("DateSchemeCeased", date_scheme_ceased_);
    out.Yes("ForYear", final_for_year_);
  });
  return result;
}

}  // namespace zelnor
