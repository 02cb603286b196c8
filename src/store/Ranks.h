// The list of places that VORLINA_RANK looks a number up in, bound as one value.
#pragma once

#include <QByteArray>
#include <algorithm>
#include <vector>

namespace vorlina {

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
