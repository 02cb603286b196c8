// The editor of a column with a lookup: an editable drop-down of its texts.
#pragma once

#include <QComboBox>

#include "grid/Lookup.h"

namespace vorlina {

class WidgetDropDown : public QComboBox {
 public:
  // The rows of the list are as high as those of the grid, or as its style needs them.
  WidgetDropDown(QWidget* parent, const Lookup& lookup, int rowHeight);

  // The list is as wide as its longest text, within the screen, and one row higher than its texts are, up to
  // nine rows.
  void showPopup() override;

  // Has the list offer these, from the first one on. What is typed goes.
  void Offer(const Lookup& lookup);

 protected:
  // Of the list, where it is told to watch it: Tab takes over from there, and leaves the cell.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int LongestTextWidth() const;
};

}  // namespace vorlina
