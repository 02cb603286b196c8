// The row of a grid that is being changed: it begins from what the user saw, holds what is set until it is
// written or given up, and tells in the user's words why a step failed.
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "grid/BoundColumns.h"
#include "grid/ShownRows.h"

namespace vorlina {

// How a refused row or cell is left.
QString GiveUpHint();

class RowInEdit {
 public:
  RowInEdit(ShownRows& rows, const BoundColumns& columns) : rows_(rows), columns_(columns) {}

  // -1 without one; a new row stands behind the others.
  int Row() const { return row_; }
  QVariant Value(int column) const { return rows_.Records().Value(columns_.FieldOf(column)); }
  // Before it was changed. Throws Error where nothing is in edit.
  QVariant FormerValue(int column) const;

  // What the row holds now is what a change is compared with; a row that is none takes that back.
  void Pin(int row);
  // What stands on the screen is, unless the row is pinned.
  void PinHeld(int row);
  // Begins to change a row. Throws ConflictError where it is gone, or the column is not what was pinned.
  void Begin(int row, int column);
  // Begins a new row with the columns' default values.
  void BeginNew();
  // Throws Error with the column by its caption.
  void Set(int column, const QVariant& value);
  // The row, with nothing in edit any more; -1 where nothing was.
  int End();

  // Runs a step on the database. Why it failed, with a hint at what the user can do besides; nothing where it
  // went well.
  std::optional<QString> FailureOf(const std::function<void()>& step, const QString& hint);
  // What refuses the row by other means tells for which column.
  void Refuse(int column) { refusedColumn_ = column; }
  // The column that the last failure was for, or -1 where that is not known.
  int RefusedColumn() const { return refusedColumn_; }

 private:
  QString DuplicateText(const QStringList& columns);

  ShownRows& rows_;
  const BoundColumns& columns_;
  int row_ = -1;
  int refusedColumn_ = -1;
  std::optional<FetchedRow> pinned_;
};

}  // namespace vorlina
