// What a recordset does with many rows at once, apart from its current one.
#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Language.h"
#include "store/Recordset.h"
#include "store/RowErrors.h"
#include "store/Sqlite.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

// Rows that one statement fetches.
constexpr int BlockRows = 64;

}  // namespace

qint64 Recordset::BookmarkAt(qint64 position) const {
  RequireScrolling();
  return position >= 1 && position <= rows_->Count() ? rows_->keys[std::size_t(position - 1)] : 0;
}

qint64 Recordset::PositionOf(qint64 bookmark) const {
  RequireScrolling();
  const auto found = std::find(rows_->keys.begin(), rows_->keys.end(), bookmark);
  return found != rows_->keys.end() ? found - rows_->keys.begin() + 1 : 0;
}

qint64 Recordset::ChangeMark() const {
  RequireScrolling();
  return connection_->ChangeMark();
}

FetchedRow Recordset::CurrentFetched() const { return {CurrentKey(), true, CurrentRow()}; }

SQLite::Statement& Recordset::BlockStatement() const {
  if (blockStatement_ == nullptr) {
    const QString marks = QStringList(BlockRows, u"?"_qs).join(u',');
    blockStatement_ = std::make_shared<SQLite::Statement>(
        Prepare(connection_->Database(), u"SELECT rowid, "_qs + select_->list + u" FROM "_qs + select_->from +
                                             u" WHERE rowid IN ("_qs + marks + u')'));
  }
  return *blockStatement_;
}

std::vector<FetchedRow> Recordset::FetchRows(qint64 position, int count) const {
  RequireScrolling();
  if (cursor_ != CursorType::Keyset)
    throw Error(EitherLanguage(u"L'elenco non è aperto"_qs, u"The list is not open"_qs));
  const qint64 first = std::clamp<qint64>(position - 1, 0, rows_->Count());
  const qint64 end = std::min(first + std::max(count, 0), rows_->Count());
  std::vector<FetchedRow> rows(std::size_t(end - first));
  for (qint64 i = first; i < end; ++i) rows[std::size_t(i - first)].bookmark = rows_->keys[std::size_t(i)];
  for (std::size_t block = 0; block < rows.size(); block += BlockRows)
    FetchBlock(rows.data() + block, int(std::min<std::size_t>(BlockRows, rows.size() - block)));
  return rows;
}

// The rows come in the order of their keys, whatever the order asked for.
void Recordset::FetchBlock(FetchedRow* rows, int count) const {
  std::vector<FetchedRow*> byKey;
  byKey.reserve(std::size_t(count));
  for (int i = 0; i < count; ++i) byKey.push_back(rows + i);
  std::sort(byKey.begin(), byKey.end(),
            [](const FetchedRow* a, const FetchedRow* b) { return a->bookmark < b->bookmark; });
  WithStoreErrors([&] {
    SQLite::Statement& statement = BlockStatement();
    struct Reset {
      SQLite::Statement& statement;
      ~Reset() { statement.tryReset(); }
    } const reset{statement};
    statement.clearBindings();
    for (int i = 0; i < count; ++i) statement.bind(i + 1, static_cast<int64_t>(rows[i].bookmark));
    while (statement.executeStep()) {
      const qint64 key = statement.getColumn(0).getInt64();
      const auto found = std::lower_bound(byKey.begin(), byKey.end(), key,
                                          [](const FetchedRow* row, qint64 k) { return row->bookmark < k; });
      if (found == byKey.end() || (*found)->bookmark != key) continue;
      FetchedRow& row = **found;
      row.exists = true;
      row.values = RowOf(statement, 1);
    }
  });
}

void Recordset::DeleteRows(const std::vector<qint64>& rows,
                           const std::function<void(qint64 bookmark)>& before) {
  RequireUpdatable();
  CancelUpdate();
  Transaction transaction(*connection_);
  for (const qint64 row : rows) {
    if (!FetchRow(row)) continue;
    if (before) before(row);
    writer_.Delete(row);
  }
  transaction.Commit();
}

void Recordset::DropRows(std::vector<qint64> bookmarks) {
  RequireUpdatable();
  CancelUpdate();
  std::sort(bookmarks.begin(), bookmarks.end());
  const auto dropped = [&](qint64 key) {
    return std::binary_search(bookmarks.begin(), bookmarks.end(), key);
  };
  if (cursor_ == CursorType::Static) {
    std::vector<Row> kept;
    for (std::size_t i = 0; i < rows_->rows.size(); ++i)
      if (!dropped(rows_->keys[i])) kept.push_back(std::move(rows_->rows[i]));
    rows_->rows = std::move(kept);
  }
  std::erase_if(rows_->keys, dropped);
  generation_ = ++rows_->generation;
  StandOn(0);
}

}  // namespace vorlina
