// The example of plugins.md: a publishing plug-in that makes a price list, which is one web page with all
// that it shows in it. It needs the plug-in kit and Qt, and nothing else of Vorlina.
#include <CatalogSnapshot.h>
#include <Escapes.h>
#include <IVorlinaPlugin.h>
#include <SafeWriting.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <algorithm>
#include <stdexcept>

namespace {

using publishing::CatalogSnapshot;
using publishing::Product;

constexpr int PictureSize = 120;
constexpr std::size_t PreviewProducts = 20;
const std::string Mark = "<meta name=\"generator\" content=\"Example.PriceList\">";

bool IsItalian(const VorlinaHost& host) { return host.language == u"Italian"; }

QString By(const VorlinaHost& host, const char* italian, const char* english) {
  return QString::fromUtf8(IsItalian(host) ? italian : english);
}

std::runtime_error Failure(const QString& text) { return std::runtime_error(text.toStdString()); }

// The page: a table of the products, with their pictures where there are some.
std::string Page(const CatalogSnapshot& catalog, const std::string& language,
                 const std::vector<std::string>& pictures) {
  const std::string title = files::Escaped(catalog.title.empty() ? catalog.name : catalog.title);
  std::string page = "<!DOCTYPE html>\n<html lang=\"" + files::Escaped(language) +
                     "\">\n<head><meta charset=\"utf-8\">" + Mark + "<title>" + title +
                     "</title></head>\n<body><h1>" + title + "</h1>\n<table>\n";
  for (std::size_t i = 0; i < catalog.products.size(); ++i) {
    const Product& product = catalog.products[i];
    page += "<tr><td>";
    if (!pictures[i].empty()) page += "<img alt=\"\" src=\"data:image/jpeg;base64," + pictures[i] + "\">";
    page += "</td><th scope=\"row\">" + files::Escaped(product.code.toStdString()) + "</th><td>" +
            files::Escaped(product.name) + "</td><td>" + files::Escaped(product.price) + "</td></tr>\n";
  }
  return page + "</table></body>\n</html>\n";
}

class PriceListPublisher : public IVorlinaPublisher {
 public:
  explicit PriceListPublisher(VorlinaHost host) : host_(std::move(host)) {}

  VorlinaTarget Target() override {
    return {true, QStringLiteral("html"), By(host_, "Pagine web (*.html)", "Web pages (*.html)")};
  }

  QList<VorlinaOption> Options() override {
    return {{QStringLiteral("pictures"), By(host_, "Con le &immagini", "With &pictures"), {}, true}};
  }

  VorlinaReport Publish(IVorlinaConnection& connection, const VorlinaJob& job,
                        IVorlinaProgress& progress) override {
    RequireOurs(job.target);
    VorlinaReport report;
    if (!progress.Report(0, 1, By(host_, "Lettura del catalogo", "Reading the catalog"))) return report;
    CatalogSnapshot catalog = publishing::ReadSnapshot(connection, job, IsItalian(host_));
    if (job.preview) catalog.products.resize(std::min(PreviewProducts, catalog.products.size()));
    report.notes = catalog.notes;
    std::vector<std::string> pictures(catalog.products.size());
    const bool wanted = job.options.value(QStringLiteral("pictures"), true).toBool();
    if (wanted && !AddPictures(catalog, pictures, progress, report)) return report;
    Write(job.target, Page(catalog, job.profile.language.toStdString(), pictures), report);
    return report;
  }

 private:
  // What somebody else made is not replaced, whoever chose its name.
  void RequireOurs(const QString& path) {
    QFile file(path);
    if (!file.exists()) return;
    if (!file.open(QIODevice::ReadOnly) || !file.read(500).contains(Mark.c_str()))
      throw Failure(By(host_, "%1 non è un listino. Scegliere un altro nome.",
                       "%1 is no price list. Choose another name.")
                        .arg(QDir::toNativeSeparators(path)));
  }

  // The products' main pictures as text; false where the user stopped. Only files in "Images" are for
  // readers, whatever a row says.
  bool AddPictures(const CatalogSnapshot& catalog, std::vector<std::string>& pictures,
                   IVorlinaProgress& progress, VorlinaReport& report) {
    const QString images = QFileInfo(host_.applicationFolder + QStringLiteral("/Images")).canonicalFilePath();
    QStringList sources;
    std::vector<std::size_t> owners;
    for (std::size_t i = 0; i < catalog.products.size(); ++i) {
      const auto& own = catalog.products[i].pictures;
      if (own.empty() || QFileInfo(QFileInfo(own[0].source).canonicalFilePath()).path() != images) continue;
      sources += own[0].source;
      owners.push_back(i);
    }
    if (sources.isEmpty()) return true;
    const QList<VorlinaWebPictures> made = host_.pictures->Prepare(sources, {PictureSize}, progress);
    if (made.isEmpty()) return false;
    for (qsizetype i = 0; i < made.size(); ++i) {
      const std::size_t owner = owners[std::size_t(i)];
      QFile file(made[i].pictures.isEmpty() ? QString() : made[i].pictures[0].jpeg);
      if (made[i].fault.isEmpty() && file.open(QIODevice::ReadOnly))
        pictures[owner] = file.readAll().toBase64().toStdString();
      else
        report.notes.push_back({VorlinaNote::Kind::Picture, catalog.products[owner].code, made[i].fault});
      report.pictures += pictures[owner].empty() ? 0 : 1;
    }
    return true;
  }

  void Write(const QString& path, const std::string& page, VorlinaReport& report) {
    const bool again = QFile::exists(path);
    try {
      files::MakeFolder(QFileInfo(path).path());
      files::WriteFileSafely(path, QByteArray(page.data(), qsizetype(page.size())));
    } catch (const files::FileError& error) {
      const QString text =
          error.IsFullDisk()
              ? By(host_, "Impossibile scrivere %1: il disco è pieno.",
                   "%1 cannot be written: the disk is full.")
              : By(host_, "Impossibile scrivere %1: ", "%1 cannot be written: ") + error.Reason();
      throw Failure(text.arg(QDir::toNativeSeparators(path)));
    }
    report.complete = true;
    report.pages = 1;
    report.bytes = qint64(page.size());
    (again ? report.changed : report.added) = 1;
    report.open += path;
  }

  VorlinaHost host_;
};

class PriceList : public IVorlinaPlugin {
 public:
  explicit PriceList(VorlinaHost host) : host_(std::move(host)) {}

  QString GetPluginName() override { return By(host_, "Listino", "Price list"); }

  QIcon GetPluginIcon() override {
    QPixmap pixmap(64, 64);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setPen(QPen(QColor(0x3f, 0x7f, 0xbf), 6));
    for (int y = 14; y < 60; y += 12) painter.drawLine(10, y, 54, y);
    return pixmap;
  }

  QString GetPluginDescription() override {
    return By(host_, "Un listino in una sola pagina web.", "A price list in a single web page.");
  }

  // The program asks how and where, shows a preview and the progress, and tells what came of it.
  QVariant Publish(IVorlinaConnection& connection, int& IDCatalogo) override {
    PriceListPublisher publisher(host_);
    host_.ui->Publish(publisher, connection, IDCatalogo);
    return {};
  }

  QVariant InstallSkin(QString&) override {
    throw Failure(By(host_, "Il listino non ha skin.", "The price list has no skins."));
  }

 private:
  VorlinaHost host_;
};

class PriceListFactory : public QObject, public IVorlinaPluginFactory {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID VORLINA_PLUGIN_IID)
  Q_INTERFACES(IVorlinaPluginFactory)

 public:
  std::unique_ptr<IVorlinaPlugin> CreatePlugin(const VorlinaHost& host) override {
    return std::make_unique<PriceList>(host);
  }
  std::unique_ptr<IVorlinaPublisher> CreatePublisher(const VorlinaHost& host) override {
    return std::make_unique<PriceListPublisher>(host);
  }
};

}  // namespace

#include "ExamplePlugin.moc"
