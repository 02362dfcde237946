#pragma once

#include "zelnor/platform/values.h"

#include <memory>
#include <vector>

namespace zelnor {

/// A table of texts with named fields, rows and a cursor.
///
/// The cursor stands on a row, before the first or behind the last. Reading a value where there is no row
/// raises error 5, and so does a field that isn't there; a write to a read-only table raises error 70.
///
/// @code
/// const Ref<Recordset> errors = rti.ProcessingLog()->GetAsRecordset();
/// for (errors->MoveFirst(); !errors->IsAtEnd(); errors->MoveNext()) {
///   std::cout << errors->Value("EmployeeName") << ": " << errors->Value("Description") << "\n";
/// }
/// @endcode
class ZELNOR_API Recordset {
 public:
  /// An empty table without fields.
  Recordset();

  /// Adds a field behind the others. Error 457 for a name that is there already, ignoring case; error 5 once
  /// the table has rows.
  void AddField(const String& name);

  /// The names of the fields, in order.
  const std::vector<String>& Fields() const;

  /// The number of rows.
  Long RecordCount() const;

  /// Adds a row of empty texts at the end and stands on it.
  void AddNew();

  /// The value of a field on the current row; fields are found ignoring case.
  ///@{
  String Value(std::string_view field) const;
  void Value(std::string_view field, const String& value);
  ///@}

  /// The value of the field at a position from 0 on the current row.
  ///@{
  String ValueAt(Long position) const;
  void ValueAt(Long position, const String& value);
  ///@}

  /// Where the cursor stands; both are True for a table without rows.
  ///@{
  bool IsAtBeginning() const;  ///< before the first row
  bool IsAtEnd() const;        ///< behind the last row
  ///@}

  /// Moves the cursor. MovePrevious before the first row and MoveNext behind the last do nothing.
  ///@{
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  ///@}

  /// The same rows, shared, behind a cursor of their own, which stands on the first of them. Nothing can be
  /// written through it.
  std::shared_ptr<Recordset> ReadOnlyClone() const;

  /// Whether writing is refused.
  bool IsReadOnly() const { return read_only_; }

 private:
  struct Table {
    std::vector<String> fields;
    std::vector<std::vector<String>> rows;
  };

  Long CountOfRows() const { return static_cast<Long>(table_->rows.size()); }
  std::vector<String>& CurrentRow() const;
  std::size_t PositionOf(std::string_view field) const;
  void RefuseIfReadOnly() const;

  std::shared_ptr<Table> table_;
  Long row_ = 0;  // from 1; 0 before the first, one more than the count behind the last
  bool read_only_ = false;
};

}  // namespace zelnor
