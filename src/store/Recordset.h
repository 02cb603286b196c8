// A result set that one row at a time is looked at, and changed. Everything that lists or edits rows goes
// through it.
//
// A keyset recordset is live: opening it reads the row keys alone (8 bytes a row), and a row is fetched by
// its key when it is looked at, so that it shows what others have written. A static one is a snapshot. A
// forward one is read while it is walked, once, and must be closed in the procedure that opened it; the
// others leave no statement open.
//
// Columns are named in any letter case, and Null is distinct. All members throw Error.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "store/Connection.h"
#include "store/RecordsetFields.h"
#include "store/RowWriter.h"
#include "store/SelectStatement.h"

namespace vorlina {

enum class CursorType { Forward, Keyset, Static };
enum class LockType { ReadOnly, Optimistic };
enum class EditMode { None, InProgress, Add };

// A row as it was fetched, apart from the current one.
struct FetchedRow {
  qint64 bookmark = 0;
  bool exists = false;           // false where it was deleted meanwhile
  std::vector<QVariant> values;  // of the recordset's columns
};

class Recordset {
 public:
  Recordset();
  ~Recordset();
  Recordset(Recordset&&) noexcept;
  Recordset& operator=(Recordset&&) noexcept;

  // Opens a SELECT; "?" stands for each value. A keyset needs a plain SELECT on one table. It stands on the
  // first row.
  void Open(const QString& source, Connection& connection, CursorType cursor, LockType lock,
            const QVariantList& values = {});
  // Nothing happens when it is closed already; what is being edited is given up.
  void Close();
  bool IsOpen() const { return connection_ != nullptr; }
  // Reads the keys, or the snapshot, anew with its own source and stands on the first row. The filter stays.
  void Requery();
  const QString& Source() const { return source_; }

  // A second recordset over the same rows, with its own position and its own edits. Its first row is current.
  Recordset Clone() const;

  bool IsBOF() const;
  bool IsEOF() const;
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  // Not for a forward recordset, as all that follows until the fields.
  qint64 RecordCount() const;
  // Position of the current row, counted from 1. Setting one that does not exist stands at the end.
  qint64 AbsolutePosition() const;
  void SetAbsolutePosition(qint64 position);
  // Pages of PageSize rows, counted from 1. Setting a page stands on its first row.
  int PageSize() const { return pageSize_; }
  void SetPageSize(int rows);
  qint64 PageCount() const;
  qint64 AbsolutePage() const;
  void SetAbsolutePage(qint64 page);
  // What finds the current row again in this recordset, in its clones and after a requery.
  qint64 Bookmark() const;
  // Throws Error when the row is not there any more.
  void SetBookmark(qint64 bookmark);

  // Goes to the next row, skip rows on from the current one, whose column has the value, or to the end: past
  // the last row, or before the first one when walking back. Texts compare as the column does. True when one
  // was found.
  bool Find(const QString& column, const QVariant& value, int skip = 0, bool forward = true);
  // Shows only the rows whose column has the value, from the first on. Without arguments, all rows again.
  void SetFilter(const QString& column, const QVariant& value);
  void ClearFilter();
  // Reads the keys anew in the order of an SQL expression ("?" for each value), before the order of its own
  // source, and stands on the first row; a requery keeps it. "" is the source's order again. Where it fails,
  // all is as before.
  void SetOrder(const QString& expression, const QVariantList& values = {});

  // Rows of a keyset from a position on, counted from 1, read by one statement; the current row stays what it
  // is. Fewer where the recordset ends.
  std::vector<FetchedRow> FetchRows(qint64 position, int count) const;
  // The current row as it was read, without what was set in it since.
  FetchedRow CurrentFetched() const;
  // The bookmark at a position, and the position of a bookmark, without going there; 0 where there is none.
  qint64 BookmarkAt(qint64 position) const;
  qint64 PositionOf(qint64 bookmark) const;
  // Differs from an earlier answer once anybody has written to the database.
  qint64 ChangeMark() const;

  const RecordsetFields& Fields() const { return fields_; }
  // A column of the current row, or what was set in it since.
  QVariant Value(const QString& column) const;
  QVariant Value(int column) const;
  // Whether the current row is still in the database.
  bool RowExists() const;

  // Begins to change the current row, or goes on with it. An expression cannot be set, nor a counter of a row
  // that exists, nor a column of numbers to a text that is none.
  void SetValue(const QString& column, const QVariant& value);
  void SetValue(int column, const QVariant& value);
  // Begins a new row; its counter is known at once. A column that is not set gets the table's default.
  void AddNew();
  // Writes what was set. After a failure the row stays in edit. A row that was added is current, and the last
  // one.
  // A step given along runs with the row's bookmark once the row is written, in one transaction with it.
  void Update(const std::function<void(qint64 bookmark)>& within = {});
  void CancelUpdate();
  // Deletes the current row; MoveNext then goes to the one behind it. A new row that was not written is given
  // up.
  void Delete();
  // Deletes rows in one transaction, each after the step with its bookmark; a row that is gone already is
  // passed over. They stay in the list, as rows that somebody else deleted do, until DropRows takes them out.
  // What was being edited is given up.
  void DeleteRows(const std::vector<qint64>& rows, const std::function<void(qint64 bookmark)>& before);
  // Takes rows out of the list, not out of the database. The first row is current.
  void DropRows(std::vector<qint64> bookmarks);
  EditMode Editing() const { return editMode_; }

 private:
  using Row = std::vector<QVariant>;
  // The rows that a recordset and its clones share.
  struct Snapshot {
    std::vector<qint64> keys;
    std::vector<Row> rows;  // of a static recordset, beside the keys
    qint64 generation = 0;  // counts the rows added and deleted

    qint64 Count() const { return qint64(keys.size()); }
  };

  void Analyse();
  void Load();
  Row RowOf(const SQLite::Statement& statement, int first) const;
  QString KeyStatement() const;
  QVariantList KeyValues() const;
  QString OrderedTail() const;
  qint64 WriteRow(const std::function<void(qint64 bookmark)>& within);
  SQLite::Statement& BlockStatement() const;
  void FetchBlock(FetchedRow* rows, int count) const;
  std::vector<qint64> MatchingKeys(const QString& column, const QVariant& value) const;
  const Row& CurrentRow() const;
  std::optional<Row> FetchRow(qint64 key) const;
  qint64 CurrentKey() const;
  void RequireRow() const;
  void RequireUpdatable() const;
  void RequireScrolling() const;
  void RequireSearchable(const QString& column) const;
  void StandOn(qint64 index);
  void Relocate() const;
  std::vector<ColumnChange> Changes() const;

  Connection* connection_ = nullptr;
  QString source_;
  QVariantList values_;
  CursorType cursor_ = CursorType::Forward;
  LockType lock_ = LockType::ReadOnly;
  std::optional<SelectStatement> select_;
  RecordsetFields fields_;
  RowWriter writer_;
  int pageSize_ = 10;
  QString filterColumn_;  // base column
  QVariant filterValue_;
  QString order_;
  QVariantList orderValues_;

  std::shared_ptr<Snapshot> rows_;
  std::unique_ptr<Rows> forward_;
  bool forwardAtEnd_ = false;
  // Index of the current row; -1 before the first, the number of rows past the last.
  mutable qint64 index_ = -1;
  mutable qint64 generation_ = 0;
  mutable qint64 key_ = 0;  // of the current row, to find it again when a clone added or deleted rows
  bool deleted_ = false;    // the current row was deleted here; index_ is that of the row behind it
  mutable std::optional<Row> current_;

  EditMode editMode_ = EditMode::None;
  std::vector<std::optional<QVariant>> edits_;
  mutable std::shared_ptr<SQLite::Statement> rowStatement_;
  mutable std::shared_ptr<SQLite::Statement> blockStatement_;
};

}  // namespace vorlina
