// Takes the pictures of windows.
#pragma once

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>
#include <cstdio>

namespace vorlina {

class Photographer {
 public:
  // Those of the names alone; all where there are none.
  Photographer(QString folder, QString suffix, QStringList names = {})
      : folder_(std::move(folder)), suffix_(std::move(suffix)), names_(std::move(names)) {}

  bool Wants(const QString& name) const { return names_.isEmpty() || names_.contains(name); }

  void Take(QWidget& window, const QString& name) const {
    window.show();
    QApplication::processEvents();
    if (!Wants(name)) return;
    const QString path = folder_ + u'/' + name + suffix_ + u".png"_qs;
    // The help is to be small.
    const auto format = names_.isEmpty() ? QImage::Format_RGB888 : QImage::Format_RGB16;
    const QImage picture = window.grab().toImage().convertToFormat(format);
    if (!picture.save(path, "PNG", 0)) std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
  }

  // Pictures are as sharp as they get when their window has been at rest for a moment.
  void TakeAtRest(QWidget& window, const QString& name) const {
    window.show();
    if (!Wants(name)) return Take(window, name);
    QEventLoop loop;
    QTimer::singleShot(400, &loop, &QEventLoop::quit);
    loop.exec();
    Take(window, name);
  }

  // A popup that is shown at its place, with the window behind it left out.
  void TakePopup(QWidget* popup, const QString& name) const {
    Take(*popup, name);
    popup->hide();
  }

 private:
  QString folder_;
  QString suffix_;
  QStringList names_;
};

inline void Press(QWidget& window, int key, const QString& text = {}) {
  QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
  QCoreApplication::sendEvent(&window, &event);
}

}  // namespace vorlina
