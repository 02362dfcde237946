#include "zelnor/documents/clsNILiability.h"

#include "zelnor/common/modPublicEnums.h"

namespace zelnor {

void clsNILiability::Create(DIRECTORS_NIC eniDirectorsNIC, Integer intWkMonthNoAppt) {
  directors_nic_ = eniDirectorsNIC;
  wk_or_month_no_director_appt_ = intWkMonthNoAppt;
  validated_ = false;
}

bool clsNILiability::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsNILiability", strXML);
}

bool clsNILiability::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsNILiability", "Function CreateFromXML", [&] {
    *this = clsNILiability();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (!child.IsElement()) continue;
        const std::string_view name = child.BaseName();
        if (name == "DirectorsNIC") {
          const String basis = child.Text();
          directors_nic_ = basis == "AN"   ? DIRECTORS_NIC::Annual
                           : basis == "AL" ? DIRECTORS_NIC::Alternative
                                           : DIRECTORS_NIC::NA;
        } else if (name == "TaxWkOfApptOfDirector") {
          wk_or_month_no_director_appt_ = ToInteger(child.Text());
        }
      }
      result = true;
    }
  });
  return result;
}

String clsNILiability::RootElementName() const { return "NIliability"; }

DIRECTORS_NIC clsNILiability::DirectorsNIC() const { return directors_nic_; }
void clsNILiability::DirectorsNIC(DIRECTORS_NIC value) { Change(directors_nic_, value); }

Integer clsNILiability::WkOrMonthNoDirectorAppt() const { return wk_or_month_no_director_appt_; }
void clsNILiability::WkOrMonthNoDirectorAppt(Integer value) { Change(wk_or_month_no_director_appt_, value); }

XmlNode clsNILiability::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsNILiability", "Function ToXML", [&] {
    if (directors_nic_ == DIRECTORS_NIC::NA) {
      RemoveChildNodes(xmlParent, "NIliability");
      return;
    }
    Element out = Element::Single("NIliability", xmlParent);
    result = out.Node();
    out.Text("DirectorsNIC", directors_nic_ == DIRECTORS_NIC::Annual ? "AN" : "AL");
    out.OptionalNumber("TaxWkOfApptOfDirector", wk_or_month_no_director_appt_);
  });
  return result;
}

}  // namespace zelnor
