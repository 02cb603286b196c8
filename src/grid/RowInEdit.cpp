#include "grid/RowInEdit.h"

#include <utility>

#include "base/Error.h"
#include "base/Texts.h"
#include "store/LockPatience.h"
#include "store/RowErrors.h"

namespace vorlina {
namespace {

QString WithHint(const QString& description, const QString& hint) {
  if (hint.isEmpty()) return description;
  return description + (description.endsWith(u'.') ? u" "_qs : u". "_qs) + hint;
}

}  // namespace

QString GiveUpHint() { return Texts::tr("Premere Esc per rinunciare alla modifica."); }

QVariant RowInEdit::FormerValue(int column) const {
  return rows_.Records().CurrentRow()[std::size_t(columns_.FieldOf(column))];
}

void RowInEdit::Pin(int row) {
  pinned_.reset();
  if (row < 0 || row >= rows_.Count() || row == row_) return;
  if (const FetchedRow* fetched = rows_.At(row)) pinned_ = *fetched;
}

void RowInEdit::PinHeld(int row) {
  if (pinned_ && pinned_->bookmark == rows_.BookmarkOf(row)) return;
  const FetchedRow* held = rows_.Held(row);
  pinned_ = held != nullptr ? std::optional(*held) : std::nullopt;
}

void RowInEdit::Begin(int row, int column) {
  const std::optional<FetchedRow> shown = std::exchange(pinned_, std::nullopt);
  Recordset& records = rows_.Records();
  records.SetAbsolutePosition(qint64(row) + 1);
  if (!records.RowExists()) throw ConflictError::Deleted();
  const auto field = std::size_t(columns_.FieldOf(column));
  if (shown && shown->values[field] != records.CurrentRow()[field]) throw ConflictError::Changed();
  row_ = row;
}

void RowInEdit::BeginNew() {
  rows_.Records().AddNew();
  row_ = rows_.Count();
  for (int i = 0; i < columns_.Count(); ++i)
    if (columns_.FieldOf(i) >= 0 && columns_.At(i).defaultValue.isValid())
      rows_.Records().SetValue(columns_.FieldOf(i), columns_.At(i).defaultValue);
}

void RowInEdit::Set(int column, const QVariant& value) {
  try {
    rows_.Records().SetValue(columns_.FieldOf(column), value);
  } catch (const NoNumberError& error) {
    if (columns_.At(column).caption.isEmpty()) throw;
    throw error.In(columns_.At(column).caption);
  }
}

int RowInEdit::End() { return std::exchange(row_, -1); }

// Whatever the step asks of the database, it waits but once for another program. That is over when the
// failure is told: the box lets other work through.
std::optional<QString> RowInEdit::FailureOf(const std::function<void()>& step, const QString& hint) {
  refusedColumn_ = -1;
  const LockPatience patience;
  try {
    step();
    return {};
  } catch (const DuplicateError& error) {
    const QString text = DuplicateText(error.Columns());
    return WithHint(text.isEmpty() ? error.Description() : text, hint);
  } catch (const ConflictError& error) {
    const QString asItIs = Texts::tr("Premere Esc per vederla com'è ora.");
    return WithHint(error.Description(), row_ >= 0 ? asItIs : QString());
  } catch (const std::exception& error) {
    return WithHint(DescriptionOf(error), hint);
  }
}

// In the words that the user sees at the head of the columns; "" where none of them is seen.
QString RowInEdit::DuplicateText(const QStringList& columns) {
  QStringList named;
  for (int i = 0; i < columns_.Count() && row_ >= 0; ++i) {
    const GridColumn& column = columns_.At(i);
    if (columns_.FieldOf(i) < 0 || !column.visible) continue;
    const Field& field = rows_.Records().Fields().At(columns_.FieldOf(i));
    if (!columns.contains(field.table + u'.' + field.column)) continue;
    named += column.caption + u" \""_qs + ShownText(column, Value(i)) + u'"';
    if (refusedColumn_ < 0) refusedColumn_ = i;
  }
  if (named.isEmpty()) return {};
  return Texts::tr("Esiste già una riga con %1. Scegliere un altro valore.").arg(named.join(u", "_qs));
}

}  // namespace vorlina
