#include "grid/RecordsetModel.h"

#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "store/RowErrors.h"

namespace vorlina {
namespace {

// With more runs of rows than this a deletion resets the views, which is faster by then.
constexpr std::size_t RunsAnnounced = 16;

QString DeletedText() { return Texts::tr("#Eliminata"); }
QString UnreadableText() { return Texts::tr("#Non leggibile"); }

QVariant HeadOf(const GridColumn& column, int role) {
  switch (role) {
    case Qt::DisplayRole:
      return column.caption;
    case Qt::ToolTipRole:
      return PlainToolTip(column.toolTip.isEmpty() ? column.caption : column.toolTip);
    case Qt::AccessibleTextRole:
      return column.toolTip.isEmpty() ? column.caption : column.toolTip;
    case Qt::DecorationRole:
      return column.icon.isNull() ? QVariant() : column.icon;
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(column.alignment);
    default:
      return {};
  }
}

}  // namespace

RecordsetModel::RecordsetModel(QObject* parent) : QAbstractTableModel(parent) {}

bool RecordsetModel::Bind(Recordset& recordset, std::vector<GridColumn> columns) {
  if (!Submit()) return false;
  BoundColumns bound(std::move(columns), recordset.Fields());
  beginResetModel();
  recordset_ = &recordset;
  columns_ = std::move(bound);
  if (!Attempt([&] { order_.Renew(recordset, columns_); })) order_ = {};
  Adopt(recordset.Clone());
  endResetModel();
  return true;
}

void RecordsetModel::Unbind() {
  Revert();
  beginResetModel();
  recordset_ = nullptr;
  rows_.Show({});
  columns_ = {};
  shownRows_ = 0;
  endResetModel();
}

// The views learn of the new rows by the caller.
Recordset RecordsetModel::Adopt(Recordset records) {
  Recordset former = rows_.Show(std::move(records));
  edit_.End();
  edit_.Pin(-1);
  shownRows_ = RecordCount() + (addNewRow_ ? 1 : 0);
  return former;
}

bool RecordsetModel::Reload() {
  if (recordset_ == nullptr || !Submit()) return false;
  // A drop-down may offer other texts by now, which sort in another way.
  const bool sorts = SortColumn() >= 0;
  if (!Attempt([&] { sorts ? order_.Renew(*recordset_, columns_) : recordset_->Requery(); })) return false;
  beginResetModel();
  Adopt(recordset_->Clone());
  endResetModel();
  return true;
}

void RecordsetModel::Refresh() {
  if (rows_.LookAgain()) ShowAgain(0, shownRows_ - 1);
}

void RecordsetModel::ShowAgain(int firstRow, int lastRow) {
  if (lastRow < firstRow || columns_.Count() == 0) return;
  Q_EMIT dataChanged(index(firstRow, 0), index(lastRow, columnCount() - 1));
  Q_EMIT headerDataChanged(Qt::Vertical, firstRow, lastRow);
}

void RecordsetModel::SetColumn(int column, const GridColumn& description) {
  columns_.Describe(column, description);
  Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
  if (shownRows_ > 0) Q_EMIT dataChanged(index(0, column), index(shownRows_ - 1, column));
}

void RecordsetModel::SetDefaultValue(const QString& key, const QVariant& value) {
  const int column = ColumnOf(key);
  if (column < 0) return;
  columns_.SetDefaultValue(column, value);
  if (!addNewRow_ || shownRows_ == 0) return;
  const QModelIndex cell = index(shownRows_ - 1, column);
  Q_EMIT dataChanged(cell, cell);
}

void RecordsetModel::SetLookup(const QString& key, Lookup lookup) {
  const int column = ColumnOf(key);
  if (column < 0) return;
  GridColumn description = Column(column);
  description.lookup = std::move(lookup);
  SetColumn(column, description);
}

void RecordsetModel::SetAddNewRow(bool shown) {
  if (shown == addNewRow_) return;
  if (!shown && IsAddNewRow(EditRow())) Revert();
  const int row = RecordCount();
  addNewRow_ = shown;
  if (!rows_.IsOpen()) return;
  if (shown) {
    beginInsertRows({}, row, row);
    ++shownRows_;
    endInsertRows();
  } else {
    beginRemoveRows({}, row, row);
    --shownRows_;
    endRemoveRows();
  }
}

bool RecordsetModel::IsAddNewRow(int row) const {
  return addNewRow_ && rows_.IsOpen() && row >= 0 && row == RecordCount();
}

RowState RecordsetModel::StateOf(int row) const {
  if (IsInEdit(row)) return IsAddNewRow(row) ? RowState::Added : RowState::Edited;
  if (IsAddNewRow(row)) return RowState::AddNew;
  if (row < 0 || row >= RecordCount()) return RowState::Deleted;
  const FetchedRow* fetched = rows_.At(row);
  if (fetched == nullptr) return RowState::Unreadable;
  return fetched->exists ? RowState::Shown : RowState::Deleted;
}

QVariant RecordsetModel::Value(int row, int column) const {
  const int field = columns_.FieldOf(column);
  if (field < 0) return NullValue();
  if (IsInEdit(row)) return edit_.Value(column);
  if (IsAddNewRow(row)) {
    const QVariant& value = Column(column).defaultValue;
    return value.isValid() ? value : NullValue();
  }
  if (row < 0 || row >= RecordCount()) return NullValue();
  const FetchedRow* fetched = rows_.At(row);
  if (fetched == nullptr || !fetched->exists) return NullValue();
  return fetched->values[std::size_t(field)];
}

int RecordsetModel::FindRow(const QString& key, const QVariant& value) const {
  return rows_.IsOpen() ? int(rows_.Records().Find(key, value)) - 1 : -1;
}

std::optional<FieldReader> RecordsetModel::Reader(const QList<int>& columns) const {
  if (!rows_.IsOpen()) return {};
  std::vector<int> fields;
  for (const int column : columns) fields.push_back(columns_.FieldOf(column));
  return rows_.Records().Reader(fields);
}

int RecordsetModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shownRows_; }

int RecordsetModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_.Count();
}

QVariant RecordsetModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const int row = index.row();
  const int column = index.column();
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Column(column).alignment);
  if (role == RowStateRole) return int(StateOf(row));
  if (!Column(column).bound) return OnUnboundData ? OnUnboundData(row, column, role) : QVariant();
  if (role == ValueRole) return Value(row, column);
  const bool shows = role == Qt::DisplayRole || role == Qt::EditRole ||
                     (role == Qt::CheckStateRole && Column(column).kind == ColumnKind::Boolean);
  return shows ? ShownData(row, column, role) : QVariant();
}

QVariant RecordsetModel::ShownData(int row, int column, int role) const {
  const RowState state = StateOf(row);
  if (state == RowState::Deleted) return role == Qt::DisplayRole ? DeletedText() : QVariant();
  if (state == RowState::Unreadable) return role == Qt::DisplayRole ? UnreadableText() : QVariant();
  const QVariant value = Value(row, column);
  if (role == Qt::CheckStateRole) return value.toBool() ? Qt::Checked : Qt::Unchecked;
  if (role == Qt::EditRole) return value.isNull() ? QVariant(QString()) : value;
  return Column(column).kind == ColumnKind::Boolean ? QVariant() : ShownText(Column(column), value);
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal) {
    if (section < 0 || section >= columnCount()) return {};
    return HeadOf(Column(section), role);
  }
  if (section < 0 || section >= shownRows_) return {};
  if (role == RowStateRole) return int(StateOf(section));
  if (role == Qt::AccessibleTextRole) return QString::number(section + 1);
  if (role != Qt::DisplayRole) return {};
  return section == EditRow() ? u"\u270E"_qs : IsAddNewRow(section) ? u"*"_qs : QString();
}

Qt::ItemFlags RecordsetModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags plain = QAbstractTableModel::flags(index);
  if (!index.isValid()) return plain;
  const GridColumn& column = Column(index.column());
  const RowState state = StateOf(index.row());
  if (!column.bound || column.readOnly || state == RowState::Deleted || state == RowState::Unreadable)
    return plain;
  return plain | (column.kind == ColumnKind::Boolean ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

bool RecordsetModel::SortBy(int column, SortDirection direction) {
  if (recordset_ == nullptr || (direction != SortDirection::None && columns_.FieldOf(column) < 0))
    return false;
  if (!Submit()) return false;
  if (!Attempt([&] { order_.Sort(*recordset_, columns_, column, direction); })) return false;
  Recordset sorted = recordset_->Clone();
  if (sorted.RecordCount() != RecordCount()) {
    beginResetModel();
    Adopt(std::move(sorted));
    endResetModel();
    return true;
  }
  // Selection and current cell go with their rows.
  Q_EMIT layoutAboutToBeChanged();
  const Recordset former = Adopt(std::move(sorted));
  const QModelIndexList before = persistentIndexList();
  QList<int> places;
  for (const QModelIndex& kept : before) places += kept.row();
  places = rows_.PlacesOf(former, places);
  QModelIndexList after;
  for (qsizetype i = 0; i < before.size(); ++i)
    after += places[i] >= 0 ? index(places[i], before[i].column()) : QModelIndex();
  changePersistentIndexList(before, after);
  Q_EMIT layoutChanged();
  return true;
}

void RecordsetModel::sort(int column, Qt::SortOrder order) {
  if (column < 0) return void(SortBy(-1, SortDirection::None));
  SortBy(column, order == Qt::AscendingOrder ? SortDirection::Ascending : SortDirection::Descending);
}

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

bool RecordsetModel::SetText(const QModelIndex& index, const QString& typed) {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return false;
  const int row = index.row();
  const int column = index.column();
  if (Column(column).kind != ColumnKind::Lookup) return ChangeCell(row, column, typed);
  // A text that several values share stays the value it is.
  if (!typed.isEmpty() && typed == index.data().toString())
    return ChangeCell(row, column, Value(row, column));
  const QString text = typed.trimmed();
  if (text.isEmpty()) return ChangeCell(row, column, text);
  std::optional<qint64> value = Column(column).lookup.ValueOf(typed);
  if (!value) value = Column(column).lookup.ValueOf(text);
  if (!value && OnNotInList && OnNotInList(column, text)) value = Column(column).lookup.ValueOf(text);
  return value && ChangeCell(row, column, *value);
}

bool RecordsetModel::ChangeCell(int row, int column, const QVariant& value) {
  const auto hold = rows_.Hold();
  if (StateOf(row) == RowState::Deleted) return Attempt([] { throw ConflictError::Deleted(); });
  // A check mark that cannot be set leaves nothing behind to be given up.
  const QString hint = Column(column).kind == ColumnKind::Boolean ? QString() : GiveUpHint();
  if (StateOf(row) == RowState::Unreadable && !Attempt([&] { rows_.ReadAgain(row); }, hint)) return false;
  const Qt::ItemFlags changeable = Qt::ItemIsEditable | Qt::ItemIsUserCheckable;
  if (!(flags(index(row, column)) & changeable)) return false;
  if (EditRow() >= 0 && EditRow() != row && !Submit()) return false;
  CellChange change{row, column, Value(row, column), value, false};
  if (IsSame(row, change.oldValue, value)) return true;
  if (OnCellChanging) OnCellChanging(change);
  if (change.cancel) return false;
  // An emptied text is "", anything else Null.
  const bool emptied = change.newValue.isNull() || NullToEmpty(change.newValue).isEmpty();
  if (emptied && Column(column).kind != ColumnKind::Text) change.newValue = NullValue();
  const bool begins = EditRow() < 0;
  const bool done = Attempt(
      [&] {
        if (begins) BeginEdit(row, column);
        edit_.Set(column, change.newValue);
      },
      hint);
  if (!done && begins) Revert();
  if (done) ShowAgain(row, row);
  return done;
}

// The user changes what is on the screen: where the cell has become another one since, that is shown first.
void RecordsetModel::BeginEdit(int row, int column) {
  if (IsAddNewRow(row)) {
    Q_EMIT RowInserting();
    return edit_.BeginNew();
  }
  edit_.PinHeld(row);
  rows_.Renew(row);
  ShowAgain(row, row);
  edit_.Begin(row, column);
}

// False, with Failed, where the step fails.
bool RecordsetModel::Attempt(const std::function<void()>& step, const QString& hint) {
  const std::optional<QString> failure = edit_.FailureOf(step, hint);
  if (failure) Q_EMIT Failed(*failure);
  return !failure;
}

// What the check itself fails for refuses the row as well.
bool RecordsetModel::IsAccepted(int row) {
  if (!OnRowChecking) return true;
  if (checking_) return false;
  const QScopedValueRollback<bool> checking(checking_, true);
  std::optional<RowRefusal> refusal;
  try {
    refusal = OnRowChecking(row);
  } catch (const std::exception& error) {
    refusal = RowRefusal{{DescriptionOf(error)}};
  }
  if (!refusal) return EditRow() == row;
  edit_.Refuse(refusal->column);
  for (const QString& text : refusal->texts) Q_EMIT Failed(text);
  return false;
}

bool RecordsetModel::Submit() {
  const int row = EditRow();
  if (row < 0) return true;
  if (!IsAccepted(row)) return EditRow() < 0;
  const bool added = IsAddNewRow(row);
  std::function<void(qint64)> within;
  if (OnRowWriting) within = [&](qint64 bookmark) { OnRowWriting(row, bookmark, added); };
  if (!Attempt([&] { rows_.Records().Update(within); }, GiveUpHint())) return false;
  EndEdit();
  if (added && shownRows_ == RecordCount()) {
    beginInsertRows({}, shownRows_, shownRows_);
    ++shownRows_;
    endInsertRows();
    Q_EMIT RowInserted(row);
  } else {
    Q_EMIT RowChanged(row);
  }
  return true;
}

void RecordsetModel::Revert() {
  if (!rows_.IsOpen()) return;
  rows_.Records().CancelUpdate();
  if (EditRow() >= 0) EndEdit();
}

void RecordsetModel::EndEdit() {
  const int row = edit_.End();
  rows_.Renew(row);
  ShowAgain(row, row);
}

bool RecordsetModel::DeleteRows(QList<int> rows) {
  if (!rows_.IsOpen()) return false;
  std::sort(rows.begin(), rows.end());
  const bool givesUp = std::binary_search(rows.begin(), rows.end(), EditRow());
  if (!givesUp && !Submit()) return false;
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  rows.removeIf([&](int row) { return row < 0 || row >= RecordCount(); });
  std::vector<qint64> deletions;
  for (const int row : rows) deletions.push_back(BookmarkOf(row));
  if (deletions.empty() || (OnRowsDeleting && !OnRowsDeleting(deletions))) return false;
  if (givesUp) Revert();
  if (!Attempt([&] { DeleteBy ? DeleteBy(deletions) : rows_.Records().DeleteRows(deletions); })) {
    rows_.Forget();
    ShowAgain(0, shownRows_ - 1);
    return false;
  }
  DropDeleted(deletions);
  Q_EMIT RowsDeleted(int(deletions.size()));
  return true;
}

// Takes deleted rows out of the list, run by run from below, so that the views keep their place.
void RecordsetModel::DropDeleted(const std::vector<qint64>& deleted) {
  const std::vector<ShownRows::Run> runs = rows_.RunsOf(deleted);
  rows_.Forget();
  if (runs.size() > RunsAnnounced) {
    beginResetModel();
    rows_.Records().DropRows(deleted);
    shownRows_ = RecordCount() + (addNewRow_ ? 1 : 0);
    endResetModel();
    return;
  }
  for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
    const int last = run->first + int(run->bookmarks.size()) - 1;
    beginRemoveRows({}, run->first, last);
    rows_.Records().DropRows(run->bookmarks);
    rows_.Forget();
    shownRows_ -= int(run->bookmarks.size());
    endRemoveRows();
  }
}

}  // namespace vorlina
