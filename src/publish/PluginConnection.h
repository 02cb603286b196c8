// A connection as a plug-in sees it. It has no locks of its own: a plug-in that uses it from another thread
// is told so, instead of damaging memory.
#pragma once

#include "publish/plugin/IVorlinaPlugin.h"

class QThread;

namespace vorlina {

class Connection;

class PluginConnection : public IVorlinaConnection {
 public:
  explicit PluginConnection(Connection& connection);

  QString DataSource() const override;
  void Execute(const QString& sql, const QVariantList& values) override;
  std::unique_ptr<IVorlinaRows> Open(const QString& sql, const QVariantList& values) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;

  // The connection itself. Throws Error on another thread than the one that it was made on.
  Connection& Own() const;

 private:
  Connection& connection_;
  const QThread* thread_;
};

}  // namespace vorlina
