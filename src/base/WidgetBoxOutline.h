// Check boxes in lists.
#pragma once

#include <QStyledItemDelegate>

namespace vorlina {

// A style takes the outline of a check box from the colour of windows, which is lost on dark rows.
inline void ShowBoxOutline(QStyleOptionViewItem& option) {
  QPalette& palette = option.palette;
  if (palette.color(QPalette::Base).lightness() < 128)
    palette.setColor(QPalette::Window, palette.color(QPalette::Text));
}

// Draws the boxes of a list so that they are seen.
class WidgetBoxOutline : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    ShowBoxOutline(*option);
  }
};

}  // namespace vorlina
