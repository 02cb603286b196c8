// A publishing plug-in for tests, built once for each way in which a plug-in can behave.
#include "IVorlinaPlugin.h"

#ifndef TEST_PLUGIN_IID
#define TEST_PLUGIN_IID VORLINA_PLUGIN_IID
#endif

namespace {

class TestPlugin : public IVorlinaPlugin {
 public:
  QString GetPluginName() override { return QStringLiteral(TEST_PLUGIN_NAME); }
  QIcon GetPluginIcon() override {
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::blue);
    return pixmap;
  }
  QString GetPluginDescription() override { return QStringLiteral("describes " TEST_PLUGIN_NAME); }

  // Leaves its mark in the catalog, and a transaction open.
  QVariant Publish(IVorlinaConnection& connection, int& IDCatalogo) override {
#ifdef TEST_PLUGIN_THROWS
    throw 42;
#endif
    connection.BeginTrans();
    connection.Execute(QStringLiteral("UPDATE Cataloghi SET Extras=? WHERE IDCatalogo=?"),
                       {QStringLiteral("published by " TEST_PLUGIN_NAME), IDCatalogo});
    connection.CommitTrans();
    connection.BeginTrans();
    connection.Execute(QStringLiteral("DELETE FROM Cataloghi"));
    return {};
  }
  QVariant InstallSkin(QString&) override { return {}; }
};

class TestFactory : public QObject, public IVorlinaPluginFactory {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID TEST_PLUGIN_IID)
  Q_INTERFACES(IVorlinaPluginFactory)

 public:
  std::unique_ptr<IVorlinaPlugin> CreatePlugin(const VorlinaHost&) override {
    return std::make_unique<TestPlugin>();
  }
};

}  // namespace

#include "TestPlugin.moc"
