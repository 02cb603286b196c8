#include "grid/RecordsetModel.h"

#include <QHash>
#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "store/LockPatience.h"

namespace vorlina {
namespace {

// How long rows that were read are shown without asking whether anybody has written.
constexpr qint64 LookMilliseconds = 100;

// A cell shows no more characters than fit on any screen, since laying out a text costs by its length.
constexpr qsizetype ShownCharacters = 2000;

QString DeletedText() { return Texts::tr("#Eliminata"); }
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

QString UnreadableText() { return Texts::tr("#Non leggibile"); }

}  // namespace

RecordsetModel::RecordsetModel(QObject* parent) : QAbstractTableModel(parent) {}

bool RecordsetModel::Bind(Recordset& recordset, std::vector<GridColumn> columns) {
  if (!Submit()) return false;
  std::vector<int> fields;
  fields.reserve(columns.size());
  for (const GridColumn& column : columns)
    fields.push_back(!column.bound       ? -1
                     : column.field >= 0 ? column.field
                                         : recordset.Fields().IndexOf(column.key));
  beginResetModel();
  recordset_ = &recordset;
  columns_ = std::move(columns);
  fields_ = std::move(fields);
  if (!Attempt([&] { ApplyOrder(); })) sorted_ = SortDirection::None;
  Adopt(recordset_->Clone());
  endResetModel();
  return true;
}

void RecordsetModel::Unbind() {
  Revert();
  beginResetModel();
  recordset_ = nullptr;
  rows_ = Recordset();
  cache_.Clear();
  columns_.clear();
  fields_.clear();
  shownRows_ = 0;
  endResetModel();
}

// The views learn of the new rows by the caller.
void RecordsetModel::Adopt(Recordset rows) {
  rows_ = std::move(rows);
  cache_.Clear();
  pinned_.reset();
  HasChanged();
  stale_ = false;
  editRow_ = -1;
  shownRows_ = RecordCount() + (addNewRow_ ? 1 : 0);
}

bool RecordsetModel::Reload() {
  if (recordset_ == nullptr || !Submit()) return false;
  // A drop-down may offer other texts by now, which sort in another way.
  if (!Attempt([&] { SortColumn() < 0 ? recordset_->Requery() : ApplyOrder(); })) return false;
  beginResetModel();
  Adopt(recordset_->Clone());
  endResetModel();
  return true;
}

// Nothing where it cannot be asked, as under another program's lock: that is not waited for, and what was
// read is shown on.
std::optional<bool> RecordsetModel::HasChanged() const {
  std::optional<bool> changed;
  try {
    const LockPatience none(0);
    const qint64 mark = rows_.ChangeMark();
    changed = std::exchange(changeMark_, mark) != mark;
  } catch (const Error&) {
  }
  looked_.start();
  return changed;
}

void RecordsetModel::LookForChanges() const {
  if (changing_ || looked_.elapsed() < LookMilliseconds || !HasChanged().value_or(false)) return;
  cache_.Clear();
  stale_ = true;
}

void RecordsetModel::Refresh() {
  if (!rows_.IsOpen()) return;
  const std::optional<bool> changed = HasChanged();
  if (!changed || (!*changed && !stale_ && !cache_.IsLacking())) return;
  stale_ = false;
  cache_.Clear();
  ShowAgain(0, shownRows_ - 1);
}

void RecordsetModel::ShowAgain(int firstRow, int lastRow) {
  if (lastRow < firstRow || columns_.empty()) return;
  Q_EMIT dataChanged(index(firstRow, 0), index(lastRow, columnCount() - 1));
  ShowMarks(firstRow, lastRow);
}

void RecordsetModel::ShowMarks(int firstRow, int lastRow) {
  Q_EMIT headerDataChanged(Qt::Vertical, firstRow, lastRow);
}

int RecordsetModel::ColumnOf(const QString& key) const {
  const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const GridColumn& column) {
    return column.key.compare(key, Qt::CaseInsensitive) == 0;
  });
  return found != columns_.end() ? int(found - columns_.begin()) : -1;
}

void RecordsetModel::SetColumn(int column, const GridColumn& description) {
  GridColumn& target = columns_[std::size_t(column)];
  const GridColumn former = std::exchange(target, description);
  target.key = former.key;
  target.kind = former.kind;
  target.bound = former.bound;
  Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
  if (shownRows_ > 0) Q_EMIT dataChanged(index(0, column), index(shownRows_ - 1, column));
}

void RecordsetModel::SetDefaultValue(const QString& key, const QVariant& value) {
  const int column = ColumnOf(key);
  if (column < 0) return;
  columns_[std::size_t(column)].defaultValue = value;
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
  if (!shown && IsAddNewRow(editRow_)) Revert();
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

int RecordsetModel::RecordCount() const { return rows_.IsOpen() ? int(rows_.RecordCount()) : 0; }

bool RecordsetModel::IsAddNewRow(int row) const {
  return addNewRow_ && rows_.IsOpen() && row >= 0 && row == RecordCount();
}

const FetchedRow* RecordsetModel::RowAt(int row) const {
  LookForChanges();
  return cache_.At(rows_, row);
}

RowState RecordsetModel::StateOf(int row) const {
  if (row == editRow_) return IsAddNewRow(row) ? RowState::Added : RowState::Edited;
  if (IsAddNewRow(row)) return RowState::AddNew;
  if (row < 0 || row >= RecordCount()) return RowState::Deleted;
  const FetchedRow* fetched = RowAt(row);
  if (fetched == nullptr) return RowState::Unreadable;
  return fetched->exists ? RowState::Shown : RowState::Deleted;
}

QVariant RecordsetModel::Value(int row, int column) const {
  if (column < 0 || column >= columnCount() || FieldOf(column) < 0) return NullValue();
  if (row == editRow_) return rows_.Value(FieldOf(column));
  if (IsAddNewRow(row)) {
    const QVariant& value = Column(column).defaultValue;
    return value.isValid() ? value : NullValue();
  }
  if (row < 0 || row >= RecordCount()) return NullValue();
  const FetchedRow* fetched = RowAt(row);
  if (fetched == nullptr || !fetched->exists) return NullValue();
  return fetched->values[std::size_t(FieldOf(column))];
}

QVariant RecordsetModel::Value(int row, const QString& key) const { return Value(row, ColumnOf(key)); }

QVariant RecordsetModel::FormerValue(int column) const {
  return rows_.CurrentRow()[std::size_t(FieldOf(column))];
}

qint64 RecordsetModel::BookmarkOf(int row) const {
  return rows_.IsOpen() ? rows_.BookmarkAt(qint64(row) + 1) : 0;
}

int RecordsetModel::RowOf(qint64 bookmark) const {
  return rows_.IsOpen() ? int(rows_.PositionOf(bookmark)) - 1 : -1;
}

int RecordsetModel::FindRow(const QString& key, const QVariant& value) const {
  return rows_.IsOpen() ? int(rows_.Find(key, value)) - 1 : -1;
}

int RecordsetModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shownRows_; }

int RecordsetModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int(columns_.size());
}

QVariant RecordsetModel::Displayed(int row, int column) const {
  const QVariant value = Value(row, column);
  if (Column(column).kind == ColumnKind::Boolean) return {};
  if (Column(column).kind != ColumnKind::Lookup) return NullToEmpty(value).left(ShownCharacters);
  return value.isNull() ? QString() : Column(column).lookup.TextOf(value.toLongLong());
}

QVariant RecordsetModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const int row = index.row();
  const int column = index.column();
  const GridColumn& description = Column(column);
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(description.alignment);
  if (role == RowStateRole) return int(StateOf(row));
  if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::CheckStateRole && role != ValueRole &&
      description.bound)
    return {};
  if (!description.bound) return OnUnboundData ? OnUnboundData(row, column, role) : QVariant();
  if (role == ValueRole) return Value(row, column);
  if (role == Qt::CheckStateRole && description.kind != ColumnKind::Boolean) return {};
  const RowState state = StateOf(row);
  if (state == RowState::Deleted) return role == Qt::DisplayRole ? DeletedText() : QVariant();
  if (state == RowState::Unreadable) return role == Qt::DisplayRole ? UnreadableText() : QVariant();
  if (role == Qt::DisplayRole) return Displayed(row, column);
  const QVariant value = Value(row, column);
  if (role == Qt::EditRole) return value.isNull() ? QVariant(QString()) : value;
  return value.toBool() ? Qt::Checked : Qt::Unchecked;
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
  return section == editRow_ ? u"\u270E"_qs : IsAddNewRow(section) ? u"*"_qs : QString();
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

// The ORDER BY expression of a column, over its base column: what is shown is what sorts.
QString RecordsetModel::OrderOf(int column, QVariantList& values) const {
  const QString base = recordset_->Fields().At(FieldOf(column)).column;
  if (base.isEmpty()) return {};
  const GridColumn& description = Column(column);
  const QString direction = sorted_ == SortDirection::Descending ? u" DESC"_qs : QString();
  switch (description.kind) {
    case ColumnKind::Lookup:
      values = {description.lookup.Ranks()};
      return u"VORLINA_RANK(?,"_qs + QuoteName(base) + u')' + direction;
    case ColumnKind::Text:
      return QuoteName(base) + u" COLLATE VORLINA_LOCALE"_qs + direction;
    default:
      return QuoteName(base) + direction;
  }
}

// Sorts the recordset by the column of sortKey_. A column that is not there any more sorts no longer.
void RecordsetModel::ApplyOrder() {
  const int column = SortColumn();
  QVariantList values;
  const QString order = column >= 0 && FieldOf(column) >= 0 ? OrderOf(column, values) : QString();
  if (order.isEmpty()) {
    const bool sortedBefore = sorted_ != SortDirection::None;
    sorted_ = SortDirection::None;
    sortKey_.clear();
    if (!sortedBefore) return;
  }
  recordset_->SetOrder(order, values);
}

bool RecordsetModel::SortBy(int column, SortDirection direction) {
  const bool sorts = direction != SortDirection::None;
  if (recordset_ == nullptr || (sorts && (column < 0 || column >= columnCount() || FieldOf(column) < 0)))
    return false;
  if (!Submit()) return false;
  const QString formerKey = std::exchange(sortKey_, sorts ? Column(column).key : QString());
  const SortDirection formerDirection = std::exchange(sorted_, direction);
  if (!Attempt([&] {
        QVariantList values;
        recordset_->SetOrder(sorts ? OrderOf(column, values) : QString(), values);
      })) {
    sortKey_ = formerKey;
    sorted_ = formerDirection;
    return false;
  }
  Recordset sorted = recordset_->Clone();
  if (sorted.RecordCount() != rows_.RecordCount()) {
    beginResetModel();
    Adopt(std::move(sorted));
    endResetModel();
    return true;
  }
  Q_EMIT layoutAboutToBeChanged();
  const Recordset former = std::move(rows_);
  Adopt(std::move(sorted));
  KeepPersistentIndexes(former);
  Q_EMIT layoutChanged();
  return true;
}

// Selection and current cell go with their rows. One walk through the keys, whatever is selected.
void RecordsetModel::KeepPersistentIndexes(const Recordset& former) {
  const QModelIndexList before = persistentIndexList();
  QHash<qint64, int> rowOf;
  for (const QModelIndex& kept : before) rowOf.insert(former.BookmarkAt(qint64(kept.row()) + 1), -1);
  rowOf.insert(0, RecordCount());  // the add-new row
  for (int row = 0; row < RecordCount() && !before.isEmpty(); ++row) {
    const auto found = rowOf.find(BookmarkOf(row));
    if (found != rowOf.end()) *found = row;
  }
  QModelIndexList after;
  for (const QModelIndex& kept : before) {
    const int row = rowOf.value(former.BookmarkAt(qint64(kept.row()) + 1), -1);
    after += row >= 0 ? index(row, kept.column()) : QModelIndex();
  }
  changePersistentIndexList(before, after);
}

void RecordsetModel::sort(int column, Qt::SortOrder order) {
  if (column < 0) return void(SortBy(-1, SortDirection::None));
  SortBy(column, order == Qt::AscendingOrder ? SortDirection::Ascending : SortDirection::Descending);
}

}  // namespace vorlina
