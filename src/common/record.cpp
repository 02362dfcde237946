#include "zelnor/common/record.h"

#include "zelnor/common/modPublicEnums.h"
#include "zelnor/platform/text.h"

namespace zelnor {

Record::~Record() = default;

XmlNode FirstNodeNamed(const String& strXML, std::string_view name) {
  const XmlDocument document;
  if (!document.LoadXML(strXML)) return {};
  XmlNode first = document.Node().FirstChild();
  return first && first.NodeName() == name ? first : XmlNode();
}

XmlNode DocumentElementNamed(const String& strXML, std::string_view name) {
  const XmlDocument document;
  if (!document.LoadXML(strXML)) return {};
  XmlNode root = document.DocumentElement();
  return root.NodeName() == name ? root : XmlNode();
}

bool IsYes(std::string_view text) { return UpperCase(text) == "YES"; }

String BoolToYesNo(Long value) { return value == 1 ? "yes" : "no"; }

String FormatDateOrDefault(Date value, const String& strFormat, const String& strDefault) {
  static const Date kFirst = Date::FromParts(1901, 1, 1);
  return value < kFirst ? strDefault : Format(value, strFormat);
}

String PadRight(const String& strText, Integer intWidth, const String& strPadSample) {
  const auto length = static_cast<std::ptrdiff_t>(Length(strText));
  if (length >= intWidth || strPadSample.empty()) return strText;
  const String pad = Left(strPadSample, 1);
  String padded = strText;
  for (std::ptrdiff_t i = length; i < intWidth; ++i) padded += pad;
  return padded;
}

Element Element::Single(std::string_view name, const XmlNode& parent) {
  if (XmlNode found = parent.FindChild(name)) return {std::move(found), false};
  return {parent.AppendElement(name), true};
}

Element Element::Emptied(std::string_view name, const XmlNode& parent) {
  if (const XmlNode found = parent.FindChild(name)) return Reused(found);
  return {parent.AppendElement(name), true};
}

Element Element::Appended(std::string_view name, const XmlNode& parent) {
  return {parent.AppendElement(name), true};
}

Element Element::Reused(const XmlNode& node) {
  RemoveAllChildNodes(node);
  return {node, true};
}

XmlNode Element::Child(std::string_view name) {
  if (!fresh_) {
    if (XmlNode found = node_.FindChild(name)) return found;
  }
  return node_.AppendElement(name);
}

void Element::Remove(std::string_view name) {
  if (!fresh_) RemoveChildNodes(node_, String(name));
}

void Element::Text(std::string_view name, std::string_view value) { Child(name).Text(value); }
void Element::Money(std::string_view name, Currency value) { Text(name, FormatMoney(value)); }
void Element::Day(std::string_view name, Date value) { Text(name, Format(value, "yyyy-mm-dd")); }
void Element::Number(std::string_view name, Long value) { Text(name, ToText(value)); }
void Element::YesNo(std::string_view name, bool value) { Text(name, value ? "yes" : "no"); }

void Element::TextIf(bool condition, std::string_view name, std::string_view value) {
  if (condition) {
    Text(name, value);
  } else {
    Remove(name);
  }
}

void Element::OptionalText(std::string_view name, std::string_view value) {
  TextIf(!value.empty(), name, value);
}
void Element::OptionalMoney(std::string_view name, Currency value) {
  TextIf(!value.IsZero(), name, value.IsZero() ? String() : FormatMoney(value));
}
void Element::OptionalDay(std::string_view name, Date value) {
  TextIf(!value.IsZero(), name, value.IsZero() ? String() : Format(value, "yyyy-mm-dd"));
}
void Element::OptionalNumber(std::string_view name, Long value) {
  TextIf(value != 0, name, value == 0 ? String() : ToText(value));
}
void Element::Yes(std::string_view name, bool value) { TextIf(value, name, "yes"); }

void Element::Append(std::string_view name, std::string_view value) { node_.AppendElement(name).Text(value); }

}  // namespace zelnor
