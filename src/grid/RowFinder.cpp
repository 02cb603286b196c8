#include "grid/RowFinder.h"

#include <QDeadlineTimer>
#include <algorithm>
#include <bit>
#include <utility>

#include "base/Error.h"
#include "store/LockPatience.h"

namespace vorlina {
namespace {

// What is done between two looks at the clock.
constexpr int GatheredRows = 8192;
constexpr std::size_t ScannedRows = 512;
constexpr int WalkedRows = 512;

// Farther than this all is looked through before a walk, whose rows lie anywhere in the database, comes
// there.
constexpr int LongestWalk = 16384;

}  // namespace

RowFinder::RowFinder(const RecordsetModel& rows, QObject* parent) : QObject(parent), rows_(rows) {
  const auto others = [this] { Renew(false); };
  connect(&rows, &QAbstractItemModel::modelAboutToBeReset, this, [this] { reader_.reset(); });
  connect(&rows, &QAbstractItemModel::modelReset, this, others);
  connect(&rows, &QAbstractItemModel::layoutChanged, this, others);
  connect(&rows, &QAbstractItemModel::rowsInserted, this, others);
  connect(&rows, &QAbstractItemModel::rowsRemoved, this, others);
  connect(
      &rows, &QAbstractItemModel::dataChanged, this,
      [this](const QModelIndex& first, const QModelIndex& last) { RowsChanged(first.row(), last.row()); });
}

void RowFinder::Find(const TextNeedle& needle, int from, int step) {
  narrows_ = stage_ == Stage::Done && !needle_.IsEmpty() && needle.Includes(needle_);
  needle_ = needle;
  reader_.reset();
  placed_ = false;
  places_.Clear();
  stage_ = needle.IsEmpty() ? Stage::None : Stage::Begin;
  if (!narrows_) found_.Clear();
  sought_ = {};
  answer_.reset();
  if (!needle.IsEmpty()) Seek(from, step);
}

void RowFinder::Clear() {
  Find({}, 0, 1);
  members_.Clear();
}

void RowFinder::Stop() {
  if (stage_ == Stage::None || stage_ == Stage::Done) return;
  stage_ = Stage::Stopped;
  sought_ = {};
}

bool RowFinder::IsRunning() const {
  return sought_.wanted || (stage_ != Stage::None && stage_ != Stage::Done && stage_ != Stage::Stopped);
}

// What is known by place is used until it is known anew.
void RowFinder::Renew(bool samePlaces) {
  if (stage_ == Stage::None || (stage_ == Stage::Stopped && samePlaces)) return;
  narrows_ = false;
  placed_ = placed_ && samePlaces;
  if (!placed_) places_.Clear();
  stage_ = Stage::Begin;
  if (sought_.wanted) Seek(sought_.from, sought_.step);
  Q_EMIT Restarted();
}

// What is typed into the row at the bottom is no row yet, and one that is in edit is looked at when it is
// done.
void RowFinder::RowsChanged(int first, int last) {
  if (first != last) return Renew(true);
  if (first < rows_.RecordCount() && first != rows_.EditRow()) Recheck(first);
}

void RowFinder::Recheck(int row) {
  if (stage_ == Stage::None || stage_ == Stage::Begin || !reader_) return;
  const qint64 key = rows_.BookmarkOf(row);
  try {
    const LockPatience none(0);
    std::vector<qint64> matching;
    ReadMatches({key}, matching);
    found_.Set(key, !matching.empty());
    if (placed_) places_.Set(row, !matching.empty());
    if (stage_ == Stage::Place) placing_.Set(row, !matching.empty());
    Q_EMIT Restarted();
  } catch (const Error&) {
    Renew(true);
  }
}

void RowFinder::Seek(int from, int step) {
  const int count = rows_.RecordCount();
  sought_ = {.wanted = true, .from = from, .step = step, .left = count};
  sought_.next = from >= 0 && from < count ? from : step > 0 ? 0 : count - 1;
  answer_.reset();
  if (placed_) Resolve();
}

std::optional<RowFinder::Place> RowFinder::Take() { return std::exchange(answer_, std::nullopt); }

void RowFinder::GiveUpSeeking() {
  sought_ = {};
  answer_.reset();
}

void RowFinder::Arrive(int row) {
  answer_ = Place{row, row >= 0 && (sought_.step > 0 ? row < sought_.from : row > sought_.from)};
  sought_ = {};
}

// By the places of all that match.
void RowFinder::Resolve() {
  int row = places_.Nearest(sought_.next, sought_.step);
  if (row < 0) row = places_.Nearest(sought_.step > 0 ? 0 : rows_.RecordCount() - 1, sought_.step);
  Arrive(row);
}

bool RowFinder::Work(int milliseconds) {
  const LockPatience none(0);
  const QDeadlineTimer end(milliseconds, Qt::PreciseTimer);
  do {
    if (stage_ == Stage::Begin) Begin();
    if (Walks()) WalkOn();
    if (stage_ == Stage::Gather) Gather();
    if (stage_ == Stage::Scan) Scan();
    if (stage_ == Stage::Place) PlaceRows();
  } while (IsRunning() && !end.hasExpired());
  return IsRunning();
}

void RowFinder::Begin() {
  ReadColumns();
  if (narrows_) {
    members_ = std::exchange(found_, {});
    return BeginScan();
  }
  found_.Clear();
  members_.Clear();
  ascending_ = true;
  next_ = 0;
  stage_ = Stage::Gather;
}

// Columns that cannot hold the text are not read at all.
void RowFinder::ReadColumns() {
  columns_.clear();
  QList<int> read;
  for (const int column : Columns()) {
    const GridColumn& description = rows_.Column(column);
    Column searched{description.key, description.kind == ColumnKind::Lookup, {}};
    if (searched.lookup)
      for (const LookupItem& item : description.lookup.Items())
        if (needle_.IsIn(item.text)) searched.values += item.value;
    if (searched.lookup ? searched.values.isEmpty()
                        : description.kind == ColumnKind::Number && !needle_.IsOfNumbers())
      continue;
    read += column;
    columns_.push_back(std::move(searched));
  }
  reader_ = rows_.Reader(read);
}

void RowFinder::Gather() {
  const int end = std::min(next_ + GatheredRows, rows_.RecordCount());
  for (qint64 former = rows_.BookmarkOf(next_ - 1); next_ < end; ++next_) {
    const qint64 key = rows_.BookmarkOf(next_);
    ascending_ = ascending_ && key > former;
    former = key;
    members_.Set(key, true);
  }
  if (next_ == rows_.RecordCount()) BeginScan();
}

// From the row on from where it is sought, where that is the order of the keys. The block with its key, if
// it is looked through, comes once more at the end.
void RowFinder::BeginScan() {
  order_ = members_.Blocks();
  sought_.scanned = sought_.wanted && sought_.step > 0 && ascending_ && !placed_;
  startKey_ = sought_.scanned ? rows_.BookmarkOf(sought_.next) : 0;
  block_ = 0;
  stage_ = Stage::Scan;
  if (startKey_ == 0) return;
  const qint64 startBlock = KeyMarks::BlockOf(startKey_);
  std::rotate(order_.begin(), std::lower_bound(order_.begin(), order_.end(), startBlock), order_.end());
  if (order_.empty() || order_.front() != startBlock)
    startKey_ = 0;
  else
    order_.push_back(startBlock);
}

// Ascending, from a block of the order on, which is moved behind them.
std::vector<qint64> RowFinder::NextKeys(std::size_t& block) const {
  std::vector<qint64> keys;
  keys.reserve(ScannedRows + (1U << KeyMarks::KeyBits));
  const std::size_t first = block;
  for (; block < order_.size() && keys.size() < ScannedRows; ++block) {
    if (block > first && order_[block] <= order_[block - 1]) break;
    const bool once = startKey_ == 0 || (block > 0 && block + 1 < order_.size());
    for (quint64 bits = members_.Bits(order_[block]); bits != 0; bits &= bits - 1) {
      const qint64 key = order_[block] * (qint64(1) << KeyMarks::KeyBits) + std::countr_zero(bits);
      if (once || (block == 0) == (key >= startKey_)) keys.push_back(key);
    }
  }
  return keys;
}

void RowFinder::Scan() {
  std::size_t block = block_;
  std::vector<qint64> matching;
  ReadMatches(NextKeys(block), matching);
  block_ = block;
  for (const qint64 key : matching) found_.Set(key, true);
  if (sought_.scanned && !matching.empty())
    Arrive(rows_.RowOf(*std::min_element(matching.begin(), matching.end())));
  if (block_ < order_.size()) return;
  members_.Clear();
  placing_.Clear();
  next_ = 0;
  stage_ = Stage::Place;
}

void RowFinder::PlaceRows() {
  const int count = found_.Count() == 0 ? 0 : rows_.RecordCount();
  for (const int end = std::min(next_ + GatheredRows, count); next_ < end; ++next_)
    if (found_.Has(rows_.BookmarkOf(next_))) placing_.Set(next_, true);
  if (next_ < count) return;
  places_ = std::exchange(placing_, {});
  placed_ = true;
  stage_ = Stage::Done;
  if (sought_.wanted) Resolve();
}

bool RowFinder::Walks() const {
  if (!sought_.wanted || sought_.scanned) return false;
  return stage_ == Stage::Stopped || rows_.RecordCount() - sought_.left < LongestWalk;
}

// A block of rows as the grid shows them. Where it was stopped before it began nothing is known of the
// columns.
void RowFinder::WalkOn() {
  if (!reader_) ReadColumns();
  const int count = rows_.RecordCount();
  std::vector<qint64> keys;
  std::vector<qint64> matching;
  int next = sought_.next;
  const int walked = std::min(WalkedRows, sought_.left);
  for (int i = 0; i < walked; ++i, next = (next + sought_.step + count) % count)
    keys.push_back(rows_.BookmarkOf(next));
  const std::vector<qint64> shown = keys;
  std::sort(keys.begin(), keys.end());
  ReadMatches(keys, matching);
  const auto nearest = std::find_if(shown.begin(), shown.end(), [&](qint64 key) {
    return std::find(matching.begin(), matching.end(), key) != matching.end();
  });
  const int passed = int(nearest - shown.begin());
  if (nearest != shown.end()) return Arrive((sought_.next + sought_.step * passed + count) % count);
  sought_.left -= walked;
  sought_.next = next;
  if (sought_.left <= 0) Arrive(-1);
}

bool RowFinder::Matches(const RawRow& row) const {
  for (int i = 0; i < int(columns_.size()); ++i) {
    const Column& column = columns_[std::size_t(i)];
    if (column.lookup ? column.values.contains(row.Integer(i)) : needle_.IsIn(row.Text(i))) return true;
  }
  return false;
}

void RowFinder::ReadMatches(const std::vector<qint64>& keys, std::vector<qint64>& matching) {
  if (columns_.empty()) return;
  reader_->Read(keys, [&](const RawRow& row) {
    if (Matches(row)) matching.push_back(row.Key());
  });
}

int RowFinder::ColumnIn(int row) const {
  for (const int column : Columns())
    if (!needle_.PiecesIn(rows_.index(row, column).data().toString()).empty()) return column;
  return -1;
}

}  // namespace vorlina
