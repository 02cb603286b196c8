#include "grid/GridArrangement.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableView>
#include <algorithm>

#include "grid/GridCells.h"
#include "grid/RecordsetModel.h"
#include "grid/WidgetGridDelegate.h"
#include "grid/WidgetRowHeader.h"

namespace vorlina {
namespace {

Qt::Alignment AlignmentFor(GridAlignment alignment) {
  const Qt::Alignment across = alignment == GridAlignment::Left     ? Qt::AlignLeft
                               : alignment == GridAlignment::Centre ? Qt::AlignHCenter
                                                                    : Qt::AlignRight;
  return across | Qt::AlignVCenter;
}

}  // namespace

GridArrangement::GridArrangement(QTableView& view, RecordsetModel& rows, const WidgetGridDelegate& delegate,
                                 WidgetRowHeader& strip)
    : view_(view), rows_(rows), delegate_(delegate), strip_(strip) {
  QObject::connect(view.horizontalHeader(), &QHeaderView::sectionResized, &view, [this](int column) {
    if (!arranging_ && column < rows_.columnCount() && rows_.Column(column).wordWrap) FitRowHeight();
  });
}

GridLayout GridArrangement::Layout() const {
  GridLayout layout;
  const QHeaderView& header = *view_.horizontalHeader();
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
  layout.sortKey = KeyOf(rows_, rows_.SortColumn());
  layout.descending = rows_.Sorted() == SortDirection::Descending;
  layout.rowHeight = strip_.defaultSectionSize();
  return layout;
}

void GridArrangement::Arrange(const GridLayout& layout, bool moves) {
  const QScopedValueRollback<bool> arranging(arranging_, true);
  int place = 0;
  for (const GridColumnLayout& stored : layout.columns) {
    const int column = rows_.ColumnOf(stored.key);
    if (column < 0) continue;
    if (moves) SetColumnPosition(stored.key, place++);
    SetAlignment(stored.key, stored.alignment);
    Wrap(column, stored.wordWrap);
    view_.setColumnHidden(column, false);
    if (stored.width > 0) view_.setColumnWidth(column, stored.width);
    view_.setColumnHidden(column, !stored.visible || !rows_.Column(column).visible);
  }
}

void GridArrangement::SetRowHeight(int stored) {
  if (stored > 0)
    strip_.SetRowHeight(stored);
  else if (IsWrapped())
    FitRowHeight();
}

void GridArrangement::HideColumns() {
  for (int column = 0; column < rows_.columnCount(); ++column)
    view_.setColumnHidden(column, !rows_.Column(column).visible);
}

void GridArrangement::SetColumnPosition(const QString& key, int position) {
  const int column = rows_.ColumnOf(key);
  if (column < 0 || position < 0 || position >= rows_.columnCount()) return;
  view_.horizontalHeader()->moveSection(view_.horizontalHeader()->visualIndex(column), position);
}

void GridArrangement::MoveColumn(const QString& key, bool right) {
  QHeaderView& header = *view_.horizontalHeader();
  const int column = rows_.ColumnOf(key);
  if (column < 0) return;
  const int step = right ? 1 : -1;
  int place = header.visualIndex(column) + step;
  while (header.isSectionHidden(header.logicalIndex(place))) place += step;
  if (place < 0 || place >= header.count()) return;
  header.moveSection(header.visualIndex(column), place);
  view_.scrollTo(view_.currentIndex());
}

void GridArrangement::SetAlignment(const QString& key, GridAlignment alignment) {
  const int column = rows_.ColumnOf(key);
  if (column < 0 || AlignmentOf(key) == alignment) return;
  GridColumn description = rows_.Column(column);
  description.alignment = AlignmentFor(alignment);
  rows_.SetColumn(column, description);
}

GridAlignment GridArrangement::AlignmentOf(const QString& key) const {
  const int column = rows_.ColumnOf(key);
  const Qt::Alignment alignment = column < 0 ? Qt::AlignLeft : rows_.Column(column).alignment;
  return alignment & Qt::AlignRight     ? GridAlignment::Right
         : alignment & Qt::AlignHCenter ? GridAlignment::Centre
                                        : GridAlignment::Left;
}

void GridArrangement::SetWordWrap(const QString& key, bool wrap) {
  const int column = rows_.ColumnOf(key);
  if (column < 0 || rows_.Column(column).wordWrap == wrap) return;
  Wrap(column, wrap);
  FitRowHeight();
}

void GridArrangement::Wrap(int column, bool wrap) {
  GridColumn description = rows_.Column(column);
  if (std::exchange(description.wordWrap, wrap) != wrap) rows_.SetColumn(column, description);
}

bool GridArrangement::IsWrapped() const {
  for (int column = 0; column < rows_.columnCount(); ++column)
    if (rows_.Column(column).wordWrap && !view_.isColumnHidden(column)) return true;
  return false;
}

// The rows from the first one that is seen on, as many as a screen shows.
void GridArrangement::FitRowHeight() {
  constexpr int RowsMeasured = 50;
  constexpr int MostLines = 10;
  const int first = std::max(view_.rowAt(0), 0);
  const int end = std::min(first + RowsMeasured, rows_.rowCount());
  const int least = LeastRowHeight(view_.fontMetrics());
  int height = least;
  const int line = view_.showGrid() ? 1 : 0;  // between two cells
  QStyleOptionViewItem option = CellOption();
  for (int column = 0; column < rows_.columnCount(); ++column) {
    if (!rows_.Column(column).wordWrap || view_.isColumnHidden(column)) continue;
    option.rect = QRect(0, 0, view_.columnWidth(column) - line, least);
    for (int row = first; row < end; ++row)
      height = std::max(height, delegate_.sizeHint(option, rows_.index(row, column)).height() + line);
  }
  strip_.SetRowHeight(std::min(height, least + (MostLines - 1) * view_.fontMetrics().lineSpacing()));
}

void GridArrangement::ShowSort() {
  QHeaderView& header = *view_.horizontalHeader();
  const bool sorted = rows_.SortColumn() >= 0;
  header.setSortIndicatorShown(sorted);
  if (!sorted) return;
  header.setSortIndicator(rows_.SortColumn(), rows_.Sorted() == SortDirection::Descending
                                                  ? Qt::DescendingOrder
                                                  : Qt::AscendingOrder);
}

}  // namespace vorlina
