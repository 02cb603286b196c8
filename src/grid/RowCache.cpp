#include "grid/RowCache.h"

#include <QLoggingCategory>
#include <algorithm>

#include "base/Error.h"
#include "store/LockPatience.h"
#include "store/RowErrors.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(log, "vorlina.grid", QtInfoMsg)

constexpr int BlockRows = 64;
constexpr std::size_t Blocks = 8;

// Milliseconds that a look waits for another program: a commit of its is over by then, and a lock that lasts
// must not hold up the painting.
constexpr int LookPatience = 200;

}  // namespace

const FetchedRow* RowCache::InFront(qint64 index) const {
  const std::vector<FetchedRow>& rows = blocks_.front().rows;
  const auto place = std::size_t(index % BlockRows);
  return place < rows.size() ? &rows[place] : nullptr;
}

bool RowCache::BringToFront(qint64 number) {
  const auto found = std::find_if(blocks_.begin(), blocks_.end(),
                                  [&](const Block& block) { return block.number == number; });
  if (found == blocks_.end()) return false;
  std::rotate(blocks_.begin(), found, found + 1);
  return true;
}

const FetchedRow* RowCache::Held(qint64 index) {
  return BringToFront(index / BlockRows) ? InFront(index) : nullptr;
}

const FetchedRow* RowCache::At(const Recordset& rows, qint64 index) {
  if (BringToFront(index / BlockRows)) return InFront(index);
  Block block{index / BlockRows, {}};
  const LockPatience patience(LookPatience);
  try {
    block.rows = rows.FetchRows(block.number * BlockRows + 1, BlockRows);
  } catch (const std::exception& error) {
    qCWarning(log) << "reading rows:" << DescriptionOf(error);
  }
  if (blocks_.size() == Blocks) blocks_.pop_back();
  blocks_.insert(blocks_.begin(), std::move(block));
  return InFront(index);
}

bool RowCache::IsLacking() const {
  return std::any_of(blocks_.begin(), blocks_.end(), [](const Block& block) { return block.rows.empty(); });
}

void RowCache::Renew(const Recordset& rows, qint64 index) {
  if (!BringToFront(index / BlockRows)) return;
  Block& block = blocks_.front();
  const LockPatience patience(LookPatience);
  try {
    const std::vector<FetchedRow> fetched = rows.FetchRows(index + 1, 1);
    const auto place = std::size_t(index % BlockRows);
    if (fetched.empty() || place > block.rows.size())
      blocks_.erase(blocks_.begin());
    else if (place == block.rows.size())
      block.rows.push_back(fetched.front());
    else
      block.rows[place] = fetched.front();
  } catch (const LockedError& error) {
    // What was read before is shown on.
    qCDebug(log) << "reading a row:" << error.Description();
    if (std::size_t(index % BlockRows) >= block.rows.size()) blocks_.erase(blocks_.begin());
  } catch (const std::exception& error) {
    qCWarning(log) << "reading a row:" << DescriptionOf(error);
    blocks_.erase(blocks_.begin());
  }
}

}  // namespace vorlina
