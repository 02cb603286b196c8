// A live keyset recordset as the rows of a table view, with an add-new row at the bottom. It knows nothing of
// what the rows are.
//
// Rows are read when they are looked at, a block at a time, and read anew once anybody has written to the
// database; the memory per row is the recordset's own key. A row that was deleted elsewhere keeps its place
// and shows as deleted.
//
// What is set in a row stays in a buffer until Submit writes it or Revert gives it up; one row is in edit at
// a time. A write that fails sends Failed and keeps the row in edit. Writes are optimistic against the values
// that were shown.
//
// The window may move its recordset at will: the model works on a clone. Rows come and go through the model
// alone, or by Reload.
#pragma once

#include <QAbstractTableModel>
#include <QElapsedTimer>
#include <functional>
#include <optional>
#include <vector>

#include "grid/GridColumn.h"
#include "grid/RowCache.h"
#include "store/Recordset.h"

namespace vorlina {

enum class RowState {
  Shown,
  Edited,      // in edit, of the recordset
  AddNew,      // the empty row at the bottom
  Added,       // the same in edit
  Deleted,     // by somebody else
  Unreadable,  // the database could not be read
};

enum class SortDirection { None, Ascending, Descending };

// A new value that a cell is about to take. It may be replaced, or refused with cancel.
struct CellChange {
  int row = 0;
  int column = 0;
  QVariant oldValue;
  QVariant newValue;
  bool cancel = false;
};

// How a refused row or cell is left.
QString GiveUpHint();

class RecordsetModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  // The value itself, NullValue() for Null.
  static constexpr int ValueRole = Qt::UserRole;
  // RowState as int, also of the vertical header.
  static constexpr int RowStateRole = Qt::UserRole + 1;

  explicit RecordsetModel(QObject* parent = nullptr);

  // Shows an open keyset; the column that was sorted by still sorts where it is there. The recordset and
  // its connection must outlive the model or its Unbind. False where the row in edit cannot be written; all
  // stays as it was then. Throws Error for a bound column that the recordset does not have.
  bool Bind(Recordset& recordset, std::vector<GridColumn> columns);
  void Unbind();
  // Reads the keys anew, in the same order. False as for Bind, and with Failed where it cannot be read.
  bool Reload();
  // Drops what was read and has the view look again, if anybody has written meanwhile, or some could not be
  // read. Cheap, and not held up by a lock: to be called when the window is activated, and by a slow timer
  // while it is seen.
  void Refresh();

  const GridColumn& Column(int column) const { return columns_[std::size_t(column)]; }
  // -1 where there is none; any letter case.
  int ColumnOf(const QString& key) const;
  // Caption, drop-down, default value, alignment and the like may change at any time; key, kind and bound
  // stay.
  void SetColumn(int column, const GridColumn& description);
  void SetDefaultValue(const QString& key, const QVariant& value);
  void SetLookup(const QString& key, Lookup lookup);
  // Whether there is an add-new row; at first there is.
  void SetAddNewRow(bool shown);

  // By one column, or in the recordset's own order. Texts and drop-downs sort by the user's locale. The row
  // in edit is written first. False where that fails, or the column cannot be sorted.
  bool SortBy(int column, SortDirection direction);
  int SortColumn() const { return sorted_ == SortDirection::None ? -1 : ColumnOf(sortKey_); }
  SortDirection Sorted() const { return sorted_; }

  RowState StateOf(int row) const;
  // The row that is in edit, or -1.
  int EditRow() const { return editRow_; }
  bool IsAddNewRow(int row) const;
  // Rows of the recordset, without the add-new row.
  int RecordCount() const;
  // NullValue() for Null, and for what a deleted row had.
  QVariant Value(int row, int column) const;
  QVariant Value(int row, const QString& key) const;
  // What the row in edit held in a column when its edit began. Throws Error where none is.
  QVariant FormerValue(int column) const;
  // The recordset's bookmark, 0 for the add-new row; and the row of a bookmark or -1.
  qint64 BookmarkOf(int row) const;
  int RowOf(qint64 bookmark) const;
  // The first row whose column has the value, as the column compares; -1 for none. Throws Error.
  int FindRow(const QString& key, const QVariant& value) const;

  // An editor opens on the row: what the row holds now is what a change is compared with.
  void Pin(int row);
  // What the user typed into a cell: for a drop-down its text, for the others as setData. A text that a
  // drop-down does not offer is asked OnNotInList, without blanks around it. False where the cell keeps its
  // value.
  bool SetText(const QModelIndex& index, const QString& typed);
  // Writes the row in edit; nothing happens without one. False, with Failed, where it stays in edit. Another
  // program's lock is waited for as LockPatience says.
  bool Submit();
  // The column that the last refusal was for, or -1 where that is not known.
  int RefusedColumn() const { return refusedColumn_; }
  void Revert();
  // Deletes rows, all or none. The row in edit is written first, or given up when it is among them. False
  // where nothing was deleted.
  bool DeleteRows(QList<int> rows);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
  bool submit() override { return Submit(); }
  void revert() override { Revert(); }

  // What the window has to say, each optional.
  std::function<void(CellChange& change)> OnCellChanging;
  // Runs inside the transaction that writes a row, so that what belongs to it is written with it or not at
  // all. The row is still in edit; an exception keeps it so.
  std::function<void(int row, qint64 bookmark, bool added)> OnRowWriting;
  // Once for a deletion, before anything is; false leaves all as it is.
  std::function<bool(int count)> OnRowsDeleting;
  // Deletes the rows in place of the recordset, with what belongs to them, all or none. Those that are gone
  // are no failure. An exception ends the deletion with nothing deleted.
  std::function<void(const std::vector<qint64>& bookmarks)> DeleteBy;
  // True where SetLookup has made the text known meanwhile.
  std::function<bool(int column, const QString& text)> OnNotInList;
  // The data of unbound columns.
  std::function<QVariant(int row, int column, int role)> OnUnboundData;

 Q_SIGNALS:
  // A write was refused: text for the user.
  void Failed(const QString& description);
  // A new row is about to be begun: the last moment for its default values.
  void RowInserting();
  void RowInserted(int row);
  void RowChanged(int row);
  void RowsDeleted(int count);

 private:
  int FieldOf(int column) const { return fields_[std::size_t(column)]; }
  const FetchedRow* RowAt(int row) const;
  std::optional<bool> HasChanged() const;
  void LookForChanges() const;
  QVariant Displayed(int row, int column) const;
  void ShowAgain(int firstRow, int lastRow);
  void ShowMarks(int firstRow, int lastRow);

  QString OrderOf(int column, QVariantList& values) const;
  void ApplyOrder();
  void Adopt(Recordset rows);
  void KeepPersistentIndexes(const Recordset& former);

  bool ChangeCell(int row, int column, const QVariant& value);
  bool IsSame(int row, const QVariant& before, const QVariant& value) const;
  void BeginEdit(int row, int column);
  void BeginNewRow();
  void BeginChange(int row, int column);
  void EndEdit(int row);
  bool Attempt(const std::function<void()>& step, const QString& hint = {});
  std::optional<QString> FailureOf(const std::function<void()>& step, const QString& hint);
  QString DuplicateText(const QStringList& columns);
  void ReadAgain(int row);
  void SetField(int column, const QVariant& value);
  void DropDeleted(const std::vector<qint64>& deleted);

  Recordset* recordset_ = nullptr;
  Recordset rows_;  // a clone
  std::vector<GridColumn> columns_;
  std::vector<int> fields_;  // of the recordset, by column; -1 for an unbound one
  bool addNewRow_ = true;
  int shownRows_ = 0;  // rows that the views know, the add-new row among them
  int editRow_ = -1;
  int refusedColumn_ = -1;
  QString sortKey_;
  SortDirection sorted_ = SortDirection::None;

  mutable RowCache cache_;
  std::optional<FetchedRow> pinned_;
  bool changing_ = false;  // a cell: what is shown stays as it is
  mutable qint64 changeMark_ = 0;
  mutable bool stale_ = false;  // rows were read anew that the view still shows as they were
  mutable QElapsedTimer looked_;
};

}  // namespace vorlina
