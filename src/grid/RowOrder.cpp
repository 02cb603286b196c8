#include "grid/RowOrder.h"

#include "base/Helpers.h"

namespace vorlina {
namespace {

struct Expression {
  QString text;
  QVariantList values;
};

// Over the column's base column: what is shown is what sorts. "" for a column without one.
Expression ExpressionOf(const RecordsetFields& fields, const BoundColumns& columns, int column,
                        SortDirection direction) {
  const QString base = fields.At(columns.FieldOf(column)).column;
  if (base.isEmpty()) return {};
  const QString end = direction == SortDirection::Descending ? u" DESC"_qs : QString();
  const GridColumn& description = columns.At(column);
  switch (description.kind) {
    case ColumnKind::Lookup:
      return {u"VORLINA_RANK(?,"_qs + QuoteName(base) + u')' + end, {description.lookup.Ranks()}};
    case ColumnKind::Text:
      return {QuoteName(base) + u" COLLATE VORLINA_LOCALE"_qs + end, {}};
    default:
      return {QuoteName(base) + end, {}};
  }
}

}  // namespace

int RowOrder::ColumnIn(const BoundColumns& columns) const {
  return direction_ == SortDirection::None ? -1 : columns.IndexOf(key_);
}

void RowOrder::Sort(Recordset& recordset, const BoundColumns& columns, int column, SortDirection direction) {
  Expression order;
  if (direction != SortDirection::None) order = ExpressionOf(recordset.Fields(), columns, column, direction);
  recordset.SetOrder(order.text, order.values);
  key_ = direction != SortDirection::None ? columns.At(column).key : QString();
  direction_ = direction;
}

void RowOrder::Renew(Recordset& recordset, const BoundColumns& columns) {
  const int column = ColumnIn(columns);
  Expression order;
  if (columns.FieldOf(column) >= 0) order = ExpressionOf(recordset.Fields(), columns, column, direction_);
  if (order.text.isEmpty()) {
    const bool sorted = direction_ != SortDirection::None;
    *this = {};
    if (!sorted) return;
  }
  recordset.SetOrder(order.text, order.values);
}

}  // namespace vorlina
