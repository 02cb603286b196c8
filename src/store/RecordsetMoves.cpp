// Where a recordset stands: its view of the rows, moves, bookmarks, search, pages.
#include <algorithm>

#include "base/Language.h"
#include "store/Criterion.h"
#include "store/Query.h"
#include "store/Recordset.h"
#include "store/RowSet.h"
#include "store/StoreError.h"

namespace vorlina {
namespace {

// Rows that are fetched together.
constexpr qint64 FetchRows = 64;

[[noreturn]] void ThrowNoCurrentRow() {
  throw StoreError(StoreFault::NoCurrentRow,
                   EitherLanguage(u"Nessuna riga corrente"_qs, u"There is no current row"_qs));
}

void RequireMovable(bool forward) {
  if (forward)
    throw StoreError(StoreFault::Other,
                     EitherLanguage(u"Un recordset in sola avanzata si legge una volta, in avanti"_qs,
                                    u"A forward recordset is read once, forward"_qs));
}

}  // namespace

qint64 Recordset::RowCount() const { return view_ ? qint64(view_->size()) : rows_->Count(); }

qint64 Recordset::RecordCount() const {
  RequireOpen();
  return IsForward() ? -1 : RowCount();
}

qint64 Recordset::IndexAt(qint64 position) const {
  return view_ ? (*view_)[std::size_t(position)] : position;
}

qint64 Recordset::PositionOf(qint64 index) const {
  if (!view_) return index >= 0 && index < rows_->Count() ? index : -1;
  const auto found = std::find(view_->begin(), view_->end(), index);
  return found == view_->end() ? -1 : qint64(found - view_->begin());
}

qint64 Recordset::CurrentIndex() const { return IndexAt(position_); }

// The block of rows that the position lies in.
std::vector<qint64> Recordset::Around(qint64 position) const {
  const qint64 first = position / FetchRows * FetchRows;
  std::vector<qint64> indices;
  for (qint64 i = first; i < std::min(first + FetchRows, RowCount()); ++i) indices.push_back(IndexAt(i));
  return indices;
}

void Recordset::ApplyView() {
  std::optional<std::vector<qint64>> view;
  if (!filter_.isEmpty()) view = rows_->Match(filter_, filterValues_);
  if (sortColumn_ >= 0) {
    std::vector<qint64> sorted = rows_->Sorted(sortColumn_, sortDescending_);
    if (view)
      std::erase_if(sorted, [&](qint64 i) { return !std::binary_search(view->begin(), view->end(), i); });
    view = std::move(sorted);
  }
  if (rows_->HasDeleted() && !view) {
    view.emplace();
    for (qint64 i = 0; i < rows_->Count(); ++i) view->push_back(i);
  }
  if (rows_->HasDeleted()) std::erase_if(*view, [&](qint64 i) { return rows_->IsDeleted(i); });
  view_ = std::move(view);
  GoTo(0);
}

void Recordset::GoTo(qint64 position) {
  position_ = std::clamp<qint64>(position, -1, RowCount());
  onDeleted_ = false;
  current_.reset();
}

bool Recordset::IsBOF() const {
  RequireOpen();
  if (IsForward()) return forwardEnded_ && position_ == 0;
  if (mode_ == EditMode::Add || onDeleted_) return false;
  return position_ < 0 || RowCount() == 0;
}

bool Recordset::IsEOF() const {
  RequireOpen();
  if (IsForward()) return forwardEnded_;
  if (mode_ == EditMode::Add || onDeleted_) return false;
  return position_ >= RowCount();
}

// A row that is left is saved, as the user of a grid expects.
void Recordset::LeaveRow() {
  RequireOpen();
  RequireMovable(IsForward());
  Update();
}

void Recordset::MoveFirst() {
  // A forward recordset may be told to stand where it stands anyway.
  if (IsOpen() && IsForward() && position_ == 0) return;
  LeaveRow();
  GoTo(0);
}

void Recordset::MoveLast() {
  LeaveRow();
  GoTo(std::max<qint64>(RowCount() - 1, 0));
}

void Recordset::StepForward() {
  if (forwardEnded_) ThrowNoCurrentRow();
  forwardEnded_ = !forward_->Next();
  ++position_;
}

void Recordset::MoveNext() {
  RequireOpen();
  if (IsForward()) return StepForward();
  Move(1);
}

void Recordset::MovePrevious() { Move(-1); }

void Recordset::Move(qint64 rows) {
  LeaveRow();
  if ((rows > 0 && IsEOF()) || (rows < 0 && IsBOF())) ThrowNoCurrentRow();
  // Behind a deleted row stands the one that has come up to its place.
  GoTo(position_ + (onDeleted_ && rows > 0 ? rows - 1 : rows));
}

qint64 Recordset::Bookmark() const {
  RequireMovable(IsForward());
  if (IsBOF() || IsEOF() || mode_ == EditMode::Add || onDeleted_) ThrowNoCurrentRow();
  return CurrentIndex() + 1;
}

void Recordset::SetBookmark(qint64 bookmark) {
  LeaveRow();
  const qint64 position = PositionOf(bookmark - 1);
  if (position < 0) ThrowNoCurrentRow();
  GoTo(position);
}

bool Recordset::Find(const QString& criterion, qint64 skip, FindDirection direction) {
  const Criterion parsed = ParseCriterion(criterion);
  return FindMatch(parsed.condition, parsed.values, skip, direction);
}

bool Recordset::Find(const QString& column, const QVariant& value, qint64 skip, FindDirection direction) {
  FieldIndex(column);
  const Criterion equal = EqualTo(column, value);
  return FindMatch(equal.condition, equal.values, skip, direction);
}

bool Recordset::FindMatch(const QString& condition, const QVariantList& values, qint64 skip,
                          FindDirection direction) {
  LeaveRow();
  const std::vector<qint64> matches = rows_->Match(condition, values);
  const bool forward = direction == FindDirection::Forward;
  const qint64 step = forward ? 1 : -1;
  qint64 position = position_;
  if (IsBOF() || IsEOF())
    position = forward ? 0 : RowCount() - 1;
  else if (onDeleted_ && !forward)
    --position;
  for (position += skip * step; position >= 0 && position < RowCount(); position += step)
    if (std::binary_search(matches.begin(), matches.end(), IndexAt(position))) {
      GoTo(position);
      return true;
    }
  GoTo(forward ? RowCount() : -1);
  return false;
}

void Recordset::SetFilter(const QString& condition, const QVariantList& values) {
  LeaveRow();
  const QString before = std::exchange(filter_, condition);
  const QVariantList valuesBefore = std::exchange(filterValues_, values);
  try {
    ApplyView();
  } catch (...) {
    filter_ = before;
    filterValues_ = valuesBefore;
    throw;
  }
}

void Recordset::SetFilterTo(const QString& column, const QVariant& value) {
  FieldIndex(column);
  const Criterion equal = EqualTo(column, value);
  SetFilter(equal.condition, equal.values);
}

void Recordset::SetSort(const QString& column, bool descending) {
  const int index = column.isEmpty() ? -1 : FieldIndex(column);
  LeaveRow();
  sortColumn_ = index;
  sortDescending_ = descending;
  ApplyView();
}

void Recordset::SetPageSize(qint64 rows) {
  if (rows < 1)
    throw StoreError(StoreFault::Other,
                     EitherLanguage(u"Una pagina ha almeno una riga"_qs, u"A page has at least one row"_qs));
  pageSize_ = rows;
}

qint64 Recordset::PageCount() const {
  RequireOpen();
  RequireMovable(IsForward());
  return (RowCount() + pageSize_ - 1) / pageSize_;
}

qint64 Recordset::AbsolutePosition() const {
  RequireMovable(IsForward());
  return IsBOF() || IsEOF() || mode_ == EditMode::Add || onDeleted_ ? 0 : position_ + 1;
}

qint64 Recordset::AbsolutePage() const {
  const qint64 position = AbsolutePosition();
  return position == 0 ? 0 : (position - 1) / pageSize_ + 1;
}

void Recordset::SetAbsolutePosition(qint64 position) {
  LeaveRow();
  if (position < 1 || position > RowCount()) ThrowNoCurrentRow();
  GoTo(position - 1);
}

void Recordset::SetAbsolutePage(qint64 page) {
  if (page < 1 || page > PageCount()) ThrowNoCurrentRow();
  SetAbsolutePosition((page - 1) * pageSize_ + 1);
}

}  // namespace vorlina
