// Files dropped by a program that would rather have them moved.
#pragma once

#include <gtest/gtest.h>

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace vorlina {

inline void DropOn(QWidget& widget, QPoint at, const QList<QUrl>& urls) {
  QMimeData data;
  data.setUrls(urls);
  QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &enter);
  if (!enter.isAccepted()) return;
  EXPECT_EQ(enter.dropAction(), Qt::CopyAction) << "nobody's file is to be moved away";
  QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &drop);
  QCoreApplication::processEvents();
}

inline QList<QUrl> LocalUrls(const QStringList& paths) {
  QList<QUrl> urls;
  for (const QString& path : paths) urls += QUrl::fromLocalFile(path);
  return urls;
}

}  // namespace vorlina
