#pragma once

/// @file
/// What all record classes share: the flag that the rules set and every change clears, reading by element
/// name, and writing in the order of a record's table.
///
/// @code
/// Element out = Element::Emptied("Starter", xmlParent);
/// out.OptionalDay("StartDate", start_date_);
/// out.Yes("StudentLoan", student_loan_);
/// out.Money("Amount", amount_);
/// return out.Node();
/// @endcode

#include "zelnor/platform/collection.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/formats.h"
#include "zelnor/platform/values.h"
#include "zelnor/platform/xml.h"

#include <utility>

namespace zelnor {

/// The base of all records.
class ZELNOR_API Record {
 public:
  virtual ~Record();

  /// Whether the rules have checked this record, and every child that it holds, since the last change.
  virtual bool Validated() const { return validated_; }

  /// For the validators, which mark a record as checked.
  ZELNOR_INTERNAL virtual void Validated(bool value) { validated_ = value; }

 protected:
  Record() = default;
  Record(const Record&) = default;
  Record& operator=(const Record&) = default;

  /// Stores a value; one that differs from the stored one clears the flag.
  template <class T>
  void Change(T& field, T value) {
    if (field == value) return;
    field = std::move(value);
    validated_ = false;
  }

  bool validated_ = false;
};

/// Clears a child's flag; nothing happens without a child.
template <class T>
void ClearValidated(const Ref<T>& child) {
  if (child) child->Validated(false);
}

/// Clears the flag of each member.
template <class T>
void ClearValidated(const CollectionRef<T>& children) {
  if (!children) return;
  for (const Ref<T>& child : *children) ClearValidated(child);
}

/// Whether a child is absent or validated.
template <class T>
bool AbsentOrValidated(const Ref<T>& child) {
  return !child || child->Validated();
}

/// Whether every member is validated; true for no collection.
template <class T>
bool AbsentOrValidated(const CollectionRef<T>& children) {
  if (!children) return true;
  for (const Ref<T>& child : *children) {
    if (!AbsentOrValidated(child)) return false;
  }
  return true;
}

/// The child, made and stored when absent.
template <class T>
const Ref<T>& MadeWhenAbsent(Ref<T>& child) {
  if (!child) child = std::make_shared<T>();
  return child;
}

/// A new record filled from a node. The record's own verdict on the node is ignored: one that refuses its
/// node stays as it was made.
template <class T>
Ref<T> NewFromXML(const XmlNode& node) {
  Ref<T> record = std::make_shared<T>();
  record->CreateFromXML(node);
  return record;
}

/// The first node of the parsed text, if it has this name; no object otherwise, and nothing is reported. A
/// text that begins with a declaration begins with that, and so has another first node.
ZELNOR_API XmlNode FirstNodeNamed(const String& strXML, std::string_view name);

/// The document element of the parsed text, if it has this name; no object otherwise, and nothing is
/// reported.
ZELNOR_API XmlNode DocumentElementNamed(const String& strXML, std::string_view name);

/// The ParseFromXML that all records share but those that take the document element: fills the record from
/// the text's first node, which must bear its name. Nothing is reported of a text that doesn't parse.
template <class T>
bool ParseFirstNode(T& record, std::string_view class_name, const String& strXML) {
  bool result = false;
  Handled(class_name, "Function ParseFromXML", [&] {
    const XmlNode node = FirstNodeNamed(strXML, record.RootElementName());
    result = node && record.CreateFromXML(node);
  });
  return result;
}

/// Whether the text is "yes" in any case.
ZELNOR_API bool IsYes(std::string_view text);

/// 1 gives "yes"; 0 and anything else, -1 among them, give "no".
ZELNOR_API String BoolToYesNo(Long value);

/// The date in the format; the default for a date earlier than 1 January 1901.
ZELNOR_API String FormatDateOrDefault(Date value, const String& strFormat, const String& strDefault);

/// The text with the first character of `strPadSample` behind it up to `intWidth` characters; a longer text
/// unchanged.
ZELNOR_API String PadRight(const String& strText, Integer intWidth, const String& strPadSample);

/// An element under the writer's hands. Each call writes one row of a record's table; single elements are
/// found or made, in the namespace that children of the element take.
class ZELNOR_API Element {
 public:
  /// Found or made under the parent, and written in place.
  static Element Single(std::string_view name, const XmlNode& parent);

  /// Found or made under the parent, and rid of its child elements.
  static Element Emptied(std::string_view name, const XmlNode& parent);

  /// Always new, behind the parent's other children: for a record that may repeat.
  static Element Appended(std::string_view name, const XmlNode& parent);

  /// An element at hand, rid of its child elements.
  static Element Reused(const XmlNode& node);

  /// The element itself.
  const XmlNode& Node() const { return node_; }

  /// Always written.
  void Text(std::string_view name, std::string_view value);
  void Money(std::string_view name, Currency value);  ///< "#0.00"
  void Day(std::string_view name, Date value);        ///< "yyyy-mm-dd"
  void Number(std::string_view name, Long value);
  void YesNo(std::string_view name, bool value);  ///< "yes" or "no"

  /// Written when there is something to write, else removed.
  void OptionalText(std::string_view name, std::string_view value);  ///< when not empty
  void OptionalMoney(std::string_view name, Currency value);         ///< when not zero
  void OptionalDay(std::string_view name, Date value);               ///< when not exactly the zero date
  void OptionalNumber(std::string_view name, Long value);            ///< when not zero
  void Yes(std::string_view name, bool value);                       ///< "yes" when True

  /// `value` when the condition holds, else removed.
  void TextIf(bool condition, std::string_view name, std::string_view value);

  /// A further element of a name that repeats.
  void Append(std::string_view name, std::string_view value);

  /// The child of that name, found or made.
  XmlNode Child(std::string_view name);

  /// Removes the children of that name.
  void Remove(std::string_view name);

  void Attribute(std::string_view name, std::string_view value) { node_.Attribute(name, value); }
  void AttributeYesNo(std::string_view name, bool value) { node_.Attribute(name, value ? "yes" : "no"); }

 private:
  Element(XmlNode node, bool fresh) : node_(std::move(node)), fresh_(fresh) {}

  XmlNode node_;
  bool fresh_;  // holds nothing but what this writer put in, so that there is nothing to find or to remove
};

}  // namespace zelnor
