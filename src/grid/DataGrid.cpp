#include "grid/DataGrid.h"

#include <QApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QScrollBar>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "grid/GridClipboard.h"
#include "grid/GridColours.h"
#include "grid/GridFiles.h"
#include "grid/GridKeys.h"
#include "grid/GridMouse.h"
#include "grid/WidgetClickEdit.h"
#include "grid/WidgetGridDelegate.h"
#include "grid/WidgetRowDrag.h"
#include "grid/WidgetRowHeader.h"

namespace vorlina {
namespace {

constexpr int RefreshMilliseconds = 2000;

// Beyond this a selection does not follow its rows through a sort: Qt would hold every cell of it.
constexpr int RowsFollowed = 1000;

}  // namespace

DataGrid::DataGrid(QWidget* parent)
    : QTableView(parent),
      delegate_(new WidgetGridDelegate(rows_, this)),
      rowHeader_(new WidgetRowHeader(*this)),
      leaving_(*this, rows_, *delegate_),
      arrangement_(*this, rows_, *delegate_, *rowHeader_) {
  SetUpView();
  SetUpHeaders();
  SetUpRowDrag();
  SetUpKeys();
  SetUpMouse();
  TakeFont();
  TakePalette();
  connect(&rows_, &RecordsetModel::Failed, this, &DataGrid::RowFailed);
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* to) { leaving_.FocusMoved(to); });
  connect(&refresh_, &QTimer::timeout, this, &DataGrid::Refresh);
  refresh_.start(RefreshMilliseconds);
}

// What is still connected would reach a grid of which only the base is left.
DataGrid::~DataGrid() {
  disconnect(qApp, nullptr, this, nullptr);
  setModel(nullptr);
}

void DataGrid::SetUpView() {
  setItemDelegate(delegate_);
  setVerticalHeader(rowHeader_);
  // The drag sees the mouse before what waits for a click.
  clickEdit_ = new WidgetClickEdit(*this);
  rowDrag_ = new WidgetRowDrag(*this);
  setModel(&rows_);
  // The view would write a row after it has been left, and so once more where that has failed.
  disconnect(selectionModel(), nullptr, &rows_, nullptr);
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(AnyKeyPressed | EditKeyPressed);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollMode(ScrollPerPixel);
  setMouseTracking(true);
  arrangement_.CellOption = [this] {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    return option;
  };
}

void DataGrid::SetUpHeaders() {
  QHeaderView& header = *horizontalHeader();
  header.setObjectName(u"columnHeader"_qs);
  rowHeader_->setObjectName(u"rowHeader"_qs);
  header.setSectionsMovable(true);
  header.setSectionsClickable(true);
  header.setHighlightSections(false);
  header.setTextElideMode(Qt::ElideRight);
  // Else each painting would ask of every selected row whether all of the column is selected.
  header.setSelectionModel(new QItemSelectionModel(&rows_, &header));
  connect(&header, &QHeaderView::sectionClicked, this, [this](int column) {
    // The head has turned its arrow already, which tells what the rows are sorted by.
    arrangement_.ShowSort();
    const QString key = KeyOf(rows_, column);
    Q_EMIT HeaderClicked(key, SortOf(key));
  });
}

void DataGrid::SetUpKeys() {
  keys_ = std::make_unique<GridKeys>(*this, rows_, *delegate_, leaving_, *rowDrag_);
  keys_->OnCopy = [this] { CopyToClipboard(cells_, rows_, this); };
  keys_->OnPaste = [this] { PasteFromClipboard(); };
  keys_->OnDelete = [this] { DeleteSelected(); };
  // The cell takes over what was typed in the same event, so that what is typed next goes to the next one.
  delegate_->OnEnter = [this] { setCurrentIndex(moveCursor(MoveDown, Qt::NoModifier)); };
  delegate_->OnKeyReleased = [this](QLineEdit& line, const QKeyEvent& key) {
    if (OnKeyReleased) OnKeyReleased(line, CurrentKey(), key);
  };
}

void DataGrid::SetUpMouse() {
  mouse_ = new GridMouse(*this, rows_, leaving_, *rowDrag_);
  connect(mouse_, &GridMouse::HeaderPressed, this, &DataGrid::HeaderPressed);
  connect(mouse_, &GridMouse::CellPressed, this, &DataGrid::CellPressed);
  connect(mouse_, &GridMouse::CellHovered, this, &DataGrid::CellHovered);
  connect(mouse_, &GridMouse::DoubleClicked, this, &DataGrid::DoubleClicked);
}

void DataGrid::SetUpRowDrag() {
  const auto target = [this](int row) {
    delegate_->SetTargetRow(row);
    viewport()->update();
  };
  rowDrag_->MayStart = [this] { return LeaveRow(); };
  connect(rowDrag_, &WidgetRowDrag::Started, this, &DataGrid::RowDragStarted);
  connect(rowDrag_, &WidgetRowDrag::Moved, this, target);
  connect(rowDrag_, &WidgetRowDrag::Moved, this, &DataGrid::RowDragMoved);
  connect(rowDrag_, &WidgetRowDrag::Dropped, this, [target] { target(-1); });
  connect(rowDrag_, &WidgetRowDrag::Dropped, this, &DataGrid::RowDropped);
  connect(rowDrag_, &WidgetRowDrag::Cancelled, this, [target] { target(-1); });
  connect(rowDrag_, &WidgetRowDrag::Cancelled, this, &DataGrid::RowDragCancelled);
  connect(rowDrag_, &WidgetRowDrag::HeaderClicked, this, [this](int row) {
    setFocus(Qt::MouseFocusReason);
    GoTo(row);
  });
}

// The palette of the cells and editors stays the window's; the area around the rows has its own.
void DataGrid::TakePalette() {
  const GridColours colours = ColoursFor(palette());
  delegate_->SetColours(colours);
  QPalette around = palette();
  around.setColor(QPalette::Base, colours.ground);
  viewport()->setPalette(around);
}

void DataGrid::TakeFont() { rowHeader_->SetLeastHeight(LeastRowHeight(fontMetrics())); }

void DataGrid::SetNewRowKey(const QString& key) { keys_->SetNewRowKey(key); }

void DataGrid::SetOnEnter(std::function<void()> enter) { keys_->OnEnter = std::move(enter); }

void DataGrid::SetAcceptsFiles(bool accepts) {
  setAcceptDrops(accepts);
  viewport()->setAcceptDrops(accepts);
}

bool DataGrid::Bind(Recordset& recordset, std::vector<GridColumn> columns) {
  if (!LeaveRow()) return false;
  const GridLayout held = Layout();
  const bool sameColumns = held.columns.size() == qsizetype(columns.size());
  if (!rows_.Bind(recordset, std::move(columns))) return false;
  arrangement_.HideColumns();
  // As many columns as before are the same ones, some under other names: they stand where they stood.
  arrangement_.Arrange(held, !sameColumns);
  arrangement_.ShowSort();
  return true;
}

bool DataGrid::Reload() {
  if (!LeaveRow()) return false;
  const Place current = CurrentPlace();
  if (!rows_.Reload()) return false;
  ReturnTo(current);
  return true;
}

DataGrid::Place DataGrid::CurrentPlace() const {
  return {CurrentRow(), CurrentRow() >= 0 ? rows_.BookmarkOf(CurrentRow()) : 0, CurrentKey()};
}

// A row that has gone is stood in for by the one that has its place; the add-new row is the last one.
void DataGrid::ReturnTo(const Place& place) {
  if (place.row < 0) return;
  const int last = rows_.rowCount() - 1;
  const int row = place.bookmark != 0 ? rows_.RowOf(place.bookmark) : last;
  GoTo(row >= 0 ? row : std::min(place.row, last), place.key);
}

bool DataGrid::GoTo(int row, const QString& key) {
  int column = key.isEmpty() ? currentIndex().column() : rows_.ColumnOf(key);
  if (column < 0 && key.isEmpty()) column = cells_.FirstShown();
  const QModelIndex cell = rows_.index(row, column);
  if (!cell.isValid() || !leaving_.MayGoTo(row)) return false;
  setCurrentIndex(cell);  // Shift selects from here
  selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  return true;
}

bool DataGrid::IsEditing() const { return delegate_->Editor() != nullptr; }

bool DataGrid::DeleteSelected() {
  QList<int> rows = SelectedRows();
  if (rows.isEmpty() || rows_.IsAddNewRow(CurrentRow())) return false;
  const int first = rows.first();
  const QString key = CurrentKey();
  const QPersistentModelIndex edited = currentIndex();
  if (!rows_.DeleteRows(std::move(rows))) return false;
  // With its row the view has given up an editor that refused what was typed.
  if (!edited.isValid()) delegate_->Forget();
  GoTo(std::min(first, rows_.rowCount() - 1), key);
  return true;
}

QList<int> DataGrid::TextColumns() const {
  QList<int> columns = cells_.ValueColumns();
  columns.removeIf([this](int column) { return rows_.Column(column).kind == ColumnKind::Boolean; });
  return columns;
}

void DataGrid::SetMarks(const TextNeedle& marks) {
  delegate_->SetMarks(marks);
  viewport()->update();
}

bool DataGrid::SetSort(const QString& key, SortDirection direction) {
  if (!LeaveRow()) return false;
  const Place current = CurrentPlace();
  if (SelectedCount() > RowsFollowed) selectionModel()->clearSelection();
  if (!rows_.SortBy(direction == SortDirection::None ? -1 : rows_.ColumnOf(key), direction)) return false;
  arrangement_.ShowSort();
  if (currentIndex().isValid())
    scrollTo(currentIndex());
  else
    ReturnTo(current);
  return true;
}

SortDirection DataGrid::SortOf(const QString& key) const {
  const int column = rows_.ColumnOf(key);
  return column >= 0 && column == rows_.SortColumn() ? rows_.Sorted() : SortDirection::None;
}

void DataGrid::ApplyLayout(const GridLayout& layout) {
  arrangement_.Arrange(layout, true);
  arrangement_.SetRowHeight(layout.rowHeight);
  const SortDirection sort = layout.descending ? SortDirection::Descending : SortDirection::Ascending;
  // Rows that were bound anew are sorted already.
  if (!layout.sortKey.isEmpty() && rows_.ColumnOf(layout.sortKey) >= 0 && SortOf(layout.sortKey) != sort)
    SetSort(layout.sortKey, sort);
}

QString DataGrid::CopySelection(const QString& cellSeparator, const QString& rowSeparator,
                                const Progress& progress) const {
  return SelectionText(cells_, rows_, cellSeparator, rowSeparator, progress);
}

// Into the current cell, as if it were typed there: what refuses a typed text refuses this one.
void DataGrid::PasteFromClipboard() {
  const QString text = ClipboardCell();
  if (text.isEmpty() || !currentIndex().flags().testFlag(Qt::ItemIsEditable)) return;
  if (text.contains(u'\t')) {
    Q_EMIT RowFailed(Texts::tr("Negli appunti ci sono più celle. Copiare il testo di una cella sola."));
    return;
  }
  edit(currentIndex());
  delegate_->TypeOver(text);
  leaving_.CloseEditor();
}

void DataGrid::Refresh() {
  if (isVisible() && delegate_->Editor() == nullptr) rows_.Refresh();
}

void DataGrid::commitData(QWidget* editor) {
  leaving_.Take([&] { QTableView::commitData(editor); });
}

// Enter and Escape in an editor concern the cell; the row is written when it is left.
void DataGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  if (leaving_.Keeps(editor, hint)) return;
  if (delegate_->Editor() == editor) delegate_->Forget();
  const bool next = hint == QAbstractItemDelegate::EditNextItem;
  const bool moves = next || hint == QAbstractItemDelegate::EditPreviousItem;
  const bool leaves = moves && keys_->LeavesGrid(next);
  QTableView::closeEditor(editor, moves && !leaves ? hint : QAbstractItemDelegate::NoHint);
  if (leaves) QWidget::focusNextPrevChild(next);
}

void DataGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  rowHeader_->SetCurrentRow(current.row());
  leaving_.CellChanged(current, previous);
  Q_EMIT CurrentCellChanged(current.row(), KeyOf(rows_, current.column()));
}

void DataGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  Q_EMIT SelectedRowsChanged();
}

void DataGrid::reset() {
  delegate_->Forget();
  rowDrag_->Cancel();
  QTableView::reset();
  rowHeader_->SetCurrentRow(-1);
}

// The pictures before the first value, where keys do not stop, are seen again together with it.
void DataGrid::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QTableView::scrollTo(index, hint);
  if (!index.isValid() || !cells_.IsFirstValue(index.column())) return;
  const QHeaderView& header = *horizontalHeader();
  const int end = header.sectionPosition(index.column()) + header.sectionSize(index.column());
  if (end <= viewport()->width()) horizontalScrollBar()->setValue(0);
}

QModelIndex DataGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  const GridKeys::Way way = action == MoveNext       ? GridKeys::Way::Next
                            : action == MovePrevious ? GridKeys::Way::Previous
                            : action == MoveDown     ? GridKeys::Way::Down
                            : action == MoveHome     ? GridKeys::Way::Home
                                                     : GridKeys::Way::Other;
  return keys_->CellOn(way, [=, this] { return QTableView::moveCursor(action, modifiers); });
}

QItemSelectionModel::SelectionFlags DataGrid::selectionCommand(const QModelIndex& index,
                                                               const QEvent* event) const {
  const std::optional<QItemSelectionModel::SelectionFlags> own = GridKeys::SelectionFor(event);
  return own ? *own : QTableView::selectionCommand(index, event);
}

bool DataGrid::focusNextPrevChild(bool next) {
  return keys_->LeavesGrid(next) ? QWidget::focusNextPrevChild(next) : QTableView::focusNextPrevChild(next);
}

void DataGrid::keyPressEvent(QKeyEvent* event) {
  if (!keys_->Press(*event)) QTableView::keyPressEvent(event);
}

// A letter that comes whole, as from a dead key, opens the editor, but the base keeps it from it.
void DataGrid::inputMethodEvent(QInputMethodEvent* event) {
  const bool opens = delegate_->Editor() == nullptr && !event->commitString().isEmpty();
  QTableView::inputMethodEvent(event);
  QWidget* editor = delegate_->Editor();
  if (opens && editor != nullptr) QCoreApplication::sendEvent(editor, event);
}

void DataGrid::mousePressEvent(QMouseEvent* event) {
  mouse_->Press(*event, [&] { QTableView::mousePressEvent(event); });
}

void DataGrid::mouseMoveEvent(QMouseEvent* event) {
  mouse_->Move(*event, [&] { QTableView::mouseMoveEvent(event); });
}

void DataGrid::mouseDoubleClickEvent(QMouseEvent* event) {
  mouse_->DoubleClick(*event, [&] { QTableView::mouseDoubleClickEvent(event); });
}

void DataGrid::leaveEvent(QEvent* event) {
  mouse_->Leave();
  QTableView::leaveEvent(event);
}

void DataGrid::dragMoveEvent(QDragMoveEvent* event) {
  const GridFiles files = FilesOf(*event, *this, rows_, TakesFile);
  if (files.paths.isEmpty()) return event->ignore();
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(files.row >= 0);
  if (event->isAccepted()) Q_EMIT FilesOver(files.row);
}

void DataGrid::dropEvent(QDropEvent* event) {
  const GridFiles files = FilesOf(*event, *this, rows_, TakesFile);
  if (files.paths.isEmpty() || files.row < 0 || !LeaveRow()) return event->ignore();
  event->setDropAction(Qt::CopyAction);
  event->accept();
  Q_EMIT FilesDropped(files.row, files.paths);
}

bool DataGrid::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) clickEdit_->Forget();
  const bool handled = QTableView::event(event);
  if (event->type() == QEvent::WindowActivate) Refresh();
  if (event->type() == QEvent::PaletteChange) TakePalette();
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) TakeFont();
  return handled;
}

}  // namespace vorlina
