#include "grid/RowCache.h"

#include <QLoggingCategory>
#include <algorithm>

#include "base/Error.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(log, "vorlina.grid.rows", QtInfoMsg)

constexpr int BlockRows = 64;
constexpr std::size_t Blocks = 8;

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

void RowCache::Forget(qint64 index) {
  std::erase_if(blocks_, [&](const Block& block) { return block.number == index / BlockRows; });
}

}  // namespace vorlina
