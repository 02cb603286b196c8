// Marked rows by their places, a bit each.
#pragma once

#include <QtGlobal>
#include <bit>
#include <vector>

namespace vorlina {

class RowMarks {
 public:
  void Clear() { *this = {}; }
  void Set(int row, bool marked) {
    const auto word = std::size_t(row / Bits);
    if (word >= words_.size()) words_.resize(word + 1);
    const quint64 bit = quint64(1) << unsigned(row % Bits);
    if (((words_[word] & bit) != 0) == marked) return;
    words_[word] ^= bit;
    count_ += marked ? 1 : -1;
  }
  bool Has(int row) const {
    return row >= 0 && row / Bits < Words() && ((At(row / Bits) >> unsigned(row % Bits)) & 1U) != 0;
  }
  int Count() const { return count_; }
  // How many are marked before a row.
  int Before(int row) const {
    int count = 0;
    for (int word = 0; word < row / Bits && word < Words(); ++word) count += std::popcount(At(word));
    if (row / Bits < Words()) count += std::popcount(At(row / Bits) & LowBits(row % Bits));
    return count;
  }
  // The first marked row from a row on, itself included, and with -1 upwards; -1 for none.
  int Nearest(int row, int step) const {
    int word = row / Bits;
    if (row < 0 || (step < 0 && word >= Words())) word = row < 0 ? -1 : Words() - 1;
    quint64 mask = ~quint64(0);
    if (word == row / Bits && row >= 0)
      mask = step > 0 ? ~LowBits(row % Bits) : LowBits(row % Bits) | (quint64(1) << unsigned(row % Bits));
    for (; word >= 0 && word < Words(); word += step, mask = ~quint64(0)) {
      const quint64 bits = At(word) & mask;
      if (bits != 0)
        return word * Bits + (step > 0 ? std::countr_zero(bits) : Bits - 1 - std::countl_zero(bits));
    }
    return -1;
  }

 private:
  static constexpr int Bits = 64;
  static quint64 LowBits(int count) { return (quint64(1) << unsigned(count)) - 1; }
  int Words() const { return int(words_.size()); }
  quint64 At(int word) const { return words_[std::size_t(word)]; }

  std::vector<quint64> words_;
  int count_ = 0;
};

}  // namespace vorlina
