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

// The same where a window is to show whole: the corner itself if it does so there, on one of the screens.
QPoint WholeCorner(QPoint corner, QSize window, const QList<QRect>& screens);

}  // namespace vorlina
