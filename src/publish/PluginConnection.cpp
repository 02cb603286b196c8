#include "publish/PluginConnection.h"

#include "store/Connection.h"

namespace vorlina {
namespace {

class PluginRows : public IVorlinaRows {
 public:
  explicit PluginRows(Rows rows) : rows_(std::move(rows)) {}

  bool Next() override { return rows_.Next(); }
  int ColumnCount() const override { return rows_.ColumnCount(); }
  QString ColumnName(int column) const override { return rows_.ColumnName(column); }
  QVariant Value(int column) const override { return rows_.Value(column); }
  QVariant Value(const QString& column) const override { return rows_.Value(column); }

 private:
  Rows rows_;
};

}  // namespace

QString PluginConnection::DataSource() const { return connection_.DataSource(); }

void PluginConnection::Execute(const QString& sql, const QVariantList& values) {
  connection_.Execute(sql, values);
}

std::unique_ptr<IVorlinaRows> PluginConnection::Open(const QString& sql, const QVariantList& values) {
  return std::make_unique<PluginRows>(Rows(connection_, sql, values));
}

void PluginConnection::BeginTrans() { connection_.BeginTrans(); }
void PluginConnection::CommitTrans() { connection_.CommitTrans(); }
void PluginConnection::RollbackTrans() { connection_.RollbackTrans(); }

}  // namespace vorlina
