// A connection as a plug-in sees it.
#pragma once

#include "publish/plugin/IVorlinaPlugin.h"

namespace vorlina {

class Connection;

class PluginConnection : public IVorlinaConnection {
 public:
  explicit PluginConnection(Connection& connection) : connection_(connection) {}

  QString DataSource() const override;
  void Execute(const QString& sql, const QVariantList& values) override;
  std::unique_ptr<IVorlinaRows> Open(const QString& sql, const QVariantList& values) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;

 private:
  Connection& connection_;
};

}  // namespace vorlina
