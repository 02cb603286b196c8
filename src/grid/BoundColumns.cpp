#include "grid/BoundColumns.h"

#include <algorithm>
#include <utility>

#include "base/Helpers.h"

namespace vorlina {
namespace {

// Laying out a text costs by its length.
constexpr qsizetype ShownCharacters = 2000;

}  // namespace

BoundColumns::BoundColumns(std::vector<GridColumn> columns, const RecordsetFields& fields)
    : columns_(std::move(columns)) {
  fields_.reserve(columns_.size());
  for (const GridColumn& column : columns_)
    fields_.push_back(!column.bound ? -1 : column.field >= 0 ? column.field : fields.IndexOf(column.key));
}

int BoundColumns::FieldOf(int column) const {
  return column >= 0 && column < Count() ? fields_[std::size_t(column)] : -1;
}

int BoundColumns::IndexOf(const QString& key) const {
  const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const GridColumn& column) {
    return column.key.compare(key, Qt::CaseInsensitive) == 0;
  });
  return found != columns_.end() ? int(found - columns_.begin()) : -1;
}

void BoundColumns::Describe(int column, const GridColumn& description) {
  GridColumn& target = columns_[std::size_t(column)];
  const GridColumn former = std::exchange(target, description);
  target.key = former.key;
  target.kind = former.kind;
  target.bound = former.bound;
}

void BoundColumns::SetDefaultValue(int column, const QVariant& value) {
  columns_[std::size_t(column)].defaultValue = value;
}

QString ShownText(const GridColumn& column, const QVariant& value) {
  if (column.kind == ColumnKind::Boolean || value.isNull()) return {};
  return column.kind == ColumnKind::Lookup ? column.lookup.TextOf(value.toLongLong())
                                           : NullToEmpty(value).left(ShownCharacters);
}

}  // namespace vorlina
