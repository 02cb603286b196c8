// A publishing plug-in for tests, built once for each way in which a plug-in can behave.
#include <stdexcept>

#include "IVorlinaPlugin.h"

#ifndef TEST_PLUGIN_IID
#define TEST_PLUGIN_IID VORLINA_PLUGIN_IID
#endif

#ifndef TEST_PLUGIN_ICON
#define TEST_PLUGIN_ICON 32
#endif

namespace {

#ifdef TEST_PLUGIN_THROWS
void Misbehave() { throw 42; }
#else
void Misbehave() {}
#endif

class TestPlugin : public IVorlinaPlugin {
 public:
  QString GetPluginName() override { return QStringLiteral(TEST_PLUGIN_NAME); }
  QIcon GetPluginIcon() override {
    QPixmap pixmap(TEST_PLUGIN_ICON, TEST_PLUGIN_ICON);
    pixmap.fill(Qt::blue);
    return pixmap;
  }
  QString GetPluginDescription() override { return QStringLiteral("describes " TEST_PLUGIN_NAME); }

  // Leaves its mark in the catalog, and a transaction open.
  QVariant Publish(IVorlinaConnection& connection, int& IDCatalogo) override {
    Misbehave();
    connection.BeginTrans();
    connection.Execute(QStringLiteral("UPDATE Cataloghi SET Extras=? WHERE IDCatalogo=?"),
                       {QStringLiteral("published by " TEST_PLUGIN_NAME), IDCatalogo});
    connection.CommitTrans();
    connection.BeginTrans();
    connection.Execute(QStringLiteral("DELETE FROM Cataloghi"));
    return {};
  }
  QVariant InstallSkin(QString& skin) override {
    if (!skin.isEmpty()) throw std::runtime_error("the host passes an empty text");
    throw std::runtime_error("no skins here");
  }
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
