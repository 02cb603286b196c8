// A connection as a plug-in sees it, for one call. It has no locks of its own: a plug-in that uses it from
// another thread is told so, instead of damaging memory. What a plug-in keeps beyond the call holds nothing
// of the database and throws.
#pragma once

#include "publish/plugin/IVorlinaPlugin.h"

namespace vorlina {

class Connection;
class PluginSession;

class PluginConnection : public IVorlinaConnection {
 public:
  explicit PluginConnection(Connection& connection);
  // Ends the call.
  ~PluginConnection() override;
  PluginConnection(const PluginConnection&) = delete;
  PluginConnection& operator=(const PluginConnection&) = delete;

  // The call is over: all rows are closed, and this object and its rows throw Error from now on.
  void End() noexcept;

  QString DataSource() const override;
  void Execute(const QString& sql, const QVariantList& values) override;
  std::unique_ptr<IVorlinaRows> Open(const QString& sql, const QVariantList& values) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;

 private:
  std::shared_ptr<PluginSession> session_;
};

}  // namespace vorlina
