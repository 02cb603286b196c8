// The grid that windows edit recordsets in: a table over a RecordsetModel of its own, with the keys that
// users of a grid expect. It knows nothing of what the rows are; what a window has to add goes through the
// model's hooks and the signals below.
//
// A row is written when it is left, also towards another control; where that fails, the grid stays on it.
// Columns are told by key, rows by number from 0, positions are the grid's own.
#pragma once

#include <QTableView>
#include <QTimer>
#include <functional>
#include <memory>

#include "base/Progress.h"
#include "grid/GridArrangement.h"
#include "grid/GridCells.h"
#include "grid/RecordsetModel.h"
#include "grid/RowLeaving.h"

class QLineEdit;

namespace vorlina {

class GridKeys;
class GridMouse;
class WidgetClickEdit;
class WidgetGridDelegate;
class WidgetRowDrag;
class TextNeedle;
class WidgetRowHeader;

class DataGrid : public QTableView {
  Q_OBJECT

 public:
  explicit DataGrid(QWidget* parent = nullptr);
  ~DataGrid() override;

  RecordsetModel& Rows() { return rows_; }

  // Shows a recordset as RecordsetModel::Bind; columns whose keys were there before keep their place, width,
  // alignment and word wrap, and those that are not visible are hidden. False where the row in edit cannot be
  // left.
  bool Bind(Recordset& recordset, std::vector<GridColumn> columns);
  // As RecordsetModel::Reload; the current cell stays on its row.
  bool Reload();

  // The row of the current cell, -1 without one; its column's key.
  int CurrentRow() const { return currentIndex().row(); }
  QString CurrentKey() const { return KeyOf(rows_, currentIndex().column()); }
  // Moves the current cell and selects its row; an empty key stays in the column. False where the row in edit
  // cannot be left, or there is no such cell.
  bool GoTo(int row, const QString& key = {});
  // The selected rows from above, without the add-new row.
  QList<int> SelectedRows() const { return cells_.SelectedRows(); }
  int SelectedCount() const { return cells_.SelectedCount(); }

  // Takes over what is being typed and writes the row in edit. False where it must be stayed on: the user was
  // told why.
  bool LeaveRow() { return leaving_.Leave(); }
  // The same before the window closes: what was refused and told already is told again.
  bool LeaveForGood() { return leaving_.Leave(true); }
  // A cell's editor is open.
  bool IsEditing() const;
  // Deletes the selected rows, as the Delete key does; none where the current row is the add-new row.
  bool DeleteSelected();

  // The columns that show text, from the left.
  QList<int> TextColumns() const;
  // Marks a text wherever a cell shows it.
  void SetMarks(const TextNeedle& marks);

  // Sorts by one column, or with SortDirection::None in the recordset's own order. False where it cannot.
  bool SetSort(const QString& key, SortDirection direction);
  // How a column sorts at present.
  SortDirection SortOf(const QString& key) const;

  GridLayout Layout() const { return arrangement_.Layout(); }
  // Columns that the layout does not name stay behind those it names; keys that are not there are skipped. A
  // column that the window hides stays hidden; captions are the window's.
  void ApplyLayout(const GridLayout& layout);
  // From the left, counted from 0.
  void SetColumnPosition(const QString& key, int position) { arrangement_.SetColumnPosition(key, position); }
  // One place among the columns that are seen, to the left or to the right.
  void MoveColumn(const QString& key, bool right) { arrangement_.MoveColumn(key, right); }
  void SetAlignment(const QString& key, GridAlignment alignment) {
    arrangement_.SetAlignment(key, alignment);
  }
  GridAlignment AlignmentOf(const QString& key) const { return arrangement_.AlignmentOf(key); }
  // The rows take the height that the wrapped texts of those that are shown need, within bounds; all rows
  // have one height, so that none has to be measured that is not looked at. So they do when the column's
  // width changes.
  void SetWordWrap(const QString& key, bool wrap) { arrangement_.SetWordWrap(key, wrap); }

  // The selected rows as text: the visible bound columns from left to right, drop-downs as shown. Progress,
  // where given, hears of it every thousand rows; where it stops, the text is empty.
  QString CopySelection(const QString& cellSeparator, const QString& rowSeparator,
                        const Progress& progress = {}) const;

  // Where the next new row begins when the one before is left for it; without it where the user stands.
  void SetNewRowKey(const QString& key);

  // Files may be dropped on rows; at first they may not.
  void SetAcceptsFiles(bool accepts);

  // Enter outside an editor; without it Enter goes to the next cell.
  void SetOnEnter(std::function<void()> enter);
  // A key was released in the line of the open editor.
  std::function<void(QLineEdit& line, const QString& column, const QKeyEvent& key)> OnKeyReleased;
  // Whether a file can be dropped; files of which none can are not taken. Without it all can.
  std::function<bool(const QString& path)> TakesFile;

  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 Q_SIGNALS:
  // A write was refused: text for the user.
  void RowFailed(const QString& text);
  // The current cell is another one. Row -1: there is none.
  void CurrentCellChanged(int row, const QString& key);
  void SelectedRowsChanged();
  void HeaderClicked(const QString& key, vorlina::SortDirection present);
  void HeaderPressed(const QString& key, Qt::MouseButton button, const QPoint& position);
  // Row -1 and no key: not on a cell.
  void CellPressed(int row, const QString& key, Qt::MouseButton button, const QPoint& position);
  void CellHovered(int row, const QString& key, const QPoint& position);
  void DoubleClicked(int row, const QString& key);
  // Selected rows are dragged by hand, once the row in edit is written. Beyond the rows, and on the add-new
  // row, it is the last one that the pointer is on; -1 where there is none. While they are dragged no cell is
  // hovered over.
  void RowDragStarted();
  void RowDragMoved(int row);
  void RowDropped(int row);
  void RowDragCancelled();
  void FilesOver(int row);
  void FilesDropped(int row, const QStringList& paths);

 public Q_SLOTS:
  void reset() override;

 protected Q_SLOTS:
  void commitData(QWidget* editor) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 protected:
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override { dragMoveEvent(event); }
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool event(QEvent* event) override;
  // A letter that no editor takes finds nothing: it would read all the rows.
  void keyboardSearch(const QString&) override {}

 private:
  struct Place {
    int row;
    qint64 bookmark;
    QString key;
  };

  void SetUpView();
  void SetUpHeaders();
  void SetUpKeys();
  void SetUpMouse();
  void SetUpRowDrag();
  void TakePalette();
  void TakeFont();
  void Refresh();
  void PasteFromClipboard();
  Place CurrentPlace() const;
  void ReturnTo(const Place& place);

  RecordsetModel rows_;
  WidgetGridDelegate* delegate_;
  WidgetRowHeader* rowHeader_;
  GridCells cells_{*this, rows_};
  RowLeaving leaving_;
  GridArrangement arrangement_;
  WidgetClickEdit* clickEdit_;
  WidgetRowDrag* rowDrag_;
  std::unique_ptr<GridKeys> keys_;
  GridMouse* mouse_;
  QTimer refresh_;
};

}  // namespace vorlina
