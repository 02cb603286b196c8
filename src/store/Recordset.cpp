#include "store/Recordset.h"

#include <sqlite3.h>

#include <algorithm>

#include "base/Helpers.h"
#include "base/Language.h"
#include "store/Query.h"
#include "store/RowSet.h"
#include "store/StoreError.h"

namespace vorlina {
namespace {

[[noreturn]] void Throw(StoreFault fault, const QString& italian, const QString& english) {
  throw StoreError(fault, EitherLanguage(italian, english));
}

[[noreturn]] void ThrowNoCurrentRow() {
  Throw(StoreFault::NoCurrentRow, u"Nessuna riga corrente"_qs, u"There is no current row"_qs);
}

[[noreturn]] void ThrowDeleted() {
  Throw(StoreFault::RowDeleted, u"La riga corrente è stata eliminata"_qs,
        u"The current row has been deleted"_qs);
}

}  // namespace

Recordset::Recordset() = default;
Recordset::~Recordset() = default;

void Recordset::Open(const QString& source, Connection& connection, CursorType cursor, LockType lock,
                     const QVariantList& values) {
  Close();
  connection_ = &connection;
  auto opened = std::make_shared<const RecordsetSource>(connection, source, values);
  cursor_ = cursor;
  lock_ = lock;
  text_ = source;
  source_ = std::move(opened);
  try {
    ReadRows();
  } catch (...) {
    Close();
    throw;
  }
}

void Recordset::Close() {
  CancelUpdate();
  forward_.reset();
  rows_.reset();
  source_.reset();
  current_.reset();
  view_.reset();
  filter_.clear();
  filterValues_.clear();
  sortColumn_ = -1;
  onDeleted_ = false;
}

void Recordset::ReadRows() {
  current_.reset();
  onDeleted_ = false;
  position_ = 0;
  if (cursor_ == CursorType::Forward) {
    forward_ = std::make_unique<Query>(*connection_, source_->Text(), source_->Values());
    forwardEnded_ = !forward_->Next();
    return;
  }
  if (cursor_ == CursorType::Keyset && source_->IsKeyed())
    rows_ = std::make_shared<KeysetRows>(source_);
  else
    rows_ = std::make_shared<StaticRows>(source_);
  ApplyView();
}

void Recordset::Requery() {
  RequireOpen();
  CancelUpdate();
  ReadRows();
}

void Recordset::Refresh() {
  RequireOpen();
  CancelUpdate();
  current_.reset();
  if (rows_ != nullptr) rows_->Refresh();
}

std::unique_ptr<Recordset> Recordset::Clone() const {
  RequireOpen();
  if (IsForward())
    Throw(StoreFault::Other, u"Un recordset in sola avanzata non si può clonare"_qs,
          u"A forward recordset cannot be cloned"_qs);
  auto clone = std::make_unique<Recordset>();
  clone->connection_ = connection_;
  clone->text_ = text_;
  clone->cursor_ = cursor_;
  clone->lock_ = lock_;
  clone->source_ = source_;
  clone->rows_ = rows_;
  clone->pageSize_ = pageSize_;
  clone->ApplyView();
  return clone;
}

void Recordset::RequireOpen() const {
  if (source_ == nullptr)
    Throw(StoreFault::Other, u"Il recordset è chiuso"_qs, u"The recordset is closed"_qs);
}

const std::vector<RecordsetColumn>& Recordset::Columns() const {
  RequireOpen();
  return source_->Columns();
}

QStringList Recordset::FieldNames() const {
  QStringList names;
  for (const RecordsetColumn& column : Columns()) names += column.name;
  return names;
}

int Recordset::FieldIndex(const QString& field) const {
  RequireOpen();
  const int index = source_->IndexOf(field);
  if (index < 0)
    throw StoreError(StoreFault::Other,
                     EitherLanguage(u"La colonna %1 non esiste"_qs, u"There is no column %1"_qs).arg(field));
  return index;
}

QString Recordset::BaseTable(const QString& field) const {
  return Columns()[std::size_t(FieldIndex(field))].baseTable;
}

QString Recordset::BaseColumn(const QString& field) const {
  return Columns()[std::size_t(FieldIndex(field))].baseColumn;
}

const Row& Recordset::CurrentRow() {
  RequireOpen();
  if (IsBOF() || IsEOF()) ThrowNoCurrentRow();
  if (onDeleted_) ThrowDeleted();
  const qint64 changes = sqlite3_total_changes64(connection_->Handle());
  if (mode_ == EditMode::None && changes != currentChanges_) current_.reset();
  if (!current_) {
    const Row* row = rows_->At(CurrentIndex(), [this] { return Around(position_); });
    if (row == nullptr) ThrowDeleted();
    current_ = *row;
    currentChanges_ = changes;
  }
  return *current_;
}

QVariant Recordset::Presented(int field, const QVariant& stored) const {
  const bool asBool = source_->Columns()[std::size_t(field)].isBoolean && !stored.isNull();
  return asBool ? QVariant(stored.toDouble() != 0) : stored;
}

QVariant Recordset::Value(const QString& field) { return Value(FieldIndex(field)); }

QVariant Recordset::Value(int field) {
  RequireOpen();
  if (IsForward()) return forward_->Value(field);
  if (field < 0 || std::size_t(field) >= Columns().size())
    Throw(StoreFault::Other, u"La colonna richiesta non esiste"_qs, u"There is no such column"_qs);
  const Row& row = mode_ == EditMode::None ? CurrentRow() : edited_;
  return Presented(field, row[std::size_t(field)]);
}

QVariant Recordset::OriginalValue(const QString& field) {
  const int index = FieldIndex(field);
  if (IsForward()) return forward_->Value(index);
  return mode_ == EditMode::Add ? NullValue() : Presented(index, CurrentRow()[std::size_t(index)]);
}

RowStatus Recordset::Status() {
  RequireOpen();
  if (IsBOF() || IsEOF()) return RowStatus::None;
  if (IsForward() || mode_ == EditMode::Add) return RowStatus::Present;
  try {
    CurrentRow();
    return RowStatus::Present;
  } catch (const StoreError& error) {
    if (error.Fault() != StoreFault::RowDeleted) throw;
    return RowStatus::Deleted;
  }
}

}  // namespace vorlina
