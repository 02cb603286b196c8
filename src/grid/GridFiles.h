// Files that are dragged onto the rows of a grid.
#pragma once

#include <QStringList>
#include <functional>

class QDropEvent;
class QTableView;

namespace vorlina {

class RecordsetModel;

struct GridFiles {
  QStringList paths;
  int row = -1;  // the one that they are over; -1 where there is none that takes files
};

// Whether a file can be dropped.
using TakesFile = std::function<bool(const QString& path)>;

// What a drag brings; without paths where none of its files can be dropped. Files do not come through a box
// that is up: what they change could lie under it.
GridFiles FilesOf(const QDropEvent& event, const QTableView& view, const RecordsetModel& rows,
                  const TakesFile& takes);

}  // namespace vorlina
