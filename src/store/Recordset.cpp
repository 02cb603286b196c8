#include "store/Recordset.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "store/Sqlite.h"

namespace vorlina {
namespace {

// One object of the column serves all rows: making it costs as much as many a step.
std::vector<qint64> ReadKeys(SQLite::Statement& statement) {
  std::vector<qint64> keys;
  if (!statement.executeStep()) return keys;
  const SQLite::Column key = statement.getColumn(0);
  do keys.push_back(key.getInt64());
  while (statement.executeStep());
  // Giving the rest back copies them all.
  if (keys.capacity() - keys.size() > keys.size() / 8) keys.shrink_to_fit();
  return keys;
}

}  // namespace

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

void Recordset::Open(const QString& source, Connection& connection, CursorType cursor, LockType lock,
                     const QVariantList& values) {
  Close();
  source_ = source;
  values_ = values;
  cursor_ = cursor;
  lock_ = lock;
  connection_ = &connection;
  try {
    Analyse();
    Load();
  } catch (...) {
    Close();
    throw;
  }
}

void Recordset::Close() {
  rowStatement_.reset();
  blockStatement_.reset();
  forward_.reset();
  rows_.reset();
  current_.reset();
  connection_ = nullptr;
  editMode_ = EditMode::None;
  edits_.clear();
  filterColumn_.clear();
  order_.clear();
  orderValues_.clear();
}

// What the prepared statement tells of its columns, and whether its rows are rows of one table.
void Recordset::Analyse() {
  select_.reset();
  writer_ = RowWriter();
  WithStoreErrors([&] { fields_.Read(connection_->Database(), source_); });
  if (cursor_ == CursorType::Forward) return;
  const QString table = fields_.Table();
  std::optional<SelectStatement> select = SelectStatement::Parse(source_);
  if (!table.isEmpty() && select && !select->list.contains(u'?')) {
    try {
      Prepare(connection_->Database(), u"SELECT rowid FROM "_qs + select->from);
      select_ = std::move(select);
      writer_ = RowWriter(*connection_, table);
    } catch (const SQLite::Exception&) {
      // Several tables, or a view: there is no key to a row.
    }
  }
  if (cursor_ == CursorType::Keyset && !select_)
    throw Error(
        EitherLanguage(u"L'interrogazione non è modificabile: %1"_qs, u"The query has no live rows: %1"_qs)
            .arg(source_));
}

Recordset::Row Recordset::RowOf(const SQLite::Statement& statement, int first) const {
  Row row;
  row.reserve(std::size_t(fields_.Count()));
  for (int i = 0; i < fields_.Count(); ++i)
    row.push_back(ColumnValue(statement, first + i, fields_.At(i).boolean));
  return row;
}

QString Recordset::KeyStatement() const {
  const QString filter = filterColumn_.isEmpty() ? QString() : QuoteName(filterColumn_) + u" IS ?"_qs;
  const QString where = select_->WhereAnd(filter);
  return u" FROM "_qs + select_->from + (where.isEmpty() ? QString() : u" WHERE "_qs + where) + u' ' +
         OrderedTail();
}

// The order that was set, and the source's own for rows that are equal in it.
QString Recordset::OrderedTail() const {
  if (order_.isEmpty()) return select_->tail;
  const QString by = u"ORDER BY"_qs;
  const bool ordered = select_->tail.startsWith(by, Qt::CaseInsensitive);
  return by + u' ' + order_ + (ordered ? u',' : u' ') +
         (ordered ? select_->tail.mid(by.size()) : select_->tail);
}

QVariantList Recordset::KeyValues() const {
  return (filterColumn_.isEmpty() ? values_ : values_ + QVariantList{filterValue_}) + orderValues_;
}

void Recordset::Load() {
  forward_.reset();
  forwardAtEnd_ = false;
  const auto rows = std::make_shared<Snapshot>();
  if (cursor_ == CursorType::Forward) {
    rows_ = rows;
    forward_ = std::make_unique<Rows>(*connection_, source_, values_);
    forwardAtEnd_ = !forward_->Next();
    return;
  }
  WithStoreErrors([&] {
    SQLite::Database& database = connection_->Database();
    const bool snapshot = cursor_ == CursorType::Static;
    const auto prepare = [&] {
      if (!select_) return Prepare(database, source_);
      if (snapshot) return Prepare(database, u"SELECT rowid, "_qs + select_->list + KeyStatement());
      try {
        return Prepare(database, u"SELECT rowid"_qs + KeyStatement());
      } catch (const SQLite::Exception&) {
        // The order names an alias of the list.
        return Prepare(database, u"SELECT rowid, "_qs + select_->list + KeyStatement());
      }
    };
    SQLite::Statement statement = prepare();
    BindValues(statement, select_ ? KeyValues() : values_);
    const int first = select_ ? 1 : 0;
    if (!snapshot) {
      rows->keys = ReadKeys(statement);
      return;
    }
    while (statement.executeStep()) {
      rows->keys.push_back(select_ ? statement.getColumn(0).getInt64() : rows->Count() + 1);
      rows->rows.push_back(RowOf(statement, first));
    }
    rows->keys.shrink_to_fit();
  });
  rows_ = rows;  // after a failure the former ones are still there
  generation_ = 0;
  StandOn(0);
}

void Recordset::Requery() {
  if (connection_ == nullptr)
    throw Error(EitherLanguage(u"L'elenco non è aperto: manca il database"_qs,
                               u"The list is not open: there is no database"_qs));
  CancelUpdate();
  Load();
}

Recordset Recordset::Clone() const {
  RequireScrolling();
  Recordset clone;
  clone.connection_ = connection_;
  clone.source_ = source_;
  clone.values_ = values_;
  clone.cursor_ = cursor_;
  clone.lock_ = lock_;
  clone.select_ = select_;
  clone.fields_ = fields_;
  clone.writer_ = writer_;
  clone.pageSize_ = pageSize_;
  clone.filterColumn_ = filterColumn_;
  clone.filterValue_ = filterValue_;
  clone.order_ = order_;
  clone.orderValues_ = orderValues_;
  clone.rows_ = rows_;
  clone.generation_ = rows_->generation;
  clone.StandOn(0);
  return clone;
}

void Recordset::RequireScrolling() const {
  if (connection_ == nullptr || cursor_ == CursorType::Forward)
    throw Error(EitherLanguage(u"L'elenco non è aperto"_qs, u"The list is not open"_qs));
}

void Recordset::RequireUpdatable() const {
  RequireScrolling();
  if (lock_ == LockType::ReadOnly || !select_)
    throw Error(EitherLanguage(u"L'elenco è di sola lettura"_qs, u"The list is read-only"_qs));
}

void Recordset::RequireRow() const {
  if (IsBOF() || IsEOF() || deleted_)
    throw Error(EitherLanguage(u"Nessuna riga è selezionata"_qs, u"There is no current row"_qs));
}

bool Recordset::IsBOF() const {
  if (cursor_ == CursorType::Forward) return forward_ == nullptr;
  if (rows_ == nullptr) return true;
  Relocate();
  return editMode_ != EditMode::Add && !deleted_ && (rows_->keys.empty() || index_ < 0);
}

bool Recordset::IsEOF() const {
  if (cursor_ == CursorType::Forward) return forward_ == nullptr || forwardAtEnd_;
  if (rows_ == nullptr) return true;
  Relocate();
  return editMode_ != EditMode::Add && !deleted_ && index_ >= rows_->Count();
}

// Where the current row stands after a clone added or deleted rows.
void Recordset::Relocate() const {
  if (generation_ == rows_->generation) return;
  generation_ = rows_->generation;
  const auto found = std::find(rows_->keys.begin(), rows_->keys.end(), key_);
  index_ = found != rows_->keys.end() ? found - rows_->keys.begin() : std::min(index_, rows_->Count());
  // What is in edit is written against the values it began with.
  if (found == rows_->keys.end() && editMode_ != EditMode::InProgress) current_.reset();
}

// Leaves the current row, which writes what was being edited, and stands on another.
void Recordset::StandOn(qint64 index) {
  if (editMode_ != EditMode::None) Update();
  deleted_ = false;
  current_.reset();
  index_ = std::clamp<qint64>(index, -1, rows_->Count());
  key_ = index_ >= 0 && index_ < rows_->Count() ? rows_->keys[std::size_t(index_)] : 0;
}

void Recordset::MoveFirst() {
  RequireScrolling();
  StandOn(0);
}

void Recordset::MoveLast() {
  RequireScrolling();
  StandOn(std::max<qint64>(rows_->Count() - 1, 0));
}

void Recordset::MoveNext() {
  if (cursor_ == CursorType::Forward && forward_ != nullptr) {
    forwardAtEnd_ = !forward_->Next();
    return;
  }
  RequireScrolling();
  Relocate();
  StandOn(deleted_ ? index_ : index_ + 1);
}

void Recordset::MovePrevious() {
  RequireScrolling();
  Relocate();
  StandOn(index_ - 1);
}

qint64 Recordset::RecordCount() const {
  RequireScrolling();
  return rows_->Count();
}

qint64 Recordset::AbsolutePosition() const {
  RequireScrolling();
  Relocate();
  return index_ + 1;
}

void Recordset::SetAbsolutePosition(qint64 position) {
  RequireScrolling();
  StandOn(position - 1);
}

void Recordset::SetPageSize(int rows) { pageSize_ = std::max(rows, 1); }

qint64 Recordset::PageCount() const { return (RecordCount() + pageSize_ - 1) / pageSize_; }

qint64 Recordset::AbsolutePage() const { return (AbsolutePosition() - 1) / pageSize_ + 1; }

void Recordset::SetAbsolutePage(qint64 page) { SetAbsolutePosition((page - 1) * pageSize_ + 1); }

qint64 Recordset::Bookmark() const {
  RequireRow();
  return CurrentKey();
}

void Recordset::SetBookmark(qint64 bookmark) {
  RequireScrolling();
  const auto found = std::find(rows_->keys.begin(), rows_->keys.end(), bookmark);
  if (found == rows_->keys.end())
    throw Error(EitherLanguage(u"La riga non è più nell'elenco"_qs, u"The row is no longer in the list"_qs));
  StandOn(found - rows_->keys.begin());
}

qint64 Recordset::CurrentKey() const {
  Relocate();
  return rows_->keys[std::size_t(index_)];
}

// The keys of the rows whose column has the value, in ascending order: one statement, whatever the number of
// rows.
std::vector<qint64> Recordset::MatchingKeys(const QString& column, const QVariant& value) const {
  const Field& field = fields_.At(fields_.IndexOf(column));
  const QString condition = QuoteName(field.column) + u" IS ?"_qs;
  return WithStoreErrors([&] {
    SQLite::Statement statement =
        Prepare(connection_->Database(),
                u"SELECT rowid FROM "_qs + select_->from + u" WHERE "_qs + select_->WhereAnd(condition));
    BindValues(statement, values_ + QVariantList{value});
    std::vector<qint64> keys = ReadKeys(statement);
    std::sort(keys.begin(), keys.end());
    return keys;
  });
}

bool Recordset::Find(const QString& column, const QVariant& value, int skip, bool forward) {
  RequireSearchable(column);
  const std::vector<qint64> keys = MatchingKeys(column, value);
  Relocate();
  const qint64 step = forward ? 1 : -1;
  qint64 index = index_ + skip * step;
  while (index >= 0 && index < rows_->Count() &&
         !std::binary_search(keys.begin(), keys.end(), rows_->keys[std::size_t(index)]))
    index += step;
  StandOn(index);
  return index >= 0 && index < rows_->Count();
}

void Recordset::SetFilter(const QString& column, const QVariant& value) {
  RequireSearchable(column);
  CancelUpdate();
  filterColumn_ = fields_.At(fields_.IndexOf(column)).column;
  filterValue_ = value;
  Load();
}

void Recordset::ClearFilter() {
  RequireScrolling();
  CancelUpdate();
  filterColumn_.clear();
  Load();
}

void Recordset::SetOrder(const QString& expression, const QVariantList& values) {
  RequireScrolling();
  if (!select_)
    throw Error(EitherLanguage(u"L'elenco non si può ordinare"_qs, u"The list cannot be sorted"_qs));
  CancelUpdate();
  const QString formerOrder = std::exchange(order_, expression);
  const QVariantList formerValues = std::exchange(orderValues_, values);
  try {
    Load();
  } catch (...) {
    order_ = formerOrder;
    orderValues_ = formerValues;
    throw;
  }
}

void Recordset::RequireSearchable(const QString& column) const {
  RequireScrolling();
  if (!select_ || fields_.At(fields_.IndexOf(column)).column.isEmpty())
    throw Error(
        EitherLanguage(u"Non si può cercare nella colonna %1"_qs, u"The column %1 cannot be searched"_qs)
            .arg(column));
}

}  // namespace vorlina
