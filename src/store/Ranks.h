// Lists of numbers, bound to a statement as one value.
#pragma once

#include <QByteArray>
#include <QString>
#include <algorithm>
#include <vector>

namespace vorlina {

// The numbers as json_each gives them one by one.
inline QString KeyList(const std::vector<qint64>& keys) {
  QString list = u"["_qs;
  for (const qint64 key : keys) list += QString::number(key) + u',';
  if (!keys.empty()) list.chop(1);
  return list + u']';
}

struct RankPair {
  qint64 number;
  qint64 rank;
};

// The pairs as VORLINA_RANK takes them; each number stands there once.
inline QByteArray RankList(std::vector<RankPair> pairs) {
  std::sort(pairs.begin(), pairs.end(),
            [](const RankPair& a, const RankPair& b) { return a.number < b.number; });
  return {reinterpret_cast<const char*>(pairs.data()), qsizetype(pairs.size() * sizeof(RankPair))};
}

}  // namespace vorlina
