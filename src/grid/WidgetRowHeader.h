// The strip at the left of a grid with a mark per row: the current one, the one in edit, the add-new row. All
// rows have one height, which the user may change for all; so no row is measured.
#pragma once

#include <QHeaderView>
#include <QTableView>

namespace vorlina {

// The least height of a row in a font.
inline int LeastRowHeight(const QFontMetrics& metrics) { return metrics.height() + 6; }

class WidgetRowHeader : public QHeaderView {
 public:
  explicit WidgetRowHeader(QTableView& grid);

  // The row's mark changes with the current row.
  void SetCurrentRow(int row);
  // The least height of the rows, which they have until they are given a greater one.
  void SetLeastHeight(int height);
  // The height of all rows. The row at the top stays there.
  void SetRowHeight(int height);

  QSize sizeHint() const override;

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int row) const override;

 private:
  void Resized(int row, int former, int height);
  void ChangeHeight(int height, int keptRow);

  QTableView& grid_;
  int currentRow_ = -1;
  int leastHeight_ = 0;
};

}  // namespace vorlina
