// Publishes a catalog as vorlina-batch does, for whole-process measurements.
// usage: publish_site CATALOG_DB SKIN_FOLDER TARGET_FOLDER
#include <QCoreApplication>
#include <cstdio>

#include "SitePublisher.h"
#include "publish/PluginConnection.h"
#include "publish/WebPictures.h"
#include "store/CatalogDatabase.h"
#include "store/Connection.h"

namespace {
class NoProgress : public IVorlinaProgress {
 public:
  bool Report(int, int, const QString&) override { return true; }
};
}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  if (argc != 4) return 2;
  vorlina::Connection connection;
  vorlina::OpenCatalogDatabase(connection, QString::fromLocal8Bit(argv[1]));
  vorlina::PluginConnection adapter(connection);
  NoProgress progress;
  VorlinaHost host;
  host.language = u"English"_qs;
  host.pictures = &vorlina::PicturesForReaders();
  VorlinaJob job;
  job.IDCatalogo = 1;
  job.target = QString::fromLocal8Bit(argv[3]);
  job.profile.language = u"en"_qs;
  const QString skin = QString::fromLocal8Bit(argv[2]);
  const VorlinaReport report =
      vlhtml::SitePublisher(host, skin, QString(skin + u"/../words")).Publish(adapter, job, progress);
  std::printf("%d pages, %d files written\n", report.pages, report.added + report.changed);
  return report.complete ? 0 : 1;
}
