#include "grid/WidgetRowHeader.h"

#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "grid/RecordsetModel.h"

namespace vorlina {
namespace {

// A pencil that points to the lower left, as fonts do not all have one.
QPolygonF Pencil(const QRectF& box) {
  const auto at = [&](double x, double y) {
    return QPointF(box.x() + x * box.width(), box.y() + y * box.height());
  };
  return {{at(0, 1), at(0.1, 0.65), at(0.75, 0), at(1, 0.25), at(0.35, 0.9)}};
}

QPolygonF Triangle(const QRectF& box, bool mirrored) {
  const double base = mirrored ? box.right() : box.left();
  const double tip = mirrored ? box.left() : box.right();
  return {{QPointF(base, box.top()), QPointF(tip, box.center().y()), QPointF(base, box.bottom())}};
}

}  // namespace

WidgetRowHeader::WidgetRowHeader(QTableView& grid) : QHeaderView(Qt::Vertical, &grid), grid_(grid) {
  setSectionsClickable(true);
  setSectionResizeMode(Interactive);
  connect(this, &QHeaderView::sectionResized, this, &WidgetRowHeader::Resized);
}

// The row that the user drags takes all others with it, and stays where it is.
void WidgetRowHeader::Resized(int row, int, int height) { ChangeHeight(height, row); }

void WidgetRowHeader::SetRowHeight(int height) {
  ChangeHeight(std::max(height, minimumSectionSize()), std::max(logicalIndexAt(0), 0));
}

void WidgetRowHeader::ChangeHeight(int height, int keptRow) {
  if (height == defaultSectionSize()) return;
  const int above = keptRow * (height - defaultSectionSize());
  {
    // Else each row would tell of its new height.
    const QSignalBlocker quiet(this);
    setDefaultSectionSize(height);
  }
  viewport()->update();
  Q_EMIT geometriesChanged();
  QScrollBar& bar = *grid_.verticalScrollBar();
  bar.setValue(bar.value() + above);
}

void WidgetRowHeader::SetCurrentRow(int row) {
  for (const int changed : {std::exchange(currentRow_, row), row})
    if (changed >= 0 && changed < count()) updateSection(changed);
}

void WidgetRowHeader::SetLeastHeight(int height) {
  const int former = std::exchange(leastHeight_, height);
  setMinimumSectionSize(height);
  if (defaultSectionSize() < height || defaultSectionSize() == former || former == 0) SetRowHeight(height);
}

QSize WidgetRowHeader::sizeHint() const { return {fontMetrics().height() + 8, 0}; }

void WidgetRowHeader::paintSection(QPainter* painter, const QRect& rect, int row) const {
  QStyleOptionHeader option;
  initStyleOption(&option);
  option.rect = rect;
  option.section = row;
  option.state |= QStyle::State_Raised;
  style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);

  const auto state = RowState(model()->headerData(row, orientation(), RecordsetModel::RowStateRole).toInt());
  const double side = fontMetrics().height() * 0.55;
  QRectF box(0, 0, side, side);
  box.moveCenter(QRectF(rect).center());
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(palette().color(QPalette::ButtonText));
  painter->setBrush(palette().color(QPalette::ButtonText));
  if (state == RowState::Edited || state == RowState::Added)
    painter->drawPolygon(Pencil(box));
  else if (row == grid_.currentIndex().row())
    painter->drawPolygon(Triangle(box.adjusted(side / 5, 0, -side / 5, 0), isRightToLeft()));
  else if (state == RowState::AddNew)
    painter->drawText(rect, Qt::AlignCenter, u"*"_qs);
  painter->restore();
}

}  // namespace vorlina
