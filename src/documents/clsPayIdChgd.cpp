#include "zelnor/documents/clsPayIdChgd.h"

#include "zelnor/common/modPublicEnums.h"

namespace zelnor {

void clsPayIdChgd::Create(bool blnChanged, const String& strOldID) {
  changed_ = blnChanged;
  old_id_ = strOldID;
  validated_ = false;
}

bool clsPayIdChgd::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsPayIdChgd", strXML);
}

bool clsPayIdChgd::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsPayIdChgd", "Function CreateFromXML", [&] {
    Create(false);
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "PayrollIdChangedIndicator") {
          changed_ = true;
        } else if (name == "OldPayrollId") {
          old_id_ = child.Text();
        }
      }
      result = true;
    }
  });
  return result;
}

String clsPayIdChgd::RootElementName() const { return "PayIdChgd"; }

bool clsPayIdChgd::Changed() const { return changed_; }
void clsPayIdChgd::Changed(bool value) { changed_ = value; }

String clsPayIdChgd::OldId() const { return old_id_; }
void clsPayIdChgd::OldId(String value) { Change(old_id_, std::move(value)); }

XmlNode clsPayIdChgd::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsPayIdChgd", "Function ToXML", [&] {
    if (!changed_) {
      RemoveChildNodes(xmlParent, RootElementName());
      return;
    }
    Element out = Element::Single("PayIdChgd", xmlParent);
    result = out.Node();
    out.Text("PayrollIdChangedIndicator", "yes");
    // An old ID that is in the element already stays when there is none to put in its place.
    if (!old_id_.empty()) out.Text("OldPayrollId", old_id_);
  });
  return result;
}

}  // namespace zelnor
