// Ends the program when a window has been painted for the first time.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

class FirstPaint : public QObject {
 public:
  explicit FirstPaint(QWidget& window) : window_(window) { qApp->installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &window_ && event->type() == QEvent::Paint)
      QTimer::singleShot(0, qApp, [] { std::_Exit(0); });
    return QObject::eventFilter(watched, event);
  }

 private:
  QWidget& window_;
};
