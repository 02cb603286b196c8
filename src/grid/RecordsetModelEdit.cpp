// How rows are changed: the row buffer, its writing, and the deletion of a selection.
#include <QScopedValueRollback>
#include <algorithm>
#include <set>

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "grid/RecordsetModel.h"
#include "store/LockPatience.h"
#include "store/RowErrors.h"

namespace vorlina {
namespace {

// With more runs of rows than this a deletion resets the views, which is faster by then.
constexpr std::size_t RunsAnnounced = 16;

QString WithHint(const QString& description, const QString& hint) {
  if (hint.isEmpty()) return description;
  return description + (description.endsWith(u'.') ? u" "_qs : u". "_qs) + hint;
}

}  // namespace

QString GiveUpHint() { return Texts::tr("Premere Esc per rinunciare alla modifica."); }

// An editor that is opened over Null and left empty changes nothing. What the user types into the add-new row
// begins it, even where it is the default.
bool RecordsetModel::IsSame(int row, const QVariant& before, const QVariant& value) const {
  const bool same = before.isNull() ? NullToEmpty(value).isEmpty()
                                    : !value.isNull() && value.toString() == before.toString();
  return same && (StateOf(row) != RowState::AddNew || NullToEmpty(value).isEmpty());
}

bool RecordsetModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return false;
  if (role == Qt::CheckStateRole)
    return ChangeCell(index.row(), index.column(), value.toInt() == Qt::Checked);
  if (role != Qt::EditRole && role != ValueRole) return false;
  return ChangeCell(index.row(), index.column(), value);
}

void RecordsetModel::Pin(int row) {
  pinned_.reset();
  if (row < 0 || row >= RecordCount() || row == editRow_) return;
  if (const FetchedRow* fetched = RowAt(row)) pinned_ = *fetched;
}

bool RecordsetModel::SetText(const QModelIndex& index, const QString& typed) {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return false;
  const int row = index.row();
  const int column = index.column();
  if (Column(column).kind != ColumnKind::Lookup) return ChangeCell(row, column, typed);
  // A text that several values share stays the value it is.
  if (typed == Displayed(row, column) && !typed.isEmpty()) return ChangeCell(row, column, Value(row, column));
  const QString text = typed.trimmed();
  if (text.isEmpty()) return ChangeCell(row, column, text);
  std::optional<qint64> value = Column(column).lookup.ValueOf(typed);
  if (!value) value = Column(column).lookup.ValueOf(text);
  if (!value && OnNotInList && OnNotInList(column, text)) value = Column(column).lookup.ValueOf(text);
  return value && ChangeCell(row, column, *value);
}

bool RecordsetModel::ChangeCell(int row, int column, const QVariant& value) {
  const QScopedValueRollback<bool> changing(changing_, true);
  if (StateOf(row) == RowState::Deleted) return Attempt([] { throw ConflictError::Deleted(); });
  // A check mark that cannot be set leaves nothing behind to be given up.
  const QString hint = Column(column).kind == ColumnKind::Boolean ? QString() : GiveUpHint();
  if (StateOf(row) == RowState::Unreadable && !Attempt([&] { ReadAgain(row); }, hint)) return false;
  const Qt::ItemFlags changeable = Qt::ItemIsEditable | Qt::ItemIsUserCheckable;
  if (!(flags(index(row, column)) & changeable)) return false;
  if (editRow_ >= 0 && editRow_ != row && !Submit()) return false;
  CellChange change{row, column, Value(row, column), value, false};
  if (IsSame(row, change.oldValue, value)) return true;
  if (OnCellChanging) OnCellChanging(change);
  if (change.cancel) return false;
  // An emptied text is "", anything else Null.
  const bool emptied = change.newValue.isNull() || NullToEmpty(change.newValue).isEmpty();
  if (emptied && Column(column).kind != ColumnKind::Text) change.newValue = NullValue();
  const bool begins = editRow_ < 0;
  const bool done = Attempt(
      [&] {
        if (begins) BeginEdit(row, column);
        SetField(column, change.newValue);
      },
      hint);
  if (!done && begins) Revert();
  if (done) ShowAgain(row, row);
  return done;
}

// For a row that could not be read when it was looked at.
void RecordsetModel::ReadAgain(int row) {
  rows_.FetchRows(qint64(row) + 1, 1);
  cache_.Clear();
}

// The user knows the column by its caption.
void RecordsetModel::SetField(int column, const QVariant& value) {
  try {
    rows_.SetValue(FieldOf(column), value);
  } catch (const NoNumberError& error) {
    if (Column(column).caption.isEmpty()) throw;
    throw error.In(Column(column).caption);
  }
}

void RecordsetModel::BeginEdit(int row, int column) {
  if (IsAddNewRow(row))
    BeginNewRow();
  else
    BeginChange(row, column);
}

void RecordsetModel::BeginNewRow() {
  Q_EMIT RowInserting();
  rows_.AddNew();
  editRow_ = RecordCount();
  for (int i = 0; i < columnCount(); ++i)
    if (FieldOf(i) >= 0 && Column(i).defaultValue.isValid())
      rows_.SetValue(FieldOf(i), Column(i).defaultValue);
}

// The user changes what is on the screen: where the cell has become another one since, that is shown first.
void RecordsetModel::BeginChange(int row, int column) {
  std::optional<FetchedRow> shown = std::exchange(pinned_, std::nullopt);
  if (!shown || shown->bookmark != BookmarkOf(row)) {
    const FetchedRow* held = cache_.Held(row);
    shown = held != nullptr ? std::optional(*held) : std::nullopt;
  }
  cache_.Renew(rows_, row);
  ShowAgain(row, row);
  rows_.SetAbsolutePosition(qint64(row) + 1);
  if (!rows_.RowExists()) throw ConflictError::Deleted();
  const auto field = std::size_t(FieldOf(column));
  if (shown && shown->values[field] != rows_.CurrentRow()[field]) throw ConflictError::Changed();
  editRow_ = row;
}

// Runs a step on the database; false, with Failed, where it fails. The hint says what the user can do
// besides.
bool RecordsetModel::Attempt(const std::function<void()>& step, const QString& hint) {
  refusedColumn_ = -1;
  const std::optional<QString> failure = FailureOf(step, hint);
  if (failure) Q_EMIT Failed(*failure);
  return !failure;
}

// Whatever the step asks of the database, it waits but once for another program. That is over when the
// failure is told: the box lets other work through.
std::optional<QString> RecordsetModel::FailureOf(const std::function<void()>& step, const QString& hint) {
  const LockPatience patience;
  try {
    step();
    return {};
  } catch (const DuplicateError& error) {
    const QString text = DuplicateText(error.Columns());
    return WithHint(text.isEmpty() ? error.Description() : text, hint);
  } catch (const ConflictError& error) {
    const QString asItIs = Texts::tr("Premere Esc per vederla com'è ora.");
    return WithHint(error.Description(), editRow_ >= 0 ? asItIs : QString());
  } catch (const std::exception& error) {
    return WithHint(DescriptionOf(error), hint);
  }
}

// The failure in the words that the user sees at the head of the columns; "" where none of them is seen.
QString RecordsetModel::DuplicateText(const QStringList& columns) {
  QStringList named;
  for (int i = 0; i < columnCount() && editRow_ >= 0; ++i) {
    if (FieldOf(i) < 0 || !Column(i).visible) continue;
    const Field& field = rows_.Fields().At(FieldOf(i));
    if (!columns.contains(field.table + u'.' + field.column)) continue;
    named += Column(i).caption + u" \""_qs + Displayed(editRow_, i).toString() + u'"';
    if (refusedColumn_ < 0) refusedColumn_ = i;
  }
  if (named.isEmpty()) return {};
  return Texts::tr("Esiste già una riga con %1. Scegliere un altro valore.").arg(named.join(u", "_qs));
}

bool RecordsetModel::Submit() {
  if (editRow_ < 0) return true;
  const int row = editRow_;
  const bool added = IsAddNewRow(row);
  std::function<void(qint64)> within;
  if (OnRowWriting) within = [&](qint64 bookmark) { OnRowWriting(row, bookmark, added); };
  if (!Attempt([&] { rows_.Update(within); }, GiveUpHint())) return false;
  if (added && shownRows_ == RecordCount()) {
    EndEdit(row);
    beginInsertRows({}, shownRows_, shownRows_);
    ++shownRows_;
    endInsertRows();
    Q_EMIT RowInserted(row);
  } else {
    EndEdit(row);
    Q_EMIT RowChanged(row);
  }
  return true;
}

void RecordsetModel::Revert() {
  if (!rows_.IsOpen()) return;
  rows_.CancelUpdate();
  if (editRow_ >= 0) EndEdit(editRow_);
}

void RecordsetModel::EndEdit(int row) {
  editRow_ = -1;
  cache_.Renew(rows_, row);
  ShowAgain(row, row);
}

bool RecordsetModel::DeleteRows(QList<int> rows) {
  if (!rows_.IsOpen()) return false;
  std::sort(rows.begin(), rows.end());
  const bool givesUp = std::binary_search(rows.begin(), rows.end(), editRow_);
  if (!givesUp && !Submit()) return false;
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  rows.removeIf([&](int row) { return row < 0 || row >= RecordCount(); });
  std::vector<qint64> deletions;
  for (const int row : rows) deletions.push_back(BookmarkOf(row));
  if (deletions.empty() || (OnRowsDeleting && !OnRowsDeleting(int(deletions.size())))) return false;
  if (givesUp) Revert();
  if (!Attempt([&] { DeleteBy ? DeleteBy(deletions) : rows_.DeleteRows(deletions, {}); })) {
    cache_.Clear();
    ShowAgain(0, shownRows_ - 1);
    return false;
  }
  DropDeleted(deletions);
  Q_EMIT RowsDeleted(int(deletions.size()));
  return true;
}

// Takes deleted rows out of the list, run by run from below, so that the views keep their place.
void RecordsetModel::DropDeleted(const std::vector<qint64>& deleted) {
  const std::set<qint64> bookmarks(deleted.begin(), deleted.end());
  struct Run {
    int first;
    std::vector<qint64> bookmarks;
  };
  std::vector<Run> runs;
  for (int row = 0; row < RecordCount(); ++row) {
    const qint64 bookmark = BookmarkOf(row);
    if (bookmarks.count(bookmark) == 0) continue;
    if (runs.empty() || runs.back().first + int(runs.back().bookmarks.size()) != row)
      runs.push_back({row, {}});
    runs.back().bookmarks.push_back(bookmark);
  }
  cache_.Clear();
  if (runs.size() > RunsAnnounced) {
    beginResetModel();
    rows_.DropRows({bookmarks.begin(), bookmarks.end()});
    shownRows_ = RecordCount() + (addNewRow_ ? 1 : 0);
    endResetModel();
    return;
  }
  for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
    const int last = run->first + int(run->bookmarks.size()) - 1;
    beginRemoveRows({}, run->first, last);
    rows_.DropRows(run->bookmarks);
    cache_.Clear();
    shownRows_ -= int(run->bookmarks.size());
    endRemoveRows();
  }
}

}  // namespace vorlina
