// The rows of a query that one at a time is looked at, and changed. Everything that lists or edits rows goes
// through it.
//
// It is live: opening it reads the row keys alone (Keyset), and a row is fetched by its key when it is looked
// at (RowReader), so that it shows what others have written. No statement stays open.
//
// Columns are named in any letter case, and Null is distinct. All members throw Error.
#pragma once

#include <QString>
#include <QVariant>
#include <QVariantList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "store/Connection.h"
#include "store/FieldReader.h"
#include "store/Keyset.h"
#include "store/RowEdit.h"
#include "store/RowReader.h"
#include "store/RowWriter.h"

namespace vorlina {

class Recordset {
 public:
  Recordset() = default;
  Recordset(Recordset&&) = default;
  Recordset& operator=(Recordset&&) = default;

  // Stands on the first row.
  void Open(const KeysetQuery& query, Connection& connection);
  // Nothing happens when it is closed already; what is being edited is given up.
  void Close();
  bool IsOpen() const { return connection_ != nullptr; }
  // Reads the keys anew and stands on the first row.
  void Requery();
  // A second recordset over the same rows, with its own position and its own edits. Its first row is current.
  Recordset Clone() const;
  // Reads the keys anew in the order of an SQL expression ("?" for each value), before the order of its own
  // query, and stands on the first row; a requery keeps it. "" is the query's order again. Where it fails,
  // all is as before.
  void SetOrder(const QString& expression, const QVariantList& values = {});

  // Past the last row.
  bool IsEOF() const;
  void MoveFirst() { SetAbsolutePosition(1); }
  void MoveNext();
  qint64 RecordCount() const;
  // Counted from 1. One that does not exist stands at the end.
  void SetAbsolutePosition(qint64 position);
  // The bookmark at a position finds its row again in this recordset, in its clones and after a requery; 0
  // where there is none.
  qint64 BookmarkAt(qint64 position) const;
  qint64 PositionOf(qint64 bookmark) const;
  // The position of the first row whose column has the value, as the column compares; 0 for none.
  qint64 Find(const QString& column, const QVariant& value) const;

  // Rows from a position on, read by one statement; the current row stays what it is. Fewer where the
  // recordset ends.
  std::vector<FetchedRow> FetchRows(qint64 position, int count) const;
  // Reads columns of these rows, and of others of their table, for whoever looks through many. An expression
  // cannot be read. Throws Error.
  FieldReader Reader(const std::vector<int>& columns) const;
  // Differs from an earlier answer once anybody has written to the database.
  qint64 ChangeMark() const;

  const RecordsetFields& Fields() const;
  // A column of the current row, or what was set in it since.
  QVariant Value(const QString& column) const { return Value(Fields().IndexOf(column)); }
  QVariant Value(int column) const;
  // Whether the current row is still in the database.
  bool RowExists() const;
  // The current row, without what was set in it since.
  const Row& CurrentRow() const;

  // Begins to change the current row, or goes on with it. An expression cannot be set, nor a counter of a row
  // that exists, nor a column of numbers to a text that is none.
  void SetValue(const QString& column, const QVariant& value) { SetValue(Fields().IndexOf(column), value); }
  void SetValue(int column, const QVariant& value);
  // Begins a new row; its counter is known at once. A column that is not set gets the table's default.
  void AddNew();
  // Writes what was set, as leaving the row does. After a failure the row stays in edit. A row that was added
  // is current, and the last one. A step given along runs with the row's bookmark once the row is written, in
  // one transaction with it.
  void Update(const std::function<void(qint64 bookmark)>& within = {});
  void CancelUpdate();
  // Deletes rows in one transaction; a row that is gone already is passed over. They stay in the list, as
  // rows that somebody else deleted do, until DropRows takes them out. What was being edited is given up.
  void DeleteRows(const std::vector<qint64>& bookmarks);
  // Takes rows out of the list, not out of the database. The first row is current.
  void DropRows(const std::vector<qint64>& bookmarks);
  EditMode Editing() const { return edit_.Mode(); }

 private:
  Recordset(const Recordset&) = default;
  void RequireOpen() const;
  void StandOn(qint64 index);
  void Relocate() const;

  Connection* connection_ = nullptr;
  Keyset keys_;
  std::shared_ptr<RowReader> reader_;  // clones share its statements
  RowWriter writer_;
  RowEdit edit_;
  mutable qint64 index_ = 0;  // of the current row; their number past the last
  qint64 key_ = 0;            // the same row's, to find it again when a clone added or dropped rows
  mutable std::optional<Row> current_;
};

}  // namespace vorlina
