// Files that are dragged onto a window, and onto the rows of a grid.
#pragma once

#include <QStringList>
#include <functional>

class QDropEvent;
class QTableView;

namespace vorlina {

class RecordsetModel;

// Whether a file can be dropped.
using TakesFile = std::function<bool(const QString& path)>;

// The files that a drag brings; none where none of them can be dropped. They do not come through a box that
// is up: what they change could lie under it.
QStringList LocalFiles(const QDropEvent& event, const TakesFile& takes);

struct GridFiles {
  QStringList paths;
  int row = -1;  // the one that they are over; -1 where there is none that takes files
};

// The files, and the row that they are over.
GridFiles FilesOf(const QDropEvent& event, const QTableView& view, const RecordsetModel& rows,
                  const TakesFile& takes);

}  // namespace vorlina
