#include "zelnor/documents/clsNameType.h"

#include "zelnor/platform/text.h"

namespace zelnor {

void clsNameType::Create(const String& strTitle, const String& strForename, const String& strSurname) {
  title_ = Trim(strTitle);
  forename_ = Trim(strForename);
  surname_ = Trim(strSurname);
  validated_ = false;
}

bool clsNameType::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, "clsNameType", strXML); }

bool clsNameType::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsNameType", "Function CreateFromXML", [&] {
    title_.clear();
    forename_.clear();
    forename1_.clear();
    surname_.clear();
    if (xmlNode.NodeName() == RootElementName()) {
      int forenames = 0;
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "Ttl") {
          title_ = Trim(child.Text());
        } else if (name == "Fore") {
          ++forenames;
          if (forenames == 1) forename_ = Trim(child.Text());
          if (forenames == 2) forename1_ = Trim(child.Text());
        } else if (name == "Sur") {
          surname_ = Trim(child.Text());
        }
      }
      result = true;
    }
  });
  return result;
}

String clsNameType::RootElementName() const { return "Name"; }

// The value is compared before it is trimmed: blanks around the stored text count as a change.
void clsNameType::ChangeTrimmed(String& field, const String& value) {
  if (field == value) return;
  field = Trim(value);
  validated_ = false;
}

String clsNameType::Title() const { return title_; }
void clsNameType::Title(const String& value) { ChangeTrimmed(title_, value); }

String clsNameType::Forename() const { return forename_; }
void clsNameType::Forename(const String& value) { ChangeTrimmed(forename_, value); }

String clsNameType::Forename1() const { return forename1_; }
void clsNameType::Forename1(const String& value) { ChangeTrimmed(forename1_, value); }

String clsNameType::Surname() const { return surname_; }
void clsNameType::Surname(const String& value) { ChangeTrimmed(surname_, value); }

XmlNode clsNameType::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsNameType", "Function ToXML", [&] {
    Element out = Element::Emptied("Name", xmlParent);
    result = out.Node();
    out.OptionalText("Ttl", title_);
    out.Append("Fore", forename_);
    if (!forename1_.empty()) out.Append("Fore", forename1_);
    out.Text("Sur", surname_);
  });
  return result;
}

}  // namespace zelnor
