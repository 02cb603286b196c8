// Where a window may stand.
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

namespace vorlina {

// The corner itself where enough of the window's title is on one of the screens to take hold of it;
// otherwise the nearest place on the first one at which the window shows whole, as far as it fits. Without
// screens, the corner itself.
QPoint VisibleCorner(QPoint corner, QSize window, const QList<QRect>& screens);

// The corner itself where the window shows whole on one of the screens, or is larger than the first one;
// otherwise the nearest place on that at which it does.
QPoint WholeCorner(QPoint corner, QSize window, const QList<QRect>& screens);

}  // namespace vorlina
