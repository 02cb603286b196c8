#include "store/Keyset.h"

#include <QStringList>
#include <algorithm>
#include <utility>

#include "store/Connection.h"
#include "store/Sqlite.h"

namespace vorlina {

Keyset::Keyset(Connection& connection, KeysetQuery query)
    : connection_(&connection), query_(std::move(query)) {
  Load();
}

// One object of the column serves all rows: making it costs as much as many a step.
std::vector<qint64> Keyset::Read(const QString& where, const QString& order,
                                 const QVariantList& values) const {
  const QString sql = u"SELECT rowid FROM "_qs + QuoteName(query_.table) +
                      (where.isEmpty() ? QString() : u" WHERE "_qs + where) +
                      (order.isEmpty() ? QString() : u" ORDER BY "_qs + order);
  return WithStoreErrors([&] {
    SQLite::Statement statement = Prepare(connection_->Database(), sql);
    BindValues(statement, values);
    std::vector<qint64> keys;
    if (!statement.executeStep()) return keys;
    const SQLite::Column key = statement.getColumn(0);
    do keys.push_back(key.getInt64());
    while (statement.executeStep());
    // Giving the rest back copies them all.
    if (keys.capacity() - keys.size() > keys.size() / 8) keys.shrink_to_fit();
    return keys;
  });
}

void Keyset::Load() {
  QStringList order{order_, query_.order};
  order.removeAll(QString());
  keys_ = std::make_shared<std::vector<qint64>>(
      Read(query_.where, order.join(u", "_qs), query_.values + orderValues_));
}

void Keyset::SetOrder(const QString& expression, const QVariantList& values) {
  const QString formerOrder = std::exchange(order_, expression);
  const QVariantList formerValues = std::exchange(orderValues_, values);
  try {
    Load();
  } catch (...) {
    order_ = formerOrder;
    orderValues_ = formerValues;
    throw;
  }
}

qint64 Keyset::IndexOf(qint64 key) const {
  if (keys_ == nullptr) return -1;
  const auto found = std::find(keys_->begin(), keys_->end(), key);
  return found != keys_->end() ? found - keys_->begin() : -1;
}

// One statement, whatever the number of rows.
qint64 Keyset::Find(const QString& column, const QVariant& value) const {
  const QString condition = QuoteName(column) + u" IS ?"_qs;
  const QString where = query_.where.isEmpty() ? condition : u'(' + query_.where + u") AND "_qs + condition;
  std::vector<qint64> found = Read(where, {}, query_.values + QVariantList{value});
  std::sort(found.begin(), found.end());
  const auto first = std::find_if(keys_->begin(), keys_->end(), [&](qint64 key) {
    return std::binary_search(found.begin(), found.end(), key);
  });
  return first != keys_->end() ? first - keys_->begin() : -1;
}

void Keyset::Drop(std::vector<qint64> keys) {
  std::sort(keys.begin(), keys.end());
  std::erase_if(*keys_, [&](qint64 key) { return std::binary_search(keys.begin(), keys.end(), key); });
}

}  // namespace vorlina
