#include "grid/RowSignatures.h"

#include <bit>
#include <tuple>
#include <utility>

#include "grid/RecordsetModel.h"

namespace vorlina {
namespace {

constexpr std::size_t MarkedLetters = 3;
constexpr quint64 LettersMask = (quint64(1) << (16 * MarkedLetters)) - 1;

// A bit for each three letters, spread by a factor whose high bits all of them change.
void MarkUnits(std::u16string_view units, RowSignatures::Signature& signature) {
  constexpr quint64 Spread = 0x9E3779B97F4A7C15U;
  constexpr unsigned Shift =
      64 - unsigned(std::countr_zero(std::tuple_size_v<RowSignatures::Signature> * 64));
  quint64 letters = 0;
  std::size_t count = 0;
  for (const char16_t unit : units) {
    letters = ((letters << 16U) | unit) & LettersMask;
    if (++count < MarkedLetters) continue;
    const quint64 bit = (letters * Spread) >> Shift;
    signature[std::size_t(bit / 64)] |= quint64(1) << (bit % 64);
  }
}

bool HasAll(const RowSignatures::Signature& signature, const RowSignatures::Signature& wanted) {
  quint64 lacking = 0;
  for (std::size_t i = 0; i < wanted.size(); ++i) lacking |= wanted[i] & ~signature[i];
  return lacking == 0;
}

void Add(const RowSignatures::Signature& more, RowSignatures::Signature& signature) {
  for (std::size_t i = 0; i < more.size(); ++i) signature[i] |= more[i];
}

}  // namespace

RowSignatures::Signature RowSignatures::Of(const TextNeedle& needle) {
  Signature signature{};
  MarkUnits(needle.Folded(), signature);
  return signature;
}

void RowSignatures::Mark(std::string_view utf8, Signature& signature) {
  FoldedUnits units;
  FoldText(utf8, units);
  MarkUnits({units.data(), std::size_t(units.size())}, signature);
}

void RowSignatures::Open(const RecordsetModel& rows, const QList<int>& columns) {
  if (IsOpen() && opened_ == columns) return;
  Close();
  opened_ = columns;
  for (const int column : columns) {
    const GridColumn& description = rows.Column(column);
    Column& read = columns_.emplace_back();
    read.lookup = description.kind == ColumnKind::Lookup;
    if (!read.lookup) continue;
    for (const LookupItem& item : description.lookup.Items())
      Mark(item.text.toUtf8().toStdString(), read.offered[item.value]);
  }
  reader_ = rows.Reader(columns);
}

bool RowSignatures::Renew() {
  if (!IsOpen()) return false;
  const std::optional<qint64> former = std::exchange(mark_, reader_->ChangeMark());
  if (mark_ && mark_ == former) return false;
  blocks_.clear();
  return former.has_value();
}

RowSignatures::Outlook RowSignatures::Look(qint64 block, quint64 bits, const Signature& wanted) const {
  if (!IsOpen()) return {.possible = bits};
  const auto found = blocks_.find(block);
  if (found == blocks_.end()) return {.unread = bits};
  const Block& known = *found->second;
  Outlook outlook{.unread = bits & ~known.read};
  for (quint64 left = bits & known.read; left != 0; left &= left - 1)
    if (HasAll(known.rows[std::size_t(std::countr_zero(left))], wanted)) outlook.possible |= left & -left;
  return outlook;
}

void RowSignatures::Read(const std::vector<qint64>& keys, const FieldReader::Visit& visit) {
  if (keys.empty()) return;
  reader_->Read(keys, [&](const RawRow& row) {
    if (mark_) Keep(row);
    visit(row);
  });
}

void RowSignatures::Keep(const RawRow& row) {
  Signature signature{};
  for (int i = 0; i < int(columns_.size()); ++i) {
    const Column& column = columns_[std::size_t(i)];
    if (!column.lookup) {
      Mark(row.Text(i), signature);
      continue;
    }
    const auto offered = column.offered.constFind(row.Integer(i));
    if (offered != column.offered.constEnd()) Add(*offered, signature);
  }
  std::unique_ptr<Block>& block = blocks_[KeyMarks::BlockOf(row.Key())];
  if (block == nullptr) block = std::make_unique<Block>();
  const quint64 bit = KeyMarks::BitOf(row.Key());
  block->rows[std::size_t(std::countr_zero(bit))] = signature;
  block->read |= bit;
}

}  // namespace vorlina
