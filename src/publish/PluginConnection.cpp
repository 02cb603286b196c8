#include "publish/PluginConnection.h"

#include "store/Query.h"

namespace vorlina {
namespace {

class PluginRows : public IVorlinaRows {
 public:
  PluginRows(Connection& connection, const QString& sql, const QVariantList& values)
      : query_(connection, sql, values) {}

  bool Next() override { return !ended_ && (ended_ = !query_.Next(), !ended_); }
  int ColumnCount() const override { return query_.ColumnCount(); }
  QString ColumnName(int column) const override { return query_.ColumnName(column); }
  QVariant Value(int column) const override { return query_.Value(column); }
  QVariant Value(const QString& column) const override { return query_.Value(column); }

 private:
  Query query_;
  // Stepping past the end would run the statement again.
  bool ended_ = false;
};

}  // namespace

QString PluginConnection::DataSource() const { return connection_.DataSource(); }

void PluginConnection::Execute(const QString& sql, const QVariantList& values) {
  connection_.Execute(sql, values);
}

std::unique_ptr<IVorlinaRows> PluginConnection::Open(const QString& sql, const QVariantList& values) {
  return std::make_unique<PluginRows>(connection_, sql, values);
}

void PluginConnection::BeginTrans() { connection_.BeginTrans(); }
void PluginConnection::CommitTrans() { connection_.CommitTrans(); }
void PluginConnection::RollbackTrans() { connection_.RollbackTrans(); }

}  // namespace vorlina
