// Opens the editor of a cell whose row was selected already when it was clicked, once the click cannot become
// a double click any more. Whatever the user does meanwhile goes before it: a key, another press, another
// window.
#pragma once

#include <QObject>
#include <QPersistentModelIndex>
#include <QTimer>

class QMouseEvent;
class QTableView;

namespace vorlina {

class WidgetClickEdit : public QObject {
 public:
  explicit WidgetClickEdit(QTableView& grid);

  // The click that waits comes to nothing.
  void Forget() { wait_.stop(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Press(const QMouseEvent& event);
  void Release(const QMouseEvent& event);
  void Open();

  QTableView& grid_;
  QTimer wait_;
  QPersistentModelIndex pressed_;
};

}  // namespace vorlina
