#include "store/RowEdit.h"

#include "base/Helpers.h"
#include "store/Transaction.h"

namespace vorlina {

void RowEdit::BeginChange(qint64 key, Row before) {
  edits_.assign(before.size(), {});
  before_ = std::move(before);
  key_ = key;
  mode_ = EditMode::InProgress;
}

void RowEdit::BeginNew(const RecordsetFields& fields, RowWriter& writer) {
  Cancel();
  edits_.assign(std::size_t(fields.Count()), {});
  for (int i = 0; i < fields.Count(); ++i)
    if (fields.At(i).counter) Set(i, writer.ReserveNumber(fields.At(i).column));
  before_.assign(edits_.size(), NullValue());
  mode_ = EditMode::Add;
}

std::optional<QVariant> RowEdit::Value(int column) const {
  return mode_ == EditMode::None ? std::nullopt : edits_[std::size_t(column)];
}

std::vector<ColumnChange> RowEdit::Changes(const RecordsetFields& fields) const {
  std::vector<ColumnChange> changes;
  for (std::size_t i = 0; i < edits_.size(); ++i)
    if (edits_[i]) changes.push_back({fields.At(int(i)).column, *edits_[i], before_[i]});
  return changes;
}

qint64 RowEdit::Write(const RecordsetFields& fields, RowWriter& writer,
                      const std::function<void(qint64 key)>& within) {
  const std::vector<ColumnChange> changes = Changes(fields);
  Transaction transaction(writer.Database());
  const qint64 key = mode_ == EditMode::Add ? writer.Insert(changes) : key_;
  if (mode_ == EditMode::InProgress) writer.Update(key, changes);
  if (within) within(key);
  transaction.Commit();
  Cancel();
  return key;
}

}  // namespace vorlina
