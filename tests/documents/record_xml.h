#pragma once

/// @file
/// Short forms for tests that write and read records.

#include "zelnor/platform/xml.h"

#include <string_view>
#include <vector>

namespace zelnor::record_xml {

/// The empty document element of a new document.
inline XmlNode Root(std::string_view name = "Parent") { return XmlDocument().Node().AppendElement(name); }

/// The document element of a text; no object for a text that isn't well formed.
inline XmlNode Parsed(std::string_view text) {
  const XmlDocument document;
  return document.LoadXML(text) ? document.DocumentElement() : XmlNode();
}

/// What a record writes in a document of its own.
template <class T>
String Written(T& record) {
  return record.ToXML(Root()).Xml();
}

/// Lets a record read a text's document element.
template <class T>
bool Read(T& record, std::string_view text) {
  return record.CreateFromXML(Parsed(text));
}

/// The base names of a node's children, in order.
inline std::vector<String> ChildNames(const XmlNode& node) {
  std::vector<String> names;
  for (const XmlNode& child : node.ChildNodes()) names.emplace_back(child.BaseName());
  return names;
}

/// The text of the child of that name; "(absent)" when there is none.
inline String ChildText(const XmlNode& node, std::string_view name) {
  const XmlNode child = node.FindChild(name);
  return child ? child.Text() : "(absent)";
}

/// Texts without outer blanks that a careless writer or reader would change.
inline const std::vector<String>& AwkwardTexts() {
  static const std::vector<String> texts = {"plain",       "a & b",       "<tag> \"q\" 'a'", "]]>",
                                            "two  blanks", "line\nbreak", "é £ 漢 😀",        "&amp;",
                                            "0",           "-1.50"};
  return texts;
}

}  // namespace zelnor::record_xml
