#include "publish/PluginConnection.h"

#include <QThread>

#include "base/Error.h"
#include "base/Language.h"
#include "store/Connection.h"

namespace vorlina {
namespace {

class PluginRows : public IVorlinaRows {
 public:
  PluginRows(const PluginConnection& connection, Rows rows)
      : connection_(connection), rows_(std::move(rows)) {}

  bool Next() override {
    connection_.Own();
    return rows_.Next();
  }
  int ColumnCount() const override { return rows_.ColumnCount(); }
  QString ColumnName(int column) const override { return rows_.ColumnName(column); }
  QVariant Value(int column) const override { return rows_.Value(column); }
  QVariant Value(const QString& column) const override { return rows_.Value(column); }

 private:
  const PluginConnection& connection_;
  Rows rows_;
};

}  // namespace

PluginConnection::PluginConnection(Connection& connection)
    : connection_(connection), thread_(QThread::currentThread()) {}

Connection& PluginConnection::Own() const {
  if (QThread::currentThread() != thread_)
    throw Error(EitherLanguage(u"Il plug-in usa la connessione da un altro thread"_qs,
                               u"The plug-in uses the connection from another thread"_qs));
  return connection_;
}

QString PluginConnection::DataSource() const { return connection_.DataSource(); }

void PluginConnection::Execute(const QString& sql, const QVariantList& values) { Own().Execute(sql, values); }

std::unique_ptr<IVorlinaRows> PluginConnection::Open(const QString& sql, const QVariantList& values) {
  return std::make_unique<PluginRows>(*this, Rows(Own(), sql, values));
}

void PluginConnection::BeginTrans() { Own().BeginTrans(); }
void PluginConnection::CommitTrans() { Own().CommitTrans(); }
void PluginConnection::RollbackTrans() { Own().RollbackTrans(); }

}  // namespace vorlina
