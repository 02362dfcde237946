#pragma once

/// @file
/// What the tests of records share: reading one from text, having one write itself, and the two rules that
/// hold for every field.

#include "zelnor/common/record.h"
#include "zelnor/platform/xml.h"

#include <memory>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

namespace zelnor::test {

/// The document element of the text. Fails the test when it isn't well formed.
inline XmlNode Root(const String& xml) {
  const XmlDocument document;
  EXPECT_TRUE(document.LoadXML(xml)) << document.ParseError().reason;
  return document.DocumentElement();
}

/// A new record filled from the text. Fails the test when the record refuses it.
template <class T>
std::shared_ptr<T> Read(const String& xml) {
  auto record = std::make_shared<T>();
  EXPECT_TRUE(record->CreateFromXML(Root(xml))) << xml;
  return record;
}

/// What the record writes under an empty parent.
template <class T>
String Written(T& record) {
  return record.ToXML(Root("<Parent/>")).Xml();
}

/// What the record makes of a parent that holds something already.
template <class T>
String ParentAfterWriting(T& record, const String& parent_xml) {
  const XmlNode parent = Root(parent_xml);
  record.ToXML(parent);
  return parent.Xml();
}

/// Lets a record read the document element of the text, and returns its verdict.
template <class T>
bool ReadInto(T& record, const String& xml) {
  return record.CreateFromXML(Root(xml));
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

/// Texts without outer white space that a field must bring through a document.
inline const std::vector<String>& TextsThatComeBack() {
  static const std::vector<String> texts = {"a",
                                            "0",
                                            "two  inner   blanks",
                                            "a & b < c > d \"e\" 'f'",
                                            "]]>",
                                            "&amp;",
                                            "<Line>x</Line>",
                                            "Zo\xC3\xAB \xCE\xA9\xCE\xBC",
                                            "\xF0\x9D\x94\x98",
                                            "first\nsecond"};
  return texts;
}

/// Each of those texts, set in the field and written, is read again.
template <class T, class Arg>
void ExpectTextComesBack(void (T::*set)(Arg), String (T::*get)() const) {
  for (const String& text : TextsThatComeBack()) {
    T record;
    (record.*set)(text);
    T again;
    EXPECT_TRUE(again.CreateFromXML(Root(Written(record))));
    EXPECT_EQ((again.*get)(), text);
  }
}

/// A write of the stored value leaves Validated, a write of another clears it, and both store the value.
template <class T, class Arg, class Value>
void ExpectChangeClearsValidated(void (T::*set)(Arg), Value (T::*get)() const, const Value& one,
                                 const Value& other) {
  T record;
  (record.*set)(one);
  EXPECT_EQ((record.*get)(), one);
  record.Validated(true);
  (record.*set)(one);
  EXPECT_TRUE(record.Validated());
  (record.*set)(other);
  EXPECT_FALSE(record.Validated());
  EXPECT_EQ((record.*get)(), other);
}

/// The same for a field of text.
template <class T, class Arg>
void ExpectTextChangeClearsValidated(void (T::*set)(Arg), String (T::*get)() const) {
  ExpectChangeClearsValidated<T, Arg, String>(set, get, "one", "other");
}

}  // namespace zelnor::test
