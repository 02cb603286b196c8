#include "base/WindowPlace.h"

#include <algorithm>

namespace vorlina {
namespace {

constexpr int TitleHeight = 24;
// The least part of a title that a hand finds.
constexpr QSize Grip{80, 12};

QPoint NearestWhole(QPoint corner, QSize window, const QRect& screen) {
  const auto within = [](int at, int from, int space) {
    return std::clamp(at, from, from + std::max(space, 0));
  };
  return {within(corner.x(), screen.x(), screen.width() - window.width()),
          within(corner.y(), screen.y(), screen.height() - window.height())};
}

}  // namespace

QPoint VisibleCorner(QPoint corner, QSize window, const QList<QRect>& screens) {
  const QRect title(corner, QSize(window.width(), TitleHeight));
  const auto holds = [&](const QRect& screen) {
    const QRect part = screen & title;
    return part.width() >= std::min(Grip.width(), title.width()) && part.height() >= Grip.height();
  };
  if (screens.isEmpty() || std::any_of(screens.begin(), screens.end(), holds)) return corner;
  return NearestWhole(corner, window, screens.first());
}

QPoint WholeCorner(QPoint corner, QSize window, const QList<QRect>& screens) {
  const auto holds = [&](const QRect& screen) { return screen.contains(QRect(corner, window)); };
  if (screens.isEmpty() || std::any_of(screens.begin(), screens.end(), holds)) return corner;
  const QSize space = screens.first().size();
  return window.boundedTo(space) == window ? NearestWhole(corner, window, screens.first()) : corner;
}

}  // namespace vorlina
