#include "zelnor/documents/clsEmployeeNameType.h"

#include "zelnor/platform/text.h"

namespace zelnor {

void clsEmployeeNameType::Create(const String& strTitle, const String& strForename,
                                 const String& strSurname) {
  name_.Create(strTitle, strForename, strSurname);
}

bool clsEmployeeNameType::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsEmployeeNameType", strXML);
}

bool clsEmployeeNameType::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsEmployeeNameType", "Function CreateFromXML", [&] {
    initials_.clear();
    name_ = clsNameType();
    result = name_.CreateFromXML(xmlNode);
  });
  return result;
}

bool clsEmployeeNameType::Validated() const { return name_.Validated(); }
void clsEmployeeNameType::Validated(bool value) { name_.Validated(value); }

String clsEmployeeNameType::RootElementName() const { return "Name"; }

String clsEmployeeNameType::Title() const { return name_.Title(); }
void clsEmployeeNameType::Title(const String& value) { name_.Title(value); }

String clsEmployeeNameType::Forename() const { return name_.Forename(); }
void clsEmployeeNameType::Forename(const String& value) { name_.Forename(Trim(value)); }

String clsEmployeeNameType::Forename1() const { return name_.Forename1(); }
void clsEmployeeNameType::Forename1(const String& value) { name_.Forename1(Trim(value)); }

String clsEmployeeNameType::Surname() const { return name_.Surname(); }
void clsEmployeeNameType::Surname(const String& value) { name_.Surname(Trim(value)); }

String clsEmployeeNameType::Initials() {
  Handled("clsEmployeeNameType", "Get Initials", [&] {
    if (initials_.empty()) initials_ = GetInitials(name_.Forename() + " " + name_.Forename1());
  });
  return initials_;
}
void clsEmployeeNameType::Initials(const String& value) {
  if (initials_ == value) return;
  initials_ = Trim(value);
  name_.Validated(false);
}

String clsEmployeeNameType::GetInitials(const String& strNames) {
  const String names = Trim(strNames);
  // The first character counts whatever it is, those behind a blank only as letters.
  String initials = Left(names, 1);
  std::u16string letters;
  bool behind_blank = false;
  for (const char16_t unit : ToUtf16(names)) {
    const bool is_blank = unit == u' ' || unit == u'-';
    if (is_blank && behind_blank) continue;
    behind_blank = is_blank;
    const String upper = UpperCase(FromUtf16({&unit, 1}));
    if (is_blank) {
      letters += u' ';
    } else if (upper.size() == 1 && upper[0] >= 'A' && upper[0] <= 'Z') {
      letters += unit;
    }
  }
  for (std::size_t i = 0; i + 1 < letters.size(); ++i) {
    if (letters[i] == u' ') initials += FromUtf16({&letters[i + 1], 1});
  }
  return initials;
}

XmlNode clsEmployeeNameType::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsEmployeeNameType", "Function ToXML", [&] {
    Element out = Element::Emptied("Name", xmlParent);
    result = out.Node();
    const String forename = name_.Forename();
    const String forename1 = name_.Forename1();
    out.OptionalText("Ttl", name_.Title());
    out.Append("Fore", forename);
    if (!forename1.empty()) out.Append("Fore", forename1);
    if (forename.empty() && forename1.empty()) out.Text("Initials", initials_);
    out.Text("Sur", name_.Surname());
  });
  return result;
}

}  // namespace zelnor
