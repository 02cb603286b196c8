#include "grid/ShownRows.h"

#include <QHash>
#include <set>
#include <utility>

#include "base/Error.h"
#include "store/LockPatience.h"

namespace vorlina {
namespace {

// How long rows that were read are shown without asking whether anybody has written.
constexpr qint64 LookMilliseconds = 100;

}  // namespace

Recordset ShownRows::Show(Recordset records) {
  Recordset former = std::exchange(records_, std::move(records));
  cache_.Clear();
  stale_ = false;
  if (IsOpen()) HasChanged();
  return former;
}

// Nothing where it cannot be asked, as under another program's lock: that is not waited for, and what was
// read is shown on.
std::optional<bool> ShownRows::HasChanged() const {
  std::optional<bool> changed;
  try {
    const LockPatience none(0);
    const qint64 mark = records_.ChangeMark();
    changed = std::exchange(changeMark_, mark) != mark;
  } catch (const Error&) {
  }
  looked_.start();
  return changed;
}

const FetchedRow* ShownRows::At(int row) const {
  if (!held_ && looked_.elapsed() >= LookMilliseconds && HasChanged().value_or(false)) {
    cache_.Clear();
    stale_ = true;
  }
  return cache_.At(records_, row);
}

bool ShownRows::LookAgain() {
  if (!IsOpen()) return false;
  const std::optional<bool> changed = HasChanged();
  if (!changed || (!*changed && !stale_ && !cache_.IsLacking())) return false;
  stale_ = false;
  cache_.Clear();
  return true;
}

void ShownRows::ReadAgain(int row) {
  records_.FetchRows(qint64(row) + 1, 1);
  cache_.Clear();
}

QList<int> ShownRows::PlacesOf(const Recordset& former, const QList<int>& rows) const {
  const auto bookmarkOf = [&](int row) { return former.BookmarkAt(qint64(row) + 1); };
  QHash<qint64, int> places;
  for (const int row : rows) places.insert(bookmarkOf(row), -1);
  places.insert(0, Count());
  for (int row = 0; row < Count() && !rows.isEmpty(); ++row) {
    const auto found = places.find(BookmarkOf(row));
    if (found != places.end()) *found = row;
  }
  QList<int> answer;
  for (const int row : rows) answer += places.value(bookmarkOf(row), -1);
  return answer;
}

std::vector<ShownRows::Run> ShownRows::RunsOf(const std::vector<qint64>& bookmarks) const {
  const std::set<qint64> wanted(bookmarks.begin(), bookmarks.end());
  std::vector<Run> runs;
  for (int row = 0; row < Count(); ++row) {
    const qint64 bookmark = BookmarkOf(row);
    if (wanted.count(bookmark) == 0) continue;
    if (runs.empty() || runs.back().first + int(runs.back().bookmarks.size()) != row)
      runs.push_back({row, {}});
    runs.back().bookmarks.push_back(bookmark);
  }
  return runs;
}

}  // namespace vorlina
