// The values of a recordset's current row, and how they are changed.
#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "store/Recordset.h"
#include "store/Sqlite.h"
#include "store/Transaction.h"

namespace vorlina {

std::optional<Recordset::Row> Recordset::FetchRow(qint64 key) const {
  return WithStoreErrors([&]() -> std::optional<Row> {
    if (rowStatement_ == nullptr)
      rowStatement_ = std::make_shared<SQLite::Statement>(
          Prepare(connection_->Database(),
                  u"SELECT "_qs + select_->list + u" FROM "_qs + select_->from + u" WHERE rowid=?"_qs));
    SQLite::Statement& statement = *rowStatement_;
    struct Reset {
      SQLite::Statement& statement;
      ~Reset() { statement.tryReset(); }
    } const reset{statement};
    statement.bind(1, static_cast<int64_t>(key));
    if (!statement.executeStep()) return {};
    return RowOf(statement, 0);
  });
}

const Recordset::Row& Recordset::CurrentRow() const {
  RequireRow();
  Relocate();
  if (cursor_ == CursorType::Static) return rows_->rows[std::size_t(index_)];
  if (!current_) current_ = FetchRow(CurrentKey());
  if (!current_)
    throw Error(EitherLanguage(
        u"La riga è stata eliminata nel frattempo da un'altra finestra o da un altro programma."_qs,
        u"The row was deleted meanwhile by another window or program."_qs));
  return *current_;
}

bool Recordset::RowExists() const {
  RequireRow();
  if (!select_) return true;
  current_ = FetchRow(CurrentKey());
  return current_.has_value();
}

QVariant Recordset::Value(const QString& column) const { return Value(fields_.IndexOf(column)); }

QVariant Recordset::Value(int column) const {
  if (cursor_ == CursorType::Forward) {
    RequireRow();
    return forward_->Value(column);
  }
  const bool edited = editMode_ != EditMode::None && edits_[std::size_t(column)].has_value();
  if (edited) return *edits_[std::size_t(column)];
  return editMode_ == EditMode::Add ? NullValue() : CurrentRow()[std::size_t(column)];
}

void Recordset::SetValue(const QString& column, const QVariant& value) {
  SetValue(fields_.IndexOf(column), value);
}

void Recordset::SetValue(int column, const QVariant& value) {
  RequireUpdatable();
  const Field& field = fields_.At(column);
  const bool counter = field.column == writer_.Counter() && !field.column.isEmpty();
  if (field.column.isEmpty() || (counter && editMode_ != EditMode::Add))
    throw Error(EitherLanguage(u"La colonna %1 non è modificabile"_qs, u"The column %1 cannot be changed"_qs)
                    .arg(field.name));
  const QVariant fitted = fields_.Fitted(column, value);
  if (editMode_ == EditMode::None) {
    CurrentRow();
    edits_.assign(std::size_t(fields_.Count()), {});
    editMode_ = EditMode::InProgress;
  }
  edits_[std::size_t(column)] = fitted;
}

void Recordset::AddNew() {
  RequireUpdatable();
  if (editMode_ != EditMode::None) Update();
  edits_.assign(std::size_t(fields_.Count()), {});
  editMode_ = EditMode::Add;
  deleted_ = false;
  const int counter = fields_.IndexOfColumn(writer_.Counter());
  if (counter < 0) return;
  try {
    edits_[std::size_t(counter)] = writer_.ReserveNumber();
  } catch (...) {
    CancelUpdate();
    throw;
  }
}

std::vector<ColumnChange> Recordset::Changes() const {
  std::vector<ColumnChange> changes;
  for (int i = 0; i < fields_.Count(); ++i) {
    const std::optional<QVariant>& edit = edits_[std::size_t(i)];
    if (!edit) continue;
    changes.push_back({fields_.At(i).column, *edit,
                       editMode_ == EditMode::Add ? NullValue() : CurrentRow()[std::size_t(i)]});
  }
  return changes;
}

// Writes the row in edit and runs the step behind it, both or nothing. Gives the row's key.
qint64 Recordset::WriteRow(const std::function<void(qint64 bookmark)>& within) {
  const std::vector<ColumnChange> changes = Changes();
  Transaction transaction(*connection_);
  const qint64 key = editMode_ == EditMode::Add ? writer_.Insert(changes) : key_;
  if (editMode_ == EditMode::InProgress) writer_.Update(key, changes);
  if (within) within(key);
  transaction.Commit();
  return key;
}

void Recordset::Update(const std::function<void(qint64 bookmark)>& within) {
  if (editMode_ == EditMode::None) return;
  const qint64 key = WriteRow(within);
  if (std::exchange(editMode_, EditMode::None) == EditMode::Add) {
    rows_->keys.push_back(key);
    if (cursor_ == CursorType::Static) rows_->rows.push_back(FetchRow(key).value_or(Row()));
    generation_ = ++rows_->generation;
    StandOn(rows_->Count() - 1);
    return;
  }
  current_.reset();
  if (cursor_ == CursorType::Static) rows_->rows[std::size_t(index_)] = FetchRow(key).value_or(Row());
}

void Recordset::CancelUpdate() {
  editMode_ = EditMode::None;
  edits_.clear();
  current_.reset();
}

void Recordset::Delete() {
  RequireUpdatable();
  RequireRow();
  if (editMode_ == EditMode::Add) return CancelUpdate();
  CancelUpdate();
  Transaction transaction(*connection_);
  writer_.Delete(CurrentKey());
  transaction.Commit();
  rows_->keys.erase(rows_->keys.begin() + index_);
  if (cursor_ == CursorType::Static) rows_->rows.erase(rows_->rows.begin() + index_);
  generation_ = ++rows_->generation;
  deleted_ = true;
}

}  // namespace vorlina
