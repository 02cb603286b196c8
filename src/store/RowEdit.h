// The one row that is being changed, or added: what it held, and what was set in it since.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "store/RowReader.h"
#include "store/RowWriter.h"

namespace vorlina {

enum class EditMode { None, InProgress, Add };

class RowEdit {
 public:
  EditMode Mode() const { return mode_; }
  // Begins to change a row, or a new one, whose counter is known at once where a column shows it.
  void BeginChange(qint64 key, Row before);
  void BeginNew(const RecordsetFields& fields, RowWriter& writer);
  void Set(int column, const QVariant& value) { edits_[std::size_t(column)] = value; }
  // What was set; nothing where nothing was.
  std::optional<QVariant> Value(int column) const;
  // The row as it was when the edit began.
  const Row& Before() const { return before_; }
  // Writes what was set and runs the step with the row's key, both or nothing, and ends. Throws Error; the
  // row stays in edit then.
  qint64 Write(const RecordsetFields& fields, RowWriter& writer,
               const std::function<void(qint64 key)>& within);
  void Cancel() { *this = RowEdit(); }

 private:
  std::vector<ColumnChange> Changes(const RecordsetFields& fields) const;

  EditMode mode_ = EditMode::None;
  qint64 key_ = 0;
  Row before_;
  std::vector<std::optional<QVariant>> edits_;  // by column
};

}  // namespace vorlina
