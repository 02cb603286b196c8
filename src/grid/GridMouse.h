// What the mouse does in a grid: a press leaves the row in edit before it goes anywhere, and the window hears
// of it. Positions are the grid's own; a row of -1 and no key are no cell.
#pragma once

#include <QObject>
#include <functional>

class QMouseEvent;
class QPersistentModelIndex;
class QTableView;

namespace vorlina {

class RecordsetModel;
class RowLeaving;
class WidgetRowDrag;

class GridMouse : public QObject {
  Q_OBJECT

 public:
  // What the view itself would do.
  using ViewsOwn = std::function<void()>;

  // Watches the headers of the view as well.
  GridMouse(QTableView& view, RecordsetModel& rows, RowLeaving& leaving, WidgetRowDrag& drag);

  void Press(const QMouseEvent& event, const ViewsOwn& own);
  void Move(const QMouseEvent& event, const ViewsOwn& own);
  void DoubleClick(const QMouseEvent& event, const ViewsOwn& own);
  // The pointer is on no cell any more.
  void Leave();

 Q_SIGNALS:
  void HeaderPressed(const QString& key, Qt::MouseButton button, const QPoint& position);
  void CellPressed(int row, const QString& key, Qt::MouseButton button, const QPoint& position);
  void CellHovered(int row, const QString& key, const QPoint& position);
  void DoubleClicked(int row, const QString& key);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool PressStrip(const QMouseEvent& press);
  bool MayDragTo(int row, const QMouseEvent& event);
  void MakeCurrent(const QModelIndex& cell);
  QPoint Own(const QPoint& viewportPosition) const;

  QTableView& view_;
  RecordsetModel& rows_;
  RowLeaving& leaving_;
  WidgetRowDrag& drag_;
  bool stays_ = false;  // the press that is held down could not leave the row in edit
};

}  // namespace vorlina
