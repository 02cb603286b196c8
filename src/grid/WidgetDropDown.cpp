#include "grid/WidgetDropDown.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QListView>
#include <QScreen>
#include <QStringListModel>
#include <QStyle>
#include <QStyledItemDelegate>
#include <algorithm>

namespace vorlina {
namespace {

constexpr int MostRows = 9;

class ListDelegate : public QStyledItemDelegate {
 public:
  ListDelegate(QObject* parent, int rowHeight) : QStyledItemDelegate(parent), rowHeight_(rowHeight) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index).expandedTo({0, rowHeight_});
  }

 private:
  int rowHeight_;
};

}  // namespace

WidgetDropDown::WidgetDropDown(QWidget* parent, const Lookup& lookup, int rowHeight) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setFrame(false);
  setMaxVisibleItems(MostRows);
  // Else each opening would measure all the texts.
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  Offer(lookup);
  setItemDelegate(new ListDelegate(this, rowHeight));
  if (auto* list = qobject_cast<QListView*>(view())) list->setUniformItemSizes(true);
}

void WidgetDropDown::Offer(const Lookup& lookup) {
  QStringList texts;
  for (const LookupItem& item : lookup.Items()) texts += item.text;
  auto* items = qobject_cast<QStringListModel*>(model());
  if (items == nullptr) setModel(items = new QStringListModel(this));
  items->setStringList(texts);
}

// Without what the list has around its texts.
int WidgetDropDown::LongestTextWidth() const {
  const QFontMetrics metrics = view()->fontMetrics();
  int width = 0;
  for (int i = 0; i < count(); ++i) width = std::max(width, metrics.horizontalAdvance(itemText(i)));
  return width;
}

// Qt places the list by its least size.
void WidgetDropDown::showPopup() {
  if (count() == 0) return;
  QAbstractItemView& list = *view();
  const int rows = std::min(count() + 1, MostRows);
  const int around =
      list.sizeHintForIndex(model()->index(0, 0)).width() - list.fontMetrics().horizontalAdvance(itemText(0));
  const int bar = count() > rows ? style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &list) : 0;
  const int frame = 2 * list.frameWidth();
  const int width = LongestTextWidth() + std::max(around, 0) + bar + frame;
  list.setMinimumSize(width, rows * std::max(list.sizeHintForRow(0), 1) + frame);
  const int whole = list.parentWidget()->layout()->totalMinimumSize().width();
  const int tooMuch = whole - screen()->availableGeometry().width();
  if (tooMuch > 0) list.setMinimumWidth(width - tooMuch);
  QComboBox::showPopup();
}

// Not the delegate's: a list that goes with its editor would be taken for an editor that loses the focus.
bool WidgetDropDown::eventFilter(QObject* watched, QEvent* event) {
  const int key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->key() : 0;
  if (key != Qt::Key_Tab && key != Qt::Key_Backtab) return QComboBox::eventFilter(watched, event);
  if (view()->currentIndex().isValid()) setCurrentIndex(view()->currentIndex().row());
  hidePopup();
  QCoreApplication::sendEvent(this, event);
  return true;
}

}  // namespace vorlina
