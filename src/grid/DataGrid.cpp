#include "grid/DataGrid.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>

#include "base/Helpers.h"
#include "base/Language.h"
#include "grid/GridColours.h"
#include "grid/WidgetClickEdit.h"
#include "grid/WidgetGridDelegate.h"
#include "grid/WidgetRowDrag.h"
#include "grid/WidgetRowHeader.h"

namespace vorlina {
namespace {

constexpr int RefreshMilliseconds = 2000;
constexpr int ReportedRows = 1000;

// Beyond this a selection does not follow its rows through a sort: Qt would hold every cell of it.
constexpr int RowsFollowed = 1000;

Qt::Alignment AlignmentFor(GridAlignment alignment) {
  const Qt::Alignment across = alignment == GridAlignment::Left     ? Qt::AlignLeft
                               : alignment == GridAlignment::Centre ? Qt::AlignHCenter
                                                                    : Qt::AlignRight;
  return across | Qt::AlignVCenter;
}

}  // namespace

DataGrid::DataGrid(QWidget* parent)
    : QTableView(parent),
      delegate_(new WidgetGridDelegate(rows_, this)),
      rowHeader_(new WidgetRowHeader(*this)) {
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
  SetUpHeaders();
  SetUpRowDrag();
  TakeFont();
  TakePalette();
  delegate_->OnEnter = [this] { TakeAndGoDown(); };
  connect(&rows_, &RecordsetModel::Failed, this, &DataGrid::RowFailed);
  connect(qApp, &QApplication::focusChanged, this, &DataGrid::FocusMoved);
  connect(&refresh_, &QTimer::timeout, this, &DataGrid::Refresh);
  refresh_.start(RefreshMilliseconds);
}

// What is still connected would reach a grid of which only the base is left.
DataGrid::~DataGrid() {
  disconnect(qApp, nullptr, this, nullptr);
  setModel(nullptr);
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
  header.viewport()->installEventFilter(this);
  rowHeader_->viewport()->installEventFilter(this);
  connect(&header, &QHeaderView::sectionResized, this, [this](int column) {
    if (!arranging_ && column < rows_.columnCount() && rows_.Column(column).wordWrap) FitRowHeight();
  });
  connect(&header, &QHeaderView::sectionClicked, this, [this](int column) {
    // The head has turned its arrow already, which tells what the rows are sorted by.
    ShowSort();
    Q_EMIT HeaderClicked(KeyOf(column), SortOf(KeyOf(column)));
  });
}

void DataGrid::SetUpRowDrag() {
  const auto target = [this](int row) {
    delegate_->SetTargetRow(row);
    viewport()->update();
  };
  rowDrag_->MayStart = [this] { return LeaveRow(); };
  connect(rowDrag_, &WidgetRowDrag::Started, this, &DataGrid::RowDragStarted);
  connect(rowDrag_, &WidgetRowDrag::Moved, this, [this, target](int row) {
    target(row);
    Q_EMIT RowDragMoved(row);
  });
  connect(rowDrag_, &WidgetRowDrag::Dropped, this, [this, target](int row) {
    target(-1);
    Q_EMIT RowDropped(row);
  });
  connect(rowDrag_, &WidgetRowDrag::Cancelled, this, [this, target] {
    target(-1);
    Q_EMIT RowDragCancelled();
  });
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

QString DataGrid::KeyOf(int column) const {
  return column >= 0 && column < rows_.columnCount() ? rows_.Column(column).key : QString();
}

QString DataGrid::CurrentKey() const { return KeyOf(currentIndex().column()); }

bool DataGrid::Bind(Recordset& recordset, std::vector<GridColumn> columns) {
  if (!LeaveRow()) return false;
  const GridLayout held = Layout();
  const bool sameColumns = held.columns.size() == qsizetype(columns.size());
  if (!rows_.Bind(recordset, std::move(columns))) return false;
  HideColumns();
  // As many columns as before are the same ones, some under other names: they stand where they stood.
  Arrange(held, !sameColumns);
  ShowSort();
  return true;
}

void DataGrid::HideColumns() {
  for (int column = 0; column < rows_.columnCount(); ++column)
    setColumnHidden(column, !rows_.Column(column).visible);
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
  if (column < 0 && key.isEmpty())
    for (int place = 0; place < rows_.columnCount() && (column < 0 || isColumnHidden(column)); ++place)
      column = horizontalHeader()->logicalIndex(place);
  const QModelIndex cell = rows_.index(row, column);
  if (!cell.isValid() || !MayGoTo(row)) return false;
  setCurrentIndex(cell);  // Shift selects from here
  selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  return true;
}

QList<int> DataGrid::SelectedRows() const {
  QList<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row)
      if (!rows_.IsAddNewRow(row)) rows += row;
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

int DataGrid::SelectedCount() const {
  int count = 0;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    count += range.height() - (rows_.IsAddNewRow(range.bottom()) ? 1 : 0);
  return count;
}

bool DataGrid::SetSort(const QString& key, SortDirection direction) {
  if (!LeaveRow()) return false;
  const Place current = CurrentPlace();
  if (SelectedCount() > RowsFollowed) selectionModel()->clearSelection();
  if (!rows_.SortBy(direction == SortDirection::None ? -1 : rows_.ColumnOf(key), direction)) return false;
  ShowSort();
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

void DataGrid::ShowSort() {
  QHeaderView& header = *horizontalHeader();
  const bool sorted = rows_.SortColumn() >= 0;
  header.setSortIndicatorShown(sorted);
  if (!sorted) return;
  header.setSortIndicator(rows_.SortColumn(), rows_.Sorted() == SortDirection::Descending
                                                  ? Qt::DescendingOrder
                                                  : Qt::AscendingOrder);
}

GridLayout DataGrid::Layout() const {
  GridLayout layout;
  const QHeaderView& header = *horizontalHeader();
  for (int place = 0; place < rows_.columnCount(); ++place) {
    const int column = header.logicalIndex(place);
    const GridColumn& description = rows_.Column(column);
    const bool hidden = header.isSectionHidden(column);
    layout.columns += {.key = description.key,
                       .width = hidden ? 0 : header.sectionSize(column),
                       .visible = !hidden,
                       .caption = description.caption,
                       .alignment = AlignmentOf(description.key),
                       .wordWrap = description.wordWrap};
  }
  layout.sortKey = KeyOf(rows_.SortColumn());
  layout.descending = rows_.Sorted() == SortDirection::Descending;
  layout.rowHeight = rowHeader_->defaultSectionSize();
  return layout;
}

void DataGrid::ApplyLayout(const GridLayout& layout) {
  Arrange(layout, true);
  if (layout.rowHeight > 0)
    rowHeader_->SetRowHeight(layout.rowHeight);
  else if (IsWrapped())
    FitRowHeight();
  if (!layout.sortKey.isEmpty() && rows_.ColumnOf(layout.sortKey) >= 0)
    SetSort(layout.sortKey, layout.descending ? SortDirection::Descending : SortDirection::Ascending);
}

void DataGrid::Arrange(const GridLayout& layout, bool moves) {
  const QScopedValueRollback<bool> arranging(arranging_, true);
  int place = 0;
  for (const GridColumnLayout& stored : layout.columns) {
    const int column = rows_.ColumnOf(stored.key);
    if (column < 0) continue;
    if (moves) SetColumnPosition(stored.key, place++);
    SetAlignment(stored.key, stored.alignment);
    Wrap(column, stored.wordWrap);
    setColumnHidden(column, false);
    if (stored.width > 0) setColumnWidth(column, stored.width);
    setColumnHidden(column, !stored.visible || !rows_.Column(column).visible);
  }
}

void DataGrid::SetColumnPosition(const QString& key, int position) {
  const int column = rows_.ColumnOf(key);
  if (column < 0 || position < 0 || position >= rows_.columnCount()) return;
  horizontalHeader()->moveSection(horizontalHeader()->visualIndex(column), position);
}

void DataGrid::MoveColumn(const QString& key, bool right) {
  QHeaderView& header = *horizontalHeader();
  const int column = rows_.ColumnOf(key);
  if (column < 0) return;
  const int step = right ? 1 : -1;
  int place = header.visualIndex(column) + step;
  while (header.isSectionHidden(header.logicalIndex(place))) place += step;
  if (place < 0 || place >= header.count()) return;
  header.moveSection(header.visualIndex(column), place);
  scrollTo(currentIndex());
}

void DataGrid::SetAlignment(const QString& key, GridAlignment alignment) {
  const int column = rows_.ColumnOf(key);
  if (column < 0 || AlignmentOf(key) == alignment) return;
  GridColumn description = rows_.Column(column);
  description.alignment = AlignmentFor(alignment);
  rows_.SetColumn(column, description);
}

GridAlignment DataGrid::AlignmentOf(const QString& key) const {
  const int column = rows_.ColumnOf(key);
  const Qt::Alignment alignment = column < 0 ? Qt::AlignLeft : rows_.Column(column).alignment;
  return alignment & Qt::AlignRight     ? GridAlignment::Right
         : alignment & Qt::AlignHCenter ? GridAlignment::Centre
                                        : GridAlignment::Left;
}

void DataGrid::SetWordWrap(const QString& key, bool wrap) {
  const int column = rows_.ColumnOf(key);
  if (column < 0 || rows_.Column(column).wordWrap == wrap) return;
  Wrap(column, wrap);
  FitRowHeight();
}

void DataGrid::Wrap(int column, bool wrap) {
  GridColumn description = rows_.Column(column);
  if (std::exchange(description.wordWrap, wrap) != wrap) rows_.SetColumn(column, description);
}

bool DataGrid::IsWrapped() const {
  for (int column = 0; column < rows_.columnCount(); ++column)
    if (rows_.Column(column).wordWrap && !isColumnHidden(column)) return true;
  return false;
}

// The rows from the first one that is seen on, as many as a screen shows.
void DataGrid::FitRowHeight() {
  constexpr int RowsMeasured = 50;
  constexpr int MostLines = 10;
  const int first = std::max(rowAt(0), 0);
  const int end = std::min(first + RowsMeasured, rows_.rowCount());
  const int least = LeastRowHeight(fontMetrics());
  int height = least;
  const int line = showGrid() ? 1 : 0;  // between two cells
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  for (int column = 0; column < rows_.columnCount(); ++column) {
    if (!rows_.Column(column).wordWrap || isColumnHidden(column)) continue;
    option.rect = QRect(0, 0, columnWidth(column) - line, least);
    for (int row = first; row < end; ++row)
      height = std::max(height, delegate_->sizeHint(option, rows_.index(row, column)).height() + line);
  }
  rowHeader_->SetRowHeight(std::min(height, least + (MostLines - 1) * fontMetrics().lineSpacing()));
}

// Pictures hold no text.
QList<int> DataGrid::CopiedColumns() const {
  QList<int> columns;
  for (int place = 0; place < rows_.columnCount(); ++place) {
    const int column = horizontalHeader()->logicalIndex(place);
    if (rows_.Column(column).bound && !isColumnHidden(column)) columns += column;
  }
  return columns;
}

QString DataGrid::CopySelection(const QString& cellSeparator, const QString& rowSeparator,
                                const Progress& progress) const {
  const QList<int> columns = CopiedColumns();
  const QList<int> rows = SelectedRows();
  const auto cellText = [&](int row, int column) {
    const QVariant value = rows_.Value(row, column);
    switch (rows_.Column(column).kind) {
      case ColumnKind::Lookup:
        return rows_.Column(column).lookup.TextOf(value.toLongLong());
      case ColumnKind::Boolean:
        return value.toBool() ? EitherLanguage(u"Sì"_qs, u"Yes"_qs) : u"No"_qs;
      default:
        return NullToEmpty(value);
    }
  };
  QString text;
  for (qsizetype i = 0; i < rows.size(); ++i) {
    if (i % ReportedRows == 0 && progress && !progress(i, rows.size(), {})) return {};
    if (i > 0) text += rowSeparator;
    for (qsizetype j = 0; j < columns.size(); ++j)
      text += (j > 0 ? cellSeparator : QString()) + cellText(rows[i], columns[j]);
  }
  return text;
}

void DataGrid::SetAcceptsFiles(bool accepts) {
  setAcceptDrops(accepts);
  viewport()->setAcceptDrops(accepts);
}

void DataGrid::Refresh() {
  if (isVisible() && delegate_->Editor() == nullptr) rows_.Refresh();
}

}  // namespace vorlina
