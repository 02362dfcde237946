#pragma once

#include "zelnor/platform/collection.h"
#include "zelnor/platform/values.h"

namespace zelnor {

/// What the records of failed rules share: which field failed, by which rule, and how severely.
class ZELNOR_API ErrorRecord {
 public:
  virtual ~ErrorRecord();

  /// The key of the failing field, and of the record in its collection.
  ///@{
  String Source() const { return source_; }
  void Source(String value) { source_ = std::move(value); }
  ///@}

  /// The rule's code, such as "E4.1.1".
  ///@{
  String Code() const { return code_; }
  void Code(String value) { code_ = std::move(value); }
  ///@}

  /// A short heading, such as "Mandatory".
  ///@{
  String Title() const { return title_; }
  void Title(String value) { title_ = std::move(value); }
  ///@}

  /// The full message for the person.
  ///@{
  String Description() const { return description_; }
  void Description(String value) { description_ = std::move(value); }
  ///@}

  /// The field's display name.
  ///@{
  String FieldName() const { return field_name_; }
  void FieldName(String value) { field_name_ = std::move(value); }
  ///@}

  /// The value that failed, as text; empty where the rule has none.
  ///@{
  String FieldValue() const { return field_value_; }
  void FieldValue(String value) { field_value_ = std::move(value); }
  ///@}

  /// The severity: 0 information, 1 minor, 2 warning, anything else critical.
  ///@{
  Integer Status() const { return status_; }
  void Status(Integer value) { status_ = value; }
  ///@}

 protected:
  ErrorRecord() = default;

 private:
  String source_;
  String code_;
  String title_;
  String description_;
  String field_name_;
  String field_value_;
  Integer status_ = 0;
};

}  // namespace zelnor
