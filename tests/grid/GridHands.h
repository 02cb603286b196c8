// The user's hands on a grid in a window: keys and the mouse.
#pragma once

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QTest>

#include "base/Helpers.h"
#include "grid/DataGrid.h"
#include "support/Drop.h"

namespace vorlina {

class GridHands {
 public:
  virtual ~GridHands() = default;

 protected:
  virtual QWidget& Window() const = 0;
  virtual DataGrid& Grid() const = 0;

  // To whatever has the focus.
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    QTest::keyClick(Window().windowHandle(), Qt::Key(key), modifiers);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  QPoint PointOf(int row, const QString& key) const {
    const QModelIndex cell = Grid().Rows().index(row, Grid().Rows().ColumnOf(key));
    return Grid().viewport()->mapTo(&Window(), Grid().visualRect(cell).center());
  }
  void Move(const QPoint& point) const {
    QTest::mouseMove(Window().windowHandle(), point);
    QCoreApplication::processEvents();
  }
  void Release(const QPoint& point) const {
    QTest::mouseRelease(Window().windowHandle(), Qt::LeftButton, {}, point);
    QCoreApplication::processEvents();
  }
  void Click(const QPoint& point, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
             Qt::MouseButton button = Qt::LeftButton) const {
    QTest::mouseClick(Window().windowHandle(), button, modifiers, point);
    QCoreApplication::processEvents();
  }
  void Click(int row, const QString& key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    Click(PointOf(row, key), modifiers);
  }
  // Presses on the point and drags in small steps to the other; the button stays down.
  void DragTo(const QPoint& from, const QPoint& to) const {
    QTest::mousePress(Window().windowHandle(), Qt::LeftButton, {}, from);
    for (int step = 1; step <= 8; ++step) Move(from + (to - from) * step / 8);
  }
  // The line of the open editor, or null.
  QLineEdit* Editor() const {
    for (QWidget* editor : Grid().viewport()->findChildren<QWidget*>(u"editor"_qs)) {
      auto* combo = qobject_cast<QComboBox*>(editor);
      if (editor->isVisible()) return combo != nullptr ? combo->lineEdit() : qobject_cast<QLineEdit*>(editor);
    }
    return nullptr;
  }
  void DropFiles(int row, const QList<QUrl>& urls) const {
    DropOn(*Grid().viewport(), Grid().visualRect(Grid().Rows().index(row, 0)).center(), urls);
  }
  QString Shown(int row, const QString& key) const {
    return Grid().Rows().index(row, Grid().Rows().ColumnOf(key)).data().toString();
  }
};

}  // namespace vorlina
