#include "zelnor/common/recordset.h"

#include "zelnor/platform/failure.h"
#include "zelnor/platform/text.h"

#include <algorithm>

namespace zelnor {
namespace {

constexpr Long kPermissionDenied = 70;

}  // namespace

Recordset::Recordset() : table_(std::make_shared<Table>()) {}

void Recordset::AddField(const String& name) {
  RefuseIfReadOnly();
  if (!table_->rows.empty()) ThrowInvalidArgument();
  const auto same = [&](const String& field) { return EqualIgnoringCase(field, name); };
  if (std::any_of(table_->fields.begin(), table_->fields.end(), same)) ThrowDuplicateKey();
  table_->fields.push_back(name);
}

const std::vector<String>& Recordset::Fields() const { return table_->fields; }

Long Recordset::RecordCount() const { return CountOfRows(); }

void Recordset::AddNew() {
  RefuseIfReadOnly();
  table_->rows.emplace_back(table_->fields.size());
  row_ = CountOfRows();
}

String Recordset::Value(std::string_view field) const { return CurrentRow()[PositionOf(field)]; }
void Recordset::Value(std::string_view field, const String& value) {
  RefuseIfReadOnly();
  CurrentRow()[PositionOf(field)] = value;
}

String Recordset::ValueAt(Long position) const {
  const std::vector<String>& row = CurrentRow();
  if (position < 0 || static_cast<std::size_t>(position) >= row.size()) ThrowInvalidArgument();
  return row[static_cast<std::size_t>(position)];
}
void Recordset::ValueAt(Long position, const String& value) {
  RefuseIfReadOnly();
  std::vector<String>& row = CurrentRow();
  if (position < 0 || static_cast<std::size_t>(position) >= row.size()) ThrowInvalidArgument();
  row[static_cast<std::size_t>(position)] = value;
}

bool Recordset::IsAtBeginning() const { return row_ == 0 || table_->rows.empty(); }
bool Recordset::IsAtEnd() const { return row_ > CountOfRows() || table_->rows.empty(); }

void Recordset::MoveFirst() { row_ = table_->rows.empty() ? 0 : 1; }
void Recordset::MoveLast() { row_ = CountOfRows(); }
void Recordset::MoveNext() { row_ = std::min(row_ + 1, CountOfRows() + 1); }
void Recordset::MovePrevious() { row_ = std::max(row_ - 1, Long{0}); }

std::shared_ptr<Recordset> Recordset::ReadOnlyClone() const {
  auto clone = std::make_shared<Recordset>();
  clone->table_ = table_;
  clone->read_only_ = true;
  clone->MoveFirst();
  return clone;
}

std::vector<String>& Recordset::CurrentRow() const {
  if (row_ < 1 || row_ > CountOfRows()) ThrowInvalidArgument();
  return table_->rows[static_cast<std::size_t>(row_ - 1)];
}

std::size_t Recordset::PositionOf(std::string_view field) const {
  for (std::size_t position = 0; position < table_->fields.size(); ++position) {
    if (EqualIgnoringCase(table_->fields[position], field)) return position;
  }
  ThrowInvalidArgument();
}

void Recordset::RefuseIfReadOnly() const {
  if (read_only_) throw RuntimeError(kPermissionDenied);
}

}  // namespace zelnor
