#pragma once

#include "zelnor/platform/collection.h"
#include "zelnor/platform/values.h"

namespace zelnor {

/// What the records of failed rules share: which field failed, by which rule, and how severely. The first
/// failure of a field has its record in the validator's collection; further failures of the same field are
/// its inner exceptions.
class ZELNOR_API ErrorRecord {
 public:
  virtual ~ErrorRecord();

  /// Fills all fields. Without a collection the inner exceptions stay as they are.
  ///
  /// @param enmExStatus the severity, see Status
  void Create(String strSource, String strCode, String strTitle, String strDescription, String strFieldName,
              String strFieldValue, Integer enmExStatus,
              CollectionRef<ErrorRecord> colInnerExceptions = nullptr);

  /// The key of the failing field, and of the record in its collection: the words of the path to the field,
  /// joined by "_", such as "Company_ContactSurname".
  ///@{
  const String& Source() const { return source_; }
  void Source(String value) { source_ = std::move(value); }
  ///@}

  /// The rule's code, such as "E4.1.1".
  ///@{
  const String& Code() const { return code_; }
  void Code(String value) { code_ = std::move(value); }
  ///@}

  /// A short heading, such as "Mandatory".
  ///@{
  const String& Title() const { return title_; }
  void Title(String value) { title_ = std::move(value); }
  ///@}

  /// The full message for the person.
  ///@{
  const String& Description() const { return description_; }
  void Description(String value) { description_ = std::move(value); }
  ///@}

  /// The field's display name.
  ///@{
  const String& FieldName() const { return field_name_; }
  void FieldName(String value) { field_name_ = std::move(value); }
  ///@}

  /// The value that failed, as text; empty where the rule has none.
  ///@{
  const String& FieldValue() const { return field_value_; }
  void FieldValue(String value) { field_value_ = std::move(value); }
  ///@}

  /// Further failures of the same field, of the same class as this record. Empty in a new record.
  ///@{
  const CollectionRef<ErrorRecord>& InnerExceptions() const { return inner_exceptions_; }
  void InnerExceptions(CollectionRef<ErrorRecord> value) { inner_exceptions_ = std::move(value); }
  ///@}

  /// Adds a record to the inner exceptions, with its Source as the key; a missing collection is made. A
  /// failure, such as error 457 for a second record of one Source, is shown in the host's message box and
  /// goes on to the caller.
  void AddInnerException(const Ref<ErrorRecord>& excInnerException);

  /// The severity: 0 information, 1 minor, 2 warning, anything else critical.
  ///@{
  Integer Status() const { return status_; }
  void Status(Integer value) { status_ = value; }
  ///@}

 protected:
  /// @param class_name by which failures are reported
  explicit ErrorRecord(const char* class_name) : class_name_(class_name) {}

 private:
  const char* class_name_;
  String source_;
  String code_;
  String title_;
  String description_;
  String field_name_;
  String field_value_;
  CollectionRef<ErrorRecord> inner_exceptions_ = MakeCollection<ErrorRecord>();
  Integer status_ = 0;
};

/// "Information", "Minor", "Warning" or "Critical", for 0, 1, 2 and anything else.
ZELNOR_API String SeverityText(Integer status);

}  // namespace zelnor
