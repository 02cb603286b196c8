// Changing rows through a recordset.
#include <sqlite3.h>

#include "base/Helpers.h"
#include "base/Language.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/RowSet.h"
#include "store/RowWriter.h"
#include "store/StoreError.h"

namespace vorlina {
namespace {

qint64 ChangesOf(const Connection& connection) { return sqlite3_total_changes64(connection.Handle()); }

}  // namespace

void Recordset::RequireWritable() const {
  RequireOpen();
  if (lock_ == LockType::ReadOnly || rows_ == nullptr)
    throw StoreError(StoreFault::Other, EitherLanguage(u"Questo recordset è stato aperto in sola lettura"_qs,
                                                       u"This recordset was opened for reading only"_qs));
  if (!source_->IsKeyed())
    throw StoreError(
        StoreFault::Other,
        EitherLanguage(u"Le righe di questa interrogazione non sono di una sola tabella: non si possono"
                       u" modificare né eliminare"_qs,
                       u"The rows of this query are not those of one table: they cannot be changed or"
                       u" deleted"_qs));
}

void Recordset::SetValue(const QString& field, const QVariant& value) {
  RequireWritable();
  const auto index = std::size_t(FieldIndex(field));
  const QVariant fitted = FittedValue(source_->Columns()[index], value);
  if (mode_ == EditMode::None) {
    edited_ = CurrentRow();
    changed_.assign(source_->Columns().size(), false);
    mode_ = EditMode::InProgress;
  }
  edited_[index] = fitted;
  changed_[index] = mode_ == EditMode::Add || !IsSameValue(fitted, (*current_)[index]);
}

void Recordset::AddNew() {
  RequireWritable();
  Update();
  Row row(source_->Columns().size(), NullValue());
  std::vector<bool> changed(row.size(), false);
  if (!source_->CounterColumn().isEmpty())
    for (std::size_t i = 0; i < row.size(); ++i)
      if (source_->Columns()[i].baseColumn.compare(source_->CounterColumn(), Qt::CaseInsensitive) == 0) {
        row[i] = qlonglong(connection_->ReserveCounter(source_->Table()));
        changed[i] = true;
        break;
      }
  edited_ = std::move(row);
  changed_ = std::move(changed);
  mode_ = EditMode::Add;
}

void Recordset::Update() {
  if (mode_ == EditMode::Add) Insert();
  if (mode_ == EditMode::InProgress) WriteChanges();
}

void Recordset::Insert() {
  const qint64 key = InsertRow(*source_, edited_, changed_);
  mode_ = EditMode::None;
  const qint64 index = rows_->Append(key);
  if (view_) view_->push_back(index);
  GoTo(RowCount() - 1);
}

void Recordset::WriteChanges() {
  const qint64 before = ChangesOf(*connection_);
  const qint64 index = CurrentIndex();
  const qint64 key = UpdateRow(*source_, rows_->Key(index), *current_, edited_, changed_);
  mode_ = EditMode::None;
  current_.reset();
  if (ChangesOf(*connection_) != before) rows_->RowWritten(index, key, before);
}

void Recordset::CancelUpdate() {
  mode_ = EditMode::None;
  edited_.clear();
  changed_.clear();
}

void Recordset::Delete() {
  RequireWritable();
  const bool wasNew = mode_ == EditMode::Add;
  CancelUpdate();
  if (wasNew) return;
  const Row row = CurrentRow();
  const qint64 index = CurrentIndex();
  const qint64 before = ChangesOf(*connection_);
  DeleteRow(*source_, rows_->Key(index), row);
  rows_->MarkDeleted(index);
  rows_->RowWritten(index, rows_->Key(index), before);
  if (!view_) {
    view_.emplace();
    for (qint64 i = 0; i < rows_->Count(); ++i)
      if (i == index || !rows_->IsDeleted(i)) view_->push_back(i);
  }
  position_ = PositionOf(index);
  view_->erase(view_->begin() + position_);
  onDeleted_ = true;
  current_.reset();
}

}  // namespace vorlina
