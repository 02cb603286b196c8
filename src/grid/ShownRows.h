// The rows that a grid shows, counted from 0: a recordset's keys, and the few rows around the screen, which
// are read anew once anybody has written to the database.
#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QScopedValueRollback>
#include <optional>
#include <vector>

#include "grid/RowCache.h"
#include "store/Recordset.h"

namespace vorlina {

class ShownRows {
 public:
  // Rows that follow each other.
  struct Run {
    int first = 0;
    std::vector<qint64> bookmarks;
  };

  // Shows other rows; gives back the former ones.
  Recordset Show(Recordset records);
  bool IsOpen() const { return records_.IsOpen(); }
  int Count() const { return IsOpen() ? int(records_.RecordCount()) : 0; }
  // Whoever writes through them tells it by Renew or Forget.
  Recordset& Records() { return records_; }
  const Recordset& Records() const { return records_; }

  // As RowCache::At; asks now and then whether anybody has written.
  const FetchedRow* At(int row) const;
  // What is on the screen, only if the row was read.
  const FetchedRow* Held(int row) { return cache_.Held(row); }
  void Renew(int row) { cache_.Renew(records_, row); }
  void Forget() { cache_.Clear(); }
  // Reads a row that could not be read when it was looked at. Throws Error.
  void ReadAgain(int row);
  // True where the screen may show what is no more, as somebody has written, or lacks rows that could not be
  // read: all was forgotten then. Not held up by a lock.
  bool LookAgain();
  // As long as the answer lives, what is shown stays as it is.
  [[nodiscard]] QScopedValueRollback<bool> Hold() { return QScopedValueRollback<bool>(held_, true); }

  // 0 for a row that is none; -1 for a bookmark that has none.
  qint64 BookmarkOf(int row) const { return IsOpen() ? records_.BookmarkAt(qint64(row) + 1) : 0; }
  int RowOf(qint64 bookmark) const { return IsOpen() ? int(records_.PositionOf(bookmark)) - 1 : -1; }
  // Where rows of former ones stand among these, the one behind the last of them as well; -1 for those that
  // have gone. One walk through the keys, however many rows.
  QList<int> PlacesOf(const Recordset& former, const QList<int>& rows) const;
  // From above.
  std::vector<Run> RunsOf(const std::vector<qint64>& bookmarks) const;

 private:
  std::optional<bool> HasChanged() const;

  Recordset records_;
  mutable RowCache cache_;
  bool held_ = false;
  mutable qint64 changeMark_ = 0;
  mutable bool stale_ = false;  // rows were read anew that the screen still shows as they were
  mutable QElapsedTimer looked_;
};

}  // namespace vorlina
