// Tells a drag of selected rows, by a cell or by the strip at the left, from a click. While rows are dragged
// the grid scrolls near its edges, and Escape ends it without a drop.
#pragma once

#include <QObject>
#include <QTableView>
#include <QTimer>
#include <functional>

namespace vorlina {

class WidgetRowDrag : public QObject {
  Q_OBJECT

 public:
  explicit WidgetRowDrag(QTableView& grid);

  // Asked before a drag begins; without it, it may.
  std::function<bool()> MayStart;

  bool IsDragging() const { return phase_ == Phase::Dragging; }
  // Until the button is released nothing else comes of the press either.
  void Cancel();

 Q_SIGNALS:
  // Above the rows it is the first one that is seen, below them, or on the add-new row, the last one. Row -1:
  // there is none, or the pointer is beside the grid, where a drop cancels.
  void Started();
  void Moved(int row);
  void Dropped(int row);
  void Cancelled();
  // A selected row was clicked in the strip, and not dragged.
  void HeaderClicked(int row);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class Phase { None, Pressed, Dragging, Cancelled };

  bool Press(const QMouseEvent& event, bool onHeader);
  bool Move(const QMouseEvent& event);
  bool Release(const QMouseEvent& event);
  bool IsAddNew(int row) const;
  void Follow(const QMouseEvent& event);
  void Mark();
  void Scroll();
  void Start();
  int End();

  QTableView& grid_;
  QTimer scroll_;
  QPoint pressed_;
  Phase phase_ = Phase::None;
  int pressedRow_ = -1;
  bool onHeader_ = false;
  bool beside_ = false;
  int y_ = 0;
  int row_ = -1;
};

}  // namespace vorlina
