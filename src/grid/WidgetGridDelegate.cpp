#include "grid/WidgetGridDelegate.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QToolTip>
#include <limits>

#include "base/Helpers.h"
#include "base/WidgetBoxOutline.h"
#include "grid/CellMarks.h"
#include "grid/WidgetDropDown.h"
#include "grid/WidgetRowHeader.h"

namespace vorlina {
namespace {

QLineEdit* LineOf(QWidget* editor) {
  auto* combo = qobject_cast<QComboBox*>(editor);
  return combo != nullptr ? combo->lineEdit() : qobject_cast<QLineEdit*>(editor);
}

QLineEdit* MakeLine(QWidget* parent, const GridColumn& column) {
  auto* line = new QLineEdit(parent);
  line->setFrame(false);
  line->setAlignment(column.alignment);
  return line;
}

bool IsEnter(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

void PaintFrame(QPainter& painter, const QStyleOptionViewItem& cell) {
  const bool selected = cell.state.testFlag(QStyle::State_Selected);
  painter.save();
  QPen pen(cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Highlight), 2);
  pen.setJoinStyle(Qt::MiterJoin);
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(cell.rect.adjusted(1, 1, -1, -1));
  painter.restore();
}

}  // namespace

WidgetGridDelegate::WidgetGridDelegate(RecordsetModel& rows, QObject* parent)
    : QStyledItemDelegate(parent), rows_(rows) {}

void WidgetGridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const bool odd = index.row() % 2 == 0;  // the first row is number 1
  option->backgroundBrush = index.row() == targetRow_ ? colours_.target
                            : odd                     ? colours_.oddRow
                                                      : colours_.evenRow;
  option->features.setFlag(QStyleOptionViewItem::WrapText, rows_.Column(index.column()).wordWrap);
  ShowBoxOutline(*option);
  const int state = index.data(RecordsetModel::RowStateRole).toInt();
  if (state == int(RowState::Deleted) || state == int(RowState::Unreadable)) option->font.setItalic(true);
}

// A picture stands in the middle of its cell. The current cell has a frame: styles differ in how they tell it
// within a row that is selected.
void WidgetGridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  const bool current = cell.state.testFlag(QStyle::State_HasFocus);
  cell.state &= ~QStyle::State_HasFocus;
  if (index.row() == targetRow_) cell.state &= ~QStyle::State_Selected;
  if (rows_.Column(index.column()).bound) {
    QStyledItemDelegate::paint(painter, cell, index);
    PaintMarks(*painter, cell, index);
  } else {
    initStyleOption(&cell, index);
    cell.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, painter, cell.widget);
    cell.icon.paint(painter, cell.rect.adjusted(2, 2, -2, -2));
  }
  if (current) PaintFrame(*painter, cell);
}

// The new row, and what stands in the place of a row that is gone, are found by nobody.
void WidgetGridDelegate::PaintMarks(QPainter& painter, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
  if (marks_.IsEmpty()) return;
  const RowState state = rows_.StateOf(index.row());
  if (state != RowState::Shown && state != RowState::Edited) return;
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  PaintCellMarks(painter, cell, marks_.PiecesIn(cell.text), colours_);
}

QWidget* WidgetGridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                          const QModelIndex& index) const {
  const GridColumn& column = rows_.Column(index.column());
  rows_.Pin(index.row());
  QWidget* editor = column.kind == ColumnKind::Lookup
                        ? static_cast<QWidget*>(
                              new WidgetDropDown(parent, column.lookup, LeastRowHeight(option.fontMetrics)))
                        : MakeLine(parent, column);
  LineOf(editor)->setMaxLength(std::numeric_limits<int>::max());
  editor->setObjectName(u"editor"_qs);
  editor->setAccessibleName(column.caption);
  editor->setAutoFillBackground(true);
  // The area around the cells has a colour of its own, which would be inherited.
  QPalette palette = option.palette;
  palette.setBrush(QPalette::Base, palette.brush(QPalette::Base));
  editor->setPalette(palette);
  refused_ = false;
  editor_ = editor;
  return editor;
}

void WidgetGridDelegate::ShowList() {
  auto* combo = qobject_cast<QComboBox*>(editor_);
  if (combo == nullptr) return;
  const int typed = combo->findText(combo->currentText(), Qt::MatchFixedString);
  if (typed >= 0) combo->setCurrentIndex(typed);
  combo->view()->installEventFilter(combo);
  combo->showPopup();
}

QLineEdit* WidgetGridDelegate::Line() const { return editor_ != nullptr ? LineOf(editor_) : nullptr; }

bool WidgetGridDelegate::eventFilter(QObject* watched, QEvent* event) {
  if (watched == editor_ && event->type() == QEvent::KeyRelease && OnKeyReleased)
    OnKeyReleased(*Line(), *static_cast<QKeyEvent*>(event));
  if (watched == editor_ && IsEnter(*event)) {
    if (OnEnter) OnEnter();
    return true;
  }
  auto* combo = qobject_cast<QComboBox*>(watched);
  if (combo != nullptr && FilterDropDown(*combo, *event)) return true;
  return QStyledItemDelegate::eventFilter(watched, event);
}

// The keys that go through a list open it, and the wheel scrolls the grid: each would change the value in a
// closed one unseen.
bool WidgetGridDelegate::FilterDropDown(QComboBox& combo, QEvent& event) {
  if (event.type() == QEvent::Wheel) {
    event.ignore();
    return true;
  }
  if (event.type() != QEvent::KeyPress || &combo != editor_) return false;
  switch (static_cast<QKeyEvent&>(event).key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_F4:
      ShowList();
      return true;
    default:
      return false;
  }
}

void WidgetGridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  QLineEdit* line = LineOf(editor);
  if (line->isModified()) return;  // what the user types is not taken away
  const bool lookup = rows_.Column(index.column()).kind == ColumnKind::Lookup;
  const QString text = lookup ? index.data().toString() : NullToEmpty(index.data(RecordsetModel::ValueRole));
  if (auto* combo = qobject_cast<QComboBox*>(editor)) combo->setCurrentIndex(combo->findText(text));
  line->setText(text);
  line->selectAll();
}

void WidgetGridDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
  // A box may have been up when the text is taken, and neither need be there behind it.
  const QPointer<QLineEdit> line = LineOf(editor);
  const QPersistentModelIndex cell = index;
  const bool lookup = qobject_cast<QComboBox*>(editor) != nullptr;
  const bool changed = line->isModified() || (lookup && line->text() != index.data().toString());
  refused_ = changed && !rows_.SetText(index, line->text());
  // A row that has gone meanwhile cannot take anything: its editor is not held open.
  if (refused_ && (!cell.isValid() || rows_.StateOf(cell.row()) == RowState::Deleted)) refused_ = false;
  if (!refused_ && line != nullptr) line->setModified(false);
}

void WidgetGridDelegate::TypeOver(const QString& text) const {
  if (editor_ == nullptr) return;
  QLineEdit* line = LineOf(editor_);
  line->selectAll();
  line->insert(text);
}

bool WidgetGridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                   const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid() || !rows_.Column(index.column()).bound)
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  const QSize whole = sizeHint(option, index);
  const bool cut = whole.width() > option.rect.width() || whole.height() > option.rect.height();
  QToolTip::showText(event->globalPos(), cut ? PlainToolTip(index.data().toString()) : QString(),
                     view->viewport(), option.rect);
  return true;
}

void WidgetGridDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                              const QModelIndex&) const {
  editor->setGeometry(option.rect);
}

}  // namespace vorlina
