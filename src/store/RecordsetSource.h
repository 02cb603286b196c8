// The statement behind a recordset: its columns with the base columns that they show, and the texts derived
// from it.
#pragma once

#include <QString>
#include <QVariant>
#include <optional>
#include <vector>

#include "store/SelectParts.h"

namespace vorlina {

class Connection;

using Row = std::vector<QVariant>;

struct RecordsetColumn {
  QString name;        // as the statement names it
  QString baseTable;   // "" for an expression
  QString baseColumn;  // "" for an expression
  QString type;        // as declared, in capitals
  QString collation;   // "BINARY" for an expression
  bool isBoolean = false;
  bool isNumeric = false;
};

class RecordsetSource {
 public:
  // The text is a SELECT or the name of a table. Throws StoreError.
  RecordsetSource(Connection& connection, const QString& text, const QVariantList& values);

  Connection& Owner() const { return connection_; }
  const std::vector<RecordsetColumn>& Columns() const { return columns_; }
  // -1 for a name that does not exist; any letter case.
  int IndexOf(const QString& name) const;

  // Whether each row is one row of one table, found again by its key.
  bool IsKeyed() const { return parts_.has_value(); }
  // The table that rows are written to; "" when not keyed.
  QString Table() const { return parts_ ? parts_->table : QString(); }
  // Base column that is the table's counter; "" for none.
  const QString& CounterColumn() const { return counter_; }
  // Base column that is the row's key itself, an INTEGER PRIMARY KEY; "" for none.
  const QString& KeyColumn() const { return keyColumn_; }
  // Columns of the primary key where that is not the row's key: a row stores their values behind its columns,
  // so that a key which came to denote another row is noticed before anything is written.
  const std::vector<QString>& IdentityColumns() const { return identity_; }

  const QString& Text() const { return text_; }
  const QVariantList& Values() const { return values_; }
  // The keys in the statement's own order; binds Values().
  QString KeysText() const;
  // The keys of the rows for which the condition on the recordset's columns holds: of the statement's rows,
  // with a further clause behind it, which binds Values() first; or of the rows with the given keys alone.
  QString MatchText(const QString& condition, const QString& tail = {}) const;
  QString MatchText(const QString& condition, const std::vector<qint64>& keys) const;
  // Columns, identity and key of the rows with these keys, in no order.
  QString RowsText(const std::vector<qint64>& keys) const;
  // The same for all rows of the statement; binds Values().
  QString AllRowsText() const;

 private:
  void ReadColumns();
  bool CanBeKeyed() const;
  void ReadKey();
  QString RowidName() const;
  QString Inner(const QString& condition, const QString& orderBy) const;
  QString FullColumns() const;

  Connection& connection_;
  QString text_;
  QVariantList values_;
  std::optional<SelectParts> parts_;
  std::vector<RecordsetColumn> columns_;
  std::vector<QString> identity_;
  QString counter_;
  QString keyColumn_;
};

}  // namespace vorlina
