#include "store/Recordset.h"

#include <algorithm>

#include "base/Error.h"
#include "base/Texts.h"
#include "store/RowErrors.h"
#include "store/Transaction.h"

namespace vorlina {

void Recordset::Open(const KeysetQuery& query, Connection& connection) {
  Close();
  reader_ = std::make_shared<RowReader>(connection, query);
  keys_ = Keyset(connection, query);
  writer_ = RowWriter(connection, query.table);
  connection_ = &connection;
  StandOn(0);
}

void Recordset::Close() { *this = Recordset(); }

void Recordset::RequireOpen() const {
  if (!IsOpen()) throw Error(Texts::tr("L'elenco non è aperto: manca il database"));
}

void Recordset::Requery() {
  RequireOpen();
  CancelUpdate();
  keys_.Load();
  StandOn(0);
}

Recordset Recordset::Clone() const {
  RequireOpen();
  Recordset clone = *this;
  clone.edit_.Cancel();
  clone.StandOn(0);
  return clone;
}

void Recordset::SetOrder(const QString& expression, const QVariantList& values) {
  RequireOpen();
  CancelUpdate();
  keys_.SetOrder(expression, values);
  StandOn(0);
}

bool Recordset::IsEOF() const {
  Relocate();
  return Editing() != EditMode::Add && index_ >= keys_.Count();
}

// Leaves the current row, which writes what was being edited, and stands on another.
void Recordset::StandOn(qint64 index) {
  Update();
  current_.reset();
  index_ = std::clamp<qint64>(index, 0, keys_.Count());
  key_ = keys_.At(index_);
}

// Where the current row stands after a clone added or dropped rows.
void Recordset::Relocate() const {
  if (keys_.At(index_) == key_) return;
  const qint64 found = keys_.IndexOf(key_);
  index_ = found >= 0 ? found : keys_.Count();
}

void Recordset::MoveNext() {
  RequireOpen();
  Relocate();
  StandOn(index_ + 1);
}

qint64 Recordset::RecordCount() const {
  RequireOpen();
  return keys_.Count();
}

void Recordset::SetAbsolutePosition(qint64 position) {
  RequireOpen();
  StandOn(position - 1);
}

qint64 Recordset::BookmarkAt(qint64 position) const { return keys_.At(position - 1); }

qint64 Recordset::PositionOf(qint64 bookmark) const { return keys_.IndexOf(bookmark) + 1; }

qint64 Recordset::Find(const QString& column, const QVariant& value) const {
  return keys_.Find(Fields().At(Fields().IndexOf(column)).column, value) + 1;
}

std::vector<FetchedRow> Recordset::FetchRows(qint64 position, int count) const {
  RequireOpen();
  std::vector<FetchedRow> rows;
  const qint64 end = std::min(position + count, keys_.Count() + 1);
  for (qint64 i = position; i < end; ++i) rows.push_back({BookmarkAt(i), false, {}});
  reader_->Read(rows);
  return rows;
}

FieldReader Recordset::Reader(const std::vector<int>& columns) const {
  QStringList names;
  for (const int column : columns) names += Fields().At(column).column;
  return {*connection_, reader_->Table(), names};
}

qint64 Recordset::ChangeMark() const {
  RequireOpen();
  return connection_->ChangeMark();
}

const RecordsetFields& Recordset::Fields() const {
  RequireOpen();
  return reader_->Fields();
}

const Row& Recordset::CurrentRow() const {
  if (Editing() != EditMode::None) return edit_.Before();
  if (IsEOF()) throw Error(Texts::tr("Nessuna riga è selezionata"));
  if (!current_ && !RowExists()) throw ConflictError::Deleted();
  return *current_;
}

bool Recordset::RowExists() const {
  if (IsEOF()) return false;
  current_ = reader_->Read(key_);
  return current_.has_value();
}

QVariant Recordset::Value(int column) const {
  const std::optional<QVariant> edited = edit_.Value(column);
  return edited ? *edited : CurrentRow()[std::size_t(column)];
}

void Recordset::SetValue(int column, const QVariant& value) {
  const Field& field = Fields().At(column);
  if (field.column.isEmpty() || (field.counter && Editing() != EditMode::Add))
    throw Error(Texts::tr("La colonna %1 non è modificabile").arg(field.name));
  const QVariant fitted = Fields().Fitted(column, value);
  if (Editing() == EditMode::None) edit_.BeginChange(key_, CurrentRow());
  edit_.Set(column, fitted);
}

void Recordset::AddNew() {
  RequireOpen();
  Update();
  edit_.BeginNew(Fields(), writer_);
}

void Recordset::Update(const std::function<void(qint64 bookmark)>& within) {
  if (Editing() == EditMode::None) return;
  const bool added = Editing() == EditMode::Add;
  const qint64 key = edit_.Write(Fields(), writer_, within);
  current_.reset();
  if (!added) return;
  keys_.Append(key);
  StandOn(keys_.Count() - 1);
}

void Recordset::CancelUpdate() {
  edit_.Cancel();
  current_.reset();
}

void Recordset::DeleteRows(const std::vector<qint64>& bookmarks) {
  RequireOpen();
  CancelUpdate();
  Transaction transaction(*connection_);
  for (const qint64 bookmark : bookmarks) {
    if (reader_->Read(bookmark)) writer_.Delete(bookmark);
  }
  transaction.Commit();
}

void Recordset::DropRows(const std::vector<qint64>& bookmarks) {
  RequireOpen();
  CancelUpdate();
  keys_.Drop(bookmarks);
  StandOn(0);
}

}  // namespace vorlina
