// Publishing plug-ins without a window, one for each way in which they can behave.
#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QThread>
#include <stdexcept>

#include "IVorlinaPlugin.h"

namespace {

class Publisher : public IVorlinaFolderPublisher {
 public:
  bool PublishTo(IVorlinaConnection& connection, int IDCatalogo, const QString& folder,
                 IVorlinaProgress& progress) override {
#ifdef TEST_PUBLISHER_THROWS
    connection.BeginTrans();
    connection.Execute(QStringLiteral("DELETE FROM Cataloghi WHERE IDCatalogo=?"), {IDCatalogo});
    throw std::runtime_error("the paper is used up");
#endif
    // Goes on until it is asked to stop, and says beside the folder that it has begun.
    QFile(folder + QStringLiteral(".begun")).open(QIODevice::WriteOnly);
    for (int step = 0; progress.Report(step, 1000, QStringLiteral("page %1").arg(step));
         step = (step + 1) % 1000)
      QThread::msleep(1);
    Q_UNUSED(connection);
    Q_UNUSED(IDCatalogo);
    return false;
  }
};

class Plugin : public IVorlinaPlugin {
 public:
  QString GetPluginName() override { return QStringLiteral("Prova"); }
  QIcon GetPluginIcon() override { throw std::logic_error("there is no display"); }
  QString GetPluginDescription() override { return QStringLiteral("describes"); }
  QVariant Publish(IVorlinaConnection&, int&) override { return {}; }
  QVariant InstallSkin(QString&) override { return {}; }

#ifdef TEST_PUBLISHER_PAINTS
 private:
  QPixmap picture_{8, 8};
#endif
};

class Factory : public QObject, public IVorlinaPluginFactory {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID VORLINA_PLUGIN_IID)
  Q_INTERFACES(IVorlinaPluginFactory)

 public:
  std::unique_ptr<IVorlinaPlugin> CreatePlugin(const VorlinaHost&) override {
    return std::make_unique<Plugin>();
  }
#ifndef TEST_PUBLISHER_WINDOWS
  std::unique_ptr<IVorlinaFolderPublisher> CreateFolderPublisher(const VorlinaHost&) override {
    return std::make_unique<Publisher>();
  }
#endif
};

}  // namespace

#include "TestPublisher.moc"
