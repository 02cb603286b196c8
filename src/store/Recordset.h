// Rows of a statement, looked at one at a time, with their values by name in any letter case, and written
// back. A recordset on one table is live: its rows are found again by their keys. It must not outlive its
// connection.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <optional>
#include <vector>

#include "store/Connection.h"
#include "store/RecordsetSource.h"

namespace vorlina {

class Query;
class RowSet;

enum class CursorType {
  Forward,  // walked once, forward; keeps a read lock, so it is closed or at its end when its procedure ends
  Keyset,   // the keys are read when it is opened, a row's values when it is looked at
  Static,   // all values are read when it is opened
};
enum class LockType { ReadOnly, Optimistic };
enum class EditMode { None, InProgress, Add };
enum class RowStatus { Present, Deleted, None };
enum class FindDirection { Forward, Backward };

class Recordset {
 public:
  Recordset();
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  // The source is a SELECT, with a "?" for each value, or the name of a table. The first row becomes current.
  // A keyset on a statement whose rows are not those of one table becomes a static, read-only one. An open
  // recordset is closed first. Throws StoreError.
  void Open(const QString& source, Connection& connection, CursorType cursor = CursorType::Forward,
            LockType lock = LockType::ReadOnly, const QVariantList& values = {});
  bool IsOpen() const { return source_ != nullptr; }
  // An edit that was not saved is dropped.
  void Close();
  // Reads the keys (or values) again; the first row becomes current. The filter stays, an edit is dropped.
  void Requery();
  // Forgets what was read ahead, so that the current row too is read anew. An edit is dropped.
  void Refresh();
  // The same rows with a position of its own; only for keyset and static. Bookmarks are shared until a
  // Requery.
  std::unique_ptr<Recordset> Clone() const;
  // "" when it was never opened.
  const QString& Source() const { return text_; }

  // Both are true where there are no rows.
  bool IsBOF() const;
  bool IsEOF() const;
  bool IsEmpty() const { return IsBOF() && IsEOF(); }
  // A pending edit is saved first. Moving on from BOF or EOF outwards throws NoCurrentRow.
  void MoveFirst();
  void MoveNext();
  void MovePrevious();
  void MoveLast();
  void Move(qint64 rows);
  // Rows that the filter lets through. A forward recordset does not know: -1.
  qint64 RecordCount() const;
  // A mark of the current row, above 0, by which it is found again. Setting one that does not exist throws.
  qint64 Bookmark() const;
  void SetBookmark(qint64 bookmark);

  // Looks for the next row, from the current one on (from the first, or the last, when there is none), after
  // passing over skip rows. Not found leaves the recordset at EOF (forward) or BOF. The criterion is a
  // column, one of = <> < > <= >= LIKE, and a number, Null or a 'text' with its quotes doubled. True when
  // found.
  bool Find(const QString& criterion, qint64 skip = 0, FindDirection direction = FindDirection::Forward);
  bool Find(const QString& column, const QVariant& value, qint64 skip = 0,
            FindDirection direction = FindDirection::Forward);
  // Leaves the rows for which the condition on the recordset's columns holds; the first becomes current. An
  // empty text clears the filter. Text in it goes through QuotedText, or is bound.
  void SetFilter(const QString& condition, const QVariantList& values = {});
  void SetFilterTo(const QString& column, const QVariant& value);
  void ClearFilter() { SetFilter({}); }
  // Orders the rows by a column in the user's alphabet; a row added later stands at the end. "" gives back
  // the statement's order.
  void SetSort(const QString& column, bool descending = false);

  // Pages of PageSize rows, 10 at first; pages and positions count from 1, and 0 stands for no current row.
  qint64 PageSize() const { return pageSize_; }
  void SetPageSize(qint64 rows);
  qint64 PageCount() const;
  qint64 AbsolutePage() const;
  void SetAbsolutePage(qint64 page);
  qint64 AbsolutePosition() const;
  void SetAbsolutePosition(qint64 position);

  QStringList FieldNames() const;
  const std::vector<RecordsetColumn>& Columns() const;
  // The table and column that a field shows, "" for an expression.
  QString BaseTable(const QString& field) const;
  QString BaseColumn(const QString& field) const;
  // The value as edited, or as read. NullValue() for Null; bool for columns declared BOOLEAN. Throws
  // StoreError: NoCurrentRow, RowDeleted, or Other for an unknown field.
  QVariant Value(const QString& field);
  QVariant Value(int field);
  // The value as it was read, before the edit.
  QVariant OriginalValue(const QString& field);
  // Begins an edit where none is under way. Nothing is written before Update. Throws for a field that shows
  // no base column, and for a text where the column holds numbers.
  void SetValue(const QString& field, const QVariant& value);

  RowStatus Status();
  EditMode Mode() const { return mode_; }
  // Begins a new row, whose counter has its value at once. A pending edit is saved first.
  void AddNew();
  // Writes the changed fields. Throws Conflict when someone else has changed one of them, or the row is gone,
  // and Duplicate for a key that exists; the edit then stays. Without an edit nothing happens.
  void Update();
  void CancelUpdate();
  // Deletes the current row, which stays current, as deleted, until the next move. A new row that was not
  // saved is dropped.
  void Delete();

 private:
  bool IsForward() const { return forward_ != nullptr; }
  qint64 RowCount() const;
  qint64 IndexAt(qint64 position) const;
  qint64 PositionOf(qint64 index) const;
  qint64 CurrentIndex() const;
  std::vector<qint64> Around(qint64 position) const;
  void ReadRows();
  void ApplyView();
  void StepForward();
  void RequireOpen() const;
  void RequireWritable() const;
  void LeaveRow();
  void GoTo(qint64 position);
  int FieldIndex(const QString& field) const;
  const Row& CurrentRow();
  QVariant Presented(int field, const QVariant& stored) const;
  bool FindMatch(const QString& condition, const QVariantList& values, qint64 skip, FindDirection direction);
  void Insert();
  void WriteChanges();

  Connection* connection_ = nullptr;
  QString text_;
  CursorType cursor_ = CursorType::Forward;
  LockType lock_ = LockType::ReadOnly;
  std::shared_ptr<const RecordsetSource> source_;
  std::shared_ptr<RowSet> rows_;    // keyset and static
  std::unique_ptr<Query> forward_;  // forward
  bool forwardEnded_ = false;

  // The rows let through by filter, sort and own deletions, in order; without it all rows in theirs.
  std::optional<std::vector<qint64>> view_;
  QString filter_;
  QVariantList filterValues_;
  int sortColumn_ = -1;
  bool sortDescending_ = false;
  qint64 pageSize_ = 10;

  qint64 position_ = 0;  // -1 at BOF, the number of rows at EOF
  // The current row was deleted: position_ is that of the row behind it.
  bool onDeleted_ = false;
  // The current row as it was read, kept so that an edit is compared with what the user saw.
  std::optional<Row> current_;
  qint64 currentChanges_ = 0;

  EditMode mode_ = EditMode::None;
  Row edited_;
  std::vector<bool> changed_;
};

}  // namespace vorlina
