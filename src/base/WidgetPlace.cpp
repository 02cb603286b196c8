#include "base/WidgetPlace.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QScreen>
#include <QWidget>

#include "base/Error.h"
#include "base/Settings.h"
#include "base/WindowPlace.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(windows, "vorlina.windows", QtInfoMsg)

const QString Section = u"Riservati"_qs;

int Stored(const QString& key, int fallback) {
  bool isNumber = false;
  const int stored = GetSetting(ApplicationTitle(), Section, key, {}).toInt(&isNumber);
  return isNumber ? stored : fallback;
}

}  // namespace

void RestorePlace(QWidget& window, const QString& name) {
  if (GetSetting(ApplicationTitle(), Section, name + u"Left"_qs, {}).isEmpty()) return;
  const QSize size(Stored(name + u"Width"_qs, window.width()), Stored(name + u"Height"_qs, window.height()));
  window.resize(size.boundedTo(window.screen()->availableGeometry().size()));
  QList<QRect> screens;
  for (const QScreen* screen : QGuiApplication::screens()) screens += screen->availableGeometry();
  const QPoint corner(Stored(name + u"Left"_qs, window.x()), Stored(name + u"Top"_qs, window.y()));
  window.move(VisibleCorner(corner, window.size(), screens));
}

// Of a window that fills its screen the place says nothing.
void StorePlace(const QWidget& window, const QString& name) {
  if (window.isMaximized() || window.isFullScreen()) return;
  try {
    const std::pair<QString, int> numbers[] = {{u"Left"_qs, window.x()},
                                               {u"Top"_qs, window.y()},
                                               {u"Width"_qs, window.width()},
                                               {u"Height"_qs, window.height()}};
    for (const auto& [key, number] : numbers)
      SaveSetting(ApplicationTitle(), Section, name + key, QString::number(number));
  } catch (const std::exception& error) {
    qCDebug(windows) << "place not stored" << name << DescriptionOf(error);
  }
}

// Its frame and the desktop's bars take a part.
void FitIntoScreen(QWidget& window) {
  window.resize(window.size().boundedTo(window.screen()->availableSize() * 9 / 10));
}

}  // namespace vorlina
