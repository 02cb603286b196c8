// The example of docs/plugins.md: a publishing plug-in that writes a price list as a text file. It needs the
// plug-in headers and Qt, and nothing else of Vorlina.
#include <IVorlinaPlugin.h>

#include <QDir>
#include <QPainter>
#include <QSaveFile>
#include <stdexcept>

namespace {

QString By(const VorlinaHost& host, const char* italian, const char* english) {
  return QString::fromUtf8(host.language == u"Italian" ? italian : english);
}

// One line a product: code, description and first value, separated by tabs.
QByteArray PriceList(IVorlinaConnection& connection, int catalog, IVorlinaProgress* progress, bool& stopped) {
  const auto rows =
      connection.Open(QStringLiteral("SELECT CodiceProdotto, Descrizione, Valore1 FROM Prodotti "
                                     "WHERE IDCatalogo=? AND Pubblica "
                                     "ORDER BY OrdineTemp IS NULL, OrdineTemp, IDProdotto"),
                      {catalog});
  QByteArray list;
  for (int done = 0; rows->Next() && !stopped; ++done) {
    for (int column = 0; column < 3; ++column) {
      list += rows->Value(column).toString().simplified().toUtf8();
      list += column < 2 ? '\t' : '\n';
    }
    stopped = progress != nullptr && !progress->Report(done, done + 1, QStringLiteral("list"));
  }
  return list;
}

// Beside the target first, so that a former list stays when the disk is full.
void WriteList(const QString& folder, const QByteArray& list) {
  QSaveFile file(folder + QStringLiteral("/prices.txt"));
  const bool written = QDir().mkpath(folder) && file.open(QIODevice::WriteOnly) &&
                       file.write(list) == list.size() && file.flush() && file.size() == list.size() &&
                       file.commit();
  if (!written) throw std::runtime_error(file.errorString().toStdString());
}

class ExamplePlugin : public IVorlinaPlugin {
 public:
  explicit ExamplePlugin(VorlinaHost host) : host_(std::move(host)) {}

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
    return By(host_, "Scrive un listino in \"prices.txt\" nella cartella del programma.",
              "Writes a price list to \"prices.txt\" in the program's folder.");
  }

  QVariant Publish(IVorlinaConnection& connection, int& IDCatalogo) override {
    bool stopped = false;
    WriteList(host_.applicationFolder, PriceList(connection, IDCatalogo, nullptr, stopped));
    return {};
  }

  QVariant InstallSkin(QString&) override {
    throw std::runtime_error(
        By(host_, "Il listino non ha skin.", "The price list has no skins.").toStdString());
  }

 private:
  VorlinaHost host_;
};

class ExamplePublisher : public IVorlinaPublisher {
 public:
  VorlinaReport Publish(IVorlinaConnection& connection, const VorlinaJob& job,
                        IVorlinaProgress& progress) override {
    bool stopped = false;
    const QByteArray list = PriceList(connection, job.IDCatalogo, &progress, stopped);
    if (!stopped) WriteList(job.target, list);
    VorlinaReport report;
    report.complete = !stopped;
    report.pages = 1;
    report.bytes = list.size();
    report.open += job.target + QStringLiteral("/prices.txt");
    return report;
  }
};

class ExampleFactory : public QObject, public IVorlinaPluginFactory {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID VORLINA_PLUGIN_IID)
  Q_INTERFACES(IVorlinaPluginFactory)

 public:
  std::unique_ptr<IVorlinaPlugin> CreatePlugin(const VorlinaHost& host) override {
    return std::make_unique<ExamplePlugin>(host);
  }
  std::unique_ptr<IVorlinaPublisher> CreatePublisher(const VorlinaHost&) override {
    return std::make_unique<ExamplePublisher>();
  }
};

}  // namespace

#include "ExamplePlugin.moc"
