// A set of keys, a bit for each where they lie close together, which they do.
#pragma once

#include <QHash>
#include <algorithm>
#include <bit>
#include <vector>

namespace vorlina {

class KeyMarks {
 public:
  // Keys that share all but their last bits.
  static constexpr int KeyBits = 6;
  static qint64 BlockOf(qint64 key) { return key >> KeyBits; }
  static quint64 BitOf(qint64 key) { return quint64(1) << (quint64(key) & ((1U << KeyBits) - 1)); }

  void Set(qint64 key, bool marked) {
    quint64& bits = blocks_[BlockOf(key)];
    if (((bits & BitOf(key)) != 0) == marked) return;
    bits ^= BitOf(key);
    count_ += marked ? 1 : -1;
  }
  bool Has(qint64 key) const { return (Bits(BlockOf(key)) & BitOf(key)) != 0; }
  int Count() const { return count_; }
  void Clear() { *this = {}; }

  // The numbers of the blocks in use, in order; and the bits of one.
  std::vector<qint64> Blocks() const {
    std::vector<qint64> numbers(blocks_.keyBegin(), blocks_.keyEnd());
    std::sort(numbers.begin(), numbers.end());
    return numbers;
  }
  quint64 Bits(qint64 block) const { return blocks_.value(block); }

 private:
  QHash<qint64, quint64> blocks_;
  int count_ = 0;
};

}  // namespace vorlina
