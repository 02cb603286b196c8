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
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

#include "grid/BoundColumns.h"
#include "grid/RowInEdit.h"
#include "grid/RowOrder.h"
#include "grid/ShownRows.h"

namespace vorlina {

enum class RowState {
  Shown,
  Edited,      // in edit, of the recordset
  AddNew,      // the empty row at the bottom
  Added,       // the same in edit
  Deleted,     // by somebody else
  Unreadable,  // the database could not be read
};

// A new value that a cell is about to take. It may be replaced, or refused with cancel.
struct CellChange {
  int row = 0;
  int column = 0;
  QVariant oldValue;
  QVariant newValue;
  bool cancel = false;
};

// Why a row is not written: texts for the user, a box each, or none where he was told already; and the column
// to be mended, -1 where that is not known.
struct RowRefusal {
  QStringList texts;
  int column = -1;
};

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

  const GridColumn& Column(int column) const { return columns_.At(column); }
  // -1 where there is none; any letter case.
  int ColumnOf(const QString& key) const { return columns_.IndexOf(key); }
  // Caption, drop-down, default value, alignment and the like may change at any time; key, kind and bound
  // stay.
  void SetColumn(int column, const GridColumn& description);
  void SetDefaultValue(const QString& key, const QVariant& value);
  void SetLookup(const QString& key, Lookup lookup);
  // Whether there is an add-new row; at first there is.
  void SetAddNewRow(bool shown);

  // By one column, or in the recordset's own order. The row in edit is written first. False where that fails,
  // or the column cannot be sorted.
  bool SortBy(int column, SortDirection direction);
  int SortColumn() const { return order_.ColumnIn(columns_); }
  SortDirection Sorted() const { return order_.Direction(); }

  RowState StateOf(int row) const;
  // The row that is in edit, or -1.
  int EditRow() const { return edit_.Row(); }
  bool IsAddNewRow(int row) const;
  // Rows of the recordset, without the add-new row.
  int RecordCount() const { return rows_.Count(); }
  // NullValue() for Null, and for what a deleted row had.
  QVariant Value(int row, int column) const;
  QVariant Value(int row, const QString& key) const { return Value(row, ColumnOf(key)); }
  // What the row in edit held in a column when its edit began. Throws Error where none is.
  QVariant FormerValue(int column) const { return edit_.FormerValue(column); }
  // The recordset's bookmark, 0 for the add-new row; and the row of a bookmark or -1.
  qint64 BookmarkOf(int row) const { return rows_.BookmarkOf(row); }
  int RowOf(qint64 bookmark) const { return rows_.RowOf(bookmark); }
  // Reads columns of these rows as the database holds them. Nothing reads where nothing is bound; what is
  // read with is done with before other rows are bound. Throws Error.
  std::optional<FieldReader> Reader(const QList<int>& columns) const;
  // The first row whose column has the value, as the column compares; -1 for none. Throws Error.
  int FindRow(const QString& key, const QVariant& value) const;

  // An editor opens on the row: what the row holds now is what a change is compared with.
  void Pin(int row) { edit_.Pin(row); }
  // What the user typed into a cell: for a drop-down its text, for the others as setData. A text that a
  // drop-down does not offer is asked OnNotInList, without blanks around it. False where the cell keeps its
  // value.
  bool SetText(const QModelIndex& index, const QString& typed);
  // Writes the row in edit; nothing happens without one. False, with Failed, where it stays in edit. Another
  // program's lock is waited for as LockPatience says.
  bool Submit();
  // The column that the last refusal was for, or -1 where that is not known.
  int RefusedColumn() const { return edit_.RefusedColumn(); }
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
  // Before a row in edit is written; what is refused stays in edit. It may ask the user: the grid is done
  // with the cell by then, and no transaction is open.
  std::function<std::optional<RowRefusal>(int row)> OnRowChecking;
  // Runs inside the transaction that writes a row, so that what belongs to it is written with it or not at
  // all. The row is still in edit; an exception keeps it so.
  std::function<void(int row, qint64 bookmark, bool added)> OnRowWriting;
  // Once for a deletion, before anything is; false leaves all as it is.
  std::function<bool(const std::vector<qint64>& bookmarks)> OnRowsDeleting;
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
  Recordset Adopt(Recordset records);
  void ShowAgain(int firstRow, int lastRow);

  QVariant ShownData(int row, int column, int role) const;
  bool ChangeCell(int row, int column, const QVariant& value);
  bool IsSame(int row, const QVariant& before, const QVariant& value) const;
  void BeginEdit(int row, int column);
  bool IsAccepted(int row);
  void EndEdit();
  // No row is none that is in edit.
  bool IsInEdit(int row) const { return row >= 0 && row == EditRow(); }
  bool Attempt(const std::function<void()>& step, const QString& hint = {});
  void DropDeleted(const std::vector<qint64>& deleted);

  Recordset* recordset_ = nullptr;
  BoundColumns columns_;
  ShownRows rows_;  // of a clone
  RowInEdit edit_{rows_, columns_};
  RowOrder order_;
  bool checking_ = false;  // a row: a question may be up
  bool addNewRow_ = true;
  int shownRows_ = 0;  // rows that the views know, the add-new row among them
};

}  // namespace vorlina
