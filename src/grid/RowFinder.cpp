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
constexpr int GatheredRows = 32768;
constexpr std::size_t ReadRows = 512;
constexpr std::size_t PassedBlocks = 512;
constexpr int PassedRows = 2048;

// With more rows to be read than this all is looked through before a walk, whose rows lie anywhere in the
// database, comes there.
constexpr int LongestWalk = 16384;

void AppendKeys(qint64 block, quint64 bits, std::vector<qint64>& keys) {
  for (; bits != 0; bits &= bits - 1)
    keys.push_back(block * (qint64(1) << KeyMarks::KeyBits) + std::countr_zero(bits));
}

}  // namespace

RowFinder::RowFinder(const RecordsetModel& rows, QObject* parent) : QObject(parent), rows_(rows) {
  const auto others = [this] {
    gathered_ = 0;
    Renew(false);
  };
  connect(&rows, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
    signatures_.Close();
    reader_.reset();
  });
  // A drop-down offers other texts.
  connect(&rows, &QAbstractItemModel::headerDataChanged, this, [this](Qt::Orientation orientation) {
    if (orientation == Qt::Horizontal) signatures_.Close();
  });
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
  wanted_ = RowSignatures::Of(needle);
  preparing_ = true;
  prepared_ = 0;
  placed_ = again_ = false;
  places_.Clear();
  stage_ = needle.IsEmpty() ? Stage::None : Stage::Begin;
  if (!narrows_) found_.Clear();
  sought_ = {};
  answer_.reset();
  if (!needle.IsEmpty()) Seek(from, step);
}

void RowFinder::Clear() {
  Find({}, 0, 1);
  preparing_ = false;
  gathered_ = 0;
  members_.Clear();
  candidates_.Clear();
  signatures_.Close();
}

void RowFinder::Stop() {
  preparing_ = false;
  if (stage_ == Stage::None || stage_ == Stage::Done) return;
  stage_ = Stage::Stopped;
  sought_ = {};
}

bool RowFinder::IsRunning() const {
  return sought_.wanted || (stage_ != Stage::None && stage_ != Stage::Done && stage_ != Stage::Stopped);
}

// What is known by place is used until it is known anew. Who writes all the time, as an import does, shall
// not keep all from being looked through: that comes to its end before it begins again.
void RowFinder::Renew(bool samePlaces) {
  if (stage_ == Stage::None || (stage_ == Stage::Stopped && samePlaces)) return;
  again_ = samePlaces && (stage_ == Stage::Gather || stage_ == Stage::Scan || stage_ == Stage::Place);
  if (again_) return;
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
    const bool matches = !ReadMatches({.unread = {}, .possible = {key}}).empty();
    found_.Set(key, matches);
    if (placed_) places_.Set(row, matches);
    if (stage_ == Stage::Place) placing_.Set(row, matches);
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
  const bool finds = IsRunning();
  do {
    if (stage_ == Stage::Begin) Begin();
    if (Walks()) WalkOn();
    if (stage_ == Stage::Gather && Gather()) BeginScan();
    if (stage_ == Stage::Scan) Scan();
    if (stage_ == Stage::Place) PlaceRows();
    if (!finds && preparing_) Prepare();
  } while ((finds ? IsRunning() && !answer_ : preparing_) && !end.hasExpired());
  return IsRunning() || preparing_;
}

void RowFinder::Begin() {
  ReadColumns();
  candidates_ = std::exchange(found_, {});
  if (narrows_) return BeginScan();
  stage_ = Stage::Gather;
}

// Columns that cannot hold the text are not read at all.
void RowFinder::ReadColumns() {
  columns_.clear();
  QList<int> read;
  const QList<int> all = Columns();
  signatures_.Open(rows_, all);
  for (int place = 0; place < int(all.size()); ++place) {
    const GridColumn& description = rows_.Column(all[place]);
    Column searched{description.kind == ColumnKind::Lookup, place, {}};
    if (searched.lookup)
      for (const LookupItem& item : description.lookup.Items())
        if (needle_.IsIn(item.text)) searched.values += item.value;
    if (searched.lookup ? searched.values.isEmpty()
                        : description.kind == ColumnKind::Number && !needle_.IsOfNumbers())
      continue;
    read += all[place];
    columns_.push_back(std::move(searched));
  }
  reader_ = rows_.Reader(read);
}

// Whether all are there, which they stay until the rows are others.
bool RowFinder::Gather() {
  const int count = rows_.RecordCount();
  if (gathered_ == count && count > 0) return true;
  if (gathered_ == 0) {
    members_.Clear();
    ascending_ = true;
  }
  const int end = std::min(gathered_ + GatheredRows, count);
  for (qint64 former = rows_.BookmarkOf(gathered_ - 1); gathered_ < end; ++gathered_) {
    const qint64 key = rows_.BookmarkOf(gathered_);
    ascending_ = ascending_ && key > former;
    former = key;
    members_.Set(key, true);
  }
  if (gathered_ < count) return false;
  blocks_ = members_.Blocks();
  prepared_ = 0;
  return true;
}

// From the row on from where it is sought, where that is the order of the keys. The block with its key, if
// it is looked through, comes once more at the end.
void RowFinder::BeginScan() {
  if (!narrows_) candidates_ = members_;
  order_ = narrows_ ? candidates_.Blocks() : blocks_;
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

// Signatures take as long as the reading, and wait until nobody does; but a short text is typed on.
void RowFinder::Choose(qint64 block, quint64 bits, Keys& keys) const {
  RowSignatures::Outlook outlook = signatures_.Look(block, bits, wanted_);
  if (sought_.wanted || wanted_ != RowSignatures::Signature{})
    outlook.possible |= std::exchange(outlook.unread, 0);
  AppendKeys(block, outlook.unread, keys.unread);
  AppendKeys(block, outlook.possible, keys.possible);
}

// Ascending, from a block of the order on, which is moved behind them.
RowFinder::Keys RowFinder::NextKeys(std::size_t& block) const {
  Keys keys;
  const std::size_t first = block;
  for (; block < order_.size() && keys.Count() < ReadRows && block - first < PassedBlocks; ++block) {
    if (block > first && order_[block] <= order_[block - 1]) break;
    quint64 bits = candidates_.Bits(order_[block]);
    const bool once = startKey_ == 0 || (block > 0 && block + 1 < order_.size());
    const quint64 before = KeyMarks::BitOf(startKey_) - 1;
    if (!once) bits &= block == 0 ? ~before : before;
    Choose(order_[block], bits, keys);
  }
  return keys;
}

void RowFinder::Scan() {
  signatures_.Renew();
  std::size_t block = block_;
  const std::vector<qint64> matching = ReadMatches(NextKeys(block));
  block_ = block;
  for (const qint64 key : matching) found_.Set(key, true);
  if (sought_.scanned && !matching.empty())
    Arrive(rows_.RowOf(*std::min_element(matching.begin(), matching.end())));
  if (block_ < order_.size()) return;
  candidates_.Clear();
  placing_.Clear();
  next_ = 0;
  stage_ = Stage::Place;
}

void RowFinder::PlaceRows() {
  const int count = found_.Count() == 0 ? 0 : rows_.RecordCount();
  for (const int end = std::min(next_ + GatheredRows, count); next_ < end; ++next_)
    if (found_.Has(rows_.BookmarkOf(next_))) placing_.Set(next_, true);
  if (next_ < count && placing_.Count() < found_.Count()) return;
  places_ = std::exchange(placing_, {});
  placed_ = true;
  stage_ = Stage::Done;
  if (sought_.wanted) Resolve();
  if (again_) Renew(true);
}

bool RowFinder::Walks() const {
  if (!sought_.wanted || sought_.scanned) return false;
  return stage_ == Stage::Stopped || sought_.read < LongestWalk;
}

// Rows as the grid shows them, until there are enough to be read. Where it was stopped before it began
// nothing is known of the columns.
void RowFinder::WalkOn() {
  if (!reader_) ReadColumns();
  signatures_.Renew();
  const int count = rows_.RecordCount();
  const int most = std::min(PassedRows, sought_.left);
  Keys keys;
  int passed = 0;
  int next = sought_.next;
  for (; passed < most && keys.Count() < ReadRows; ++passed, next = (next + sought_.step + count) % count) {
    const qint64 key = rows_.BookmarkOf(next);
    Choose(KeyMarks::BlockOf(key), KeyMarks::BitOf(key), keys);
  }
  const auto read = int(keys.Count());
  std::sort(keys.unread.begin(), keys.unread.end());
  std::sort(keys.possible.begin(), keys.possible.end());
  std::vector<qint64> matching = ReadMatches(keys);
  std::sort(matching.begin(), matching.end());
  for (int row = sought_.next; !matching.empty(); row = (row + sought_.step + count) % count)
    if (std::binary_search(matching.begin(), matching.end(), rows_.BookmarkOf(row))) return Arrive(row);
  sought_.read += read;
  sought_.left -= passed;
  sought_.next = next;
  if (sought_.left <= 0) Arrive(-1);
}

// With all columns that are looked through, or with those that can match.
bool RowFinder::Matches(const RawRow& row, bool whole) const {
  for (int i = 0; i < int(columns_.size()); ++i) {
    const Column& column = columns_[std::size_t(i)];
    const int at = whole ? column.place : i;
    if (column.lookup ? column.values.contains(row.Integer(at)) : needle_.IsIn(row.Text(at))) return true;
  }
  return false;
}

std::vector<qint64> RowFinder::ReadMatches(const Keys& keys) {
  std::vector<qint64> matching;
  if (columns_.empty()) return matching;
  const auto visit = [&](bool whole) {
    return [&matching, whole, this](const RawRow& row) {
      if (Matches(row, whole)) matching.push_back(row.Key());
    };
  };
  reader_->Read(keys.possible, visit(false));
  signatures_.Read(keys.unread, visit(true));
  return matching;
}

// Reads rows for their signatures alone, until somebody writes: who changes one row after the other does not
// have all read each time.
void RowFinder::Prepare() {
  if (!Gather()) return;
  if (stage_ == Stage::None) signatures_.Open(rows_, Columns());
  preparing_ = signatures_.IsOpen() && !signatures_.Renew() && prepared_ < blocks_.size();
  if (!preparing_) return;
  Keys keys;
  std::size_t block = prepared_;
  for (const std::size_t first = block; block < blocks_.size() && keys.unread.size() < ReadRows; ++block) {
    if (block - first == PassedBlocks) break;
    AppendKeys(blocks_[block], signatures_.Look(blocks_[block], members_.Bits(blocks_[block]), {}).unread,
               keys.unread);
  }
  signatures_.Read(keys.unread, [](const RawRow& /*row*/) {});
  prepared_ = block;
}

int RowFinder::ColumnIn(int row) const {
  for (const int column : Columns())
    if (!needle_.PiecesIn(rows_.index(row, column).data().toString()).empty()) return column;
  return -1;
}

}  // namespace vorlina
