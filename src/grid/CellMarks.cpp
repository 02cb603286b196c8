#include "grid/CellMarks.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace vorlina {
namespace {

// Where a style paints the text of an item.
QRect TextRect(const QStyleOptionViewItem& cell) {
  const QStyle& style = cell.widget != nullptr ? *cell.widget->style() : *QApplication::style();
  const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, cell.widget) + 1;
  return style.subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget)
      .adjusted(margin, 0, -margin, 0);
}

// Lays out the lines of the text that are seen whole, the first in any case; their height.
qreal LayOut(QTextLayout& layout, const QStyleOptionViewItem& cell, const QSize& room) {
  QTextOption option;
  const bool wraps = cell.features.testFlag(QStyleOptionViewItem::WrapText);
  option.setWrapMode(wraps ? QTextOption::WordWrap : QTextOption::ManualWrap);
  option.setTextDirection(cell.direction);
  option.setAlignment(QStyle::visualAlignment(cell.direction, cell.displayAlignment));
  layout.setTextOption(option);
  qreal height = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(room.width());
    line.setPosition({0, height});
    height += line.height();
    if (height + line.height() > room.height()) break;
  }
  layout.endLayout();
  return height;
}

// The text as far as it is seen: a single line that is too wide ends in dots.
QString SeenText(const QStyleOptionViewItem& cell, int width) {
  const bool wraps = cell.features.testFlag(QStyleOptionViewItem::WrapText);
  if (wraps || cell.text.contains(QChar::LineSeparator)) return cell.text;
  return cell.fontMetrics.elidedText(cell.text, cell.textElideMode, width);
}

// The part of a line that a piece takes, in the layout's own place.
QRectF PartOf(const QTextLine& line, qsizetype start, qsizetype end) {
  const qsizetype first = line.textStart();
  const qsizetype last = first + line.textLength();
  if (end <= first || start >= last) return {};
  const qreal left = line.cursorToX(int(std::max(start, first)));
  const qreal right = line.cursorToX(int(std::min(end, last)));
  return {std::min(left, right), line.y(), std::abs(right - left), line.height()};
}

}  // namespace

void PaintCellMarks(QPainter& painter, const QStyleOptionViewItem& cell,
                    const std::vector<TextNeedle::Piece>& pieces, const GridColours& colours) {
  if (pieces.empty()) return;
  const QRect rect = TextRect(cell);
  const QString text = SeenText(cell, rect.width());
  QTextLayout layout(text, cell.font);
  const qreal height = LayOut(layout, cell, rect.size());
  const QSize size(rect.width(), int(std::ceil(height)));
  const QRect place = QStyle::alignedRect(cell.direction, cell.displayAlignment, size, rect);
  const QPointF origin(rect.left(), place.top());
  const qsizetype seen = text == cell.text ? text.size() : std::max<qsizetype>(text.size() - 1, 0);
  QPainterPath parts;
  parts.setFillRule(Qt::WindingFill);
  for (const TextNeedle::Piece& piece : pieces) {
    const qsizetype start = std::min(piece.start, seen);
    const qsizetype end = piece.start + piece.length <= seen ? piece.start + piece.length : text.size();
    for (int i = 0; i < layout.lineCount(); ++i)
      parts.addRect(PartOf(layout.lineAt(i), start, end).translated(origin) & QRectF(cell.rect));
    // All that follow are behind the same dots.
    if (piece.start >= seen) break;
  }
  if (parts.isEmpty()) return;
  painter.save();
  painter.setClipPath(parts);
  painter.fillRect(cell.rect, colours.mark);
  painter.setPen(colours.markedText);
  layout.draw(&painter, origin);
  painter.restore();
}

}  // namespace vorlina
