#include "grid/GridFiles.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QTableView>
#include <algorithm>

#include "grid/RecordsetModel.h"

namespace vorlina {

QStringList LocalFiles(const QDropEvent& event, const TakesFile& takes) {
  QStringList paths;
  if (QApplication::activeModalWidget() != nullptr) return paths;
  for (const QUrl& url : event.mimeData()->urls())
    if (url.isLocalFile()) paths += QDir::toNativeSeparators(url.toLocalFile());
  if (takes && std::none_of(paths.begin(), paths.end(), takes)) paths.clear();
  return paths;
}

GridFiles FilesOf(const QDropEvent& event, const QTableView& view, const RecordsetModel& rows,
                  const TakesFile& takes) {
  GridFiles files;
  files.paths = LocalFiles(event, takes);
  if (files.paths.isEmpty()) return files;
  if (const int row = view.rowAt(event.position().toPoint().y()); row >= 0 && !rows.IsAddNewRow(row))
    files.row = row;
  return files;
}

}  // namespace vorlina
