// A publishing plug-in for tests, built once for each way in which a plug-in can behave.
#include <QFile>
#include <QThread>
#include <stdexcept>

#include "IVorlinaPlugin.h"

#ifndef TEST_PLUGIN_IID
#define TEST_PLUGIN_IID VORLINA_PLUGIN_IID
#endif

namespace {

class TestPlugin : public IVorlinaPlugin, public IVorlinaPublisher {
 public:
  QString GetPluginName() override { return QStringLiteral(TEST_PLUGIN_NAME); }
  QIcon GetPluginIcon() override { return QPixmap(32, 32); }
  QString GetPluginDescription() override { return QStringLiteral("describes " TEST_PLUGIN_NAME); }
  QVariant InstallSkin(QString&) override { return {}; }

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

#ifdef TEST_PLUGIN_REPORTS
  VorlinaTarget Target() override {
    return {true, QStringLiteral("txt"), {}};
  }
  QList<VorlinaOption> Options() override {
    return {{ QStringLiteral("cover"), {}, {}, true }};
  }

  // A file that says what it was made of.
  VorlinaReport Publish(IVorlinaConnection&, const VorlinaJob& job, IVorlinaProgress&) override {
    QFile file(job.target);
    file.open(QIODevice::WriteOnly);
    file.write((job.profile.name + u' ' + job.profile.language + u' ' +
                job.options.value(QStringLiteral("cover")).toString())
                   .toUtf8());
    VorlinaReport report{true, 2, 3, 40, 5, 6, 7, {}, { job.target }};
    for (int i = 0; i < 25; ++i)
      report.notes += {VorlinaNote::Kind::NoPicture, QString::number(i), QStringLiteral("no picture")};
    report.notes += {VorlinaNote::Kind::Other, {}, QStringLiteral("as for the rest")};
    return report;
  }
#else
  // Goes on until it is asked to stop, and says beside the folder that it has begun.
  VorlinaReport Publish(IVorlinaConnection& connection, const VorlinaJob& job,
                        IVorlinaProgress& progress) override {
    connection.BeginTrans();
    connection.Execute(QStringLiteral("DELETE FROM Cataloghi"));
#ifdef TEST_PLUGIN_THROWS
    throw std::runtime_error("the paper is used up");
#endif
    connection.RollbackTrans();
    QFile(job.target + QStringLiteral(".begun")).open(QIODevice::WriteOnly);
    while (progress.Report(1, 1000, QStringLiteral("page"))) QThread::msleep(1);
    return {};
  }
#endif

#ifdef TEST_PLUGIN_PAINTS
 private:
  QPixmap picture_{8, 8};
#endif
};

class TestFactory : public QObject, public IVorlinaPluginFactory {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID TEST_PLUGIN_IID)
  Q_INTERFACES(IVorlinaPluginFactory)

 public:
  std::unique_ptr<IVorlinaPlugin> CreatePlugin(const VorlinaHost&) override {
    return std::make_unique<TestPlugin>();
  }
#ifndef TEST_PLUGIN_WINDOWS
  std::unique_ptr<IVorlinaPublisher> CreatePublisher(const VorlinaHost&) override {
    return std::make_unique<TestPlugin>();
  }
#endif
};

}  // namespace

#include "TestPlugin.moc"
