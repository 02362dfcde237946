#include "zelnor/documents/clsFaxType.h"

namespace zelnor {

void clsFaxType::Create(const String& strFaxNo, TELEPHONE_TYPE eniType, bool blnPreferred,
                        const String& strExtension) {
  line_.Create(strFaxNo, eniType, false, blnPreferred, strExtension);
}

bool clsFaxType::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, "clsFaxType", strXML); }

bool clsFaxType::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsFaxType", "Function CreateFromXML", [&] {
    line_ = clsTelephoneType();
    if (xmlNode.NodeName() == RootElementName()) {
      line_.ReadAllButMobile(xmlNode);
      result = true;
    }
  });
  return result;
}

bool clsFaxType::Validated() const { return line_.Validated(); }
void clsFaxType::Validated(bool value) { line_.Validated(value); }

String clsFaxType::RootElementName() const { return "Fax"; }

bool clsFaxType::IsMobile() const { return line_.IsMobile(); }
void clsFaxType::IsMobile(bool value) { line_.IsMobile(value); }

bool clsFaxType::Preferred() const { return line_.Preferred(); }
void clsFaxType::Preferred(bool value) { line_.Preferred(value); }

TELEPHONE_TYPE clsFaxType::TelType() const { return line_.TelType(); }
void clsFaxType::TelType(TELEPHONE_TYPE value) { line_.TelType(value); }

String clsFaxType::Number() const { return line_.Number(); }
void clsFaxType::Number(String value) { line_.Number(std::move(value)); }

String clsFaxType::Extension() const { return line_.Extension(); }
void clsFaxType::Extension(String value) { line_.Extension(std::move(value)); }

XmlNode clsFaxType::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsFaxType", "Function ToXML", [&] {
    Element out = Element::Appended("Fax", xmlParent);
    result = out.Node();
    line_.WriteInto(out);
  });
  return result;
}

}  // namespace zelnor
