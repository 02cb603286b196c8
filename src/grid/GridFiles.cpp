#include "grid/GridFiles.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QTableView>
#include <algorithm>

#include "grid/RecordsetModel.h"

namespace vorlina {

GridFiles FilesOf(const QDropEvent& event, const QTableView& view, const RecordsetModel& rows,
                  const TakesFile& takes) {
  if (QApplication::activeModalWidget() != nullptr) return {};
  GridFiles files;
  for (const QUrl& url : event.mimeData()->urls())
    if (url.isLocalFile()) files.paths += QDir::toNativeSeparators(url.toLocalFile());
  if (takes && std::none_of(files.paths.begin(), files.paths.end(), takes)) files.paths.clear();
  if (const int row = view.rowAt(event.position().toPoint().y()); row >= 0 && !rows.IsAddNewRow(row))
    files.row = row;
  return files;
}

}  // namespace vorlina
