// A small catalog, published in a temporary application folder.
#pragma once

#include <QDateTime>
#include <QImage>
#include <QImageReader>
#include <QMap>
#include <QRegularExpression>

#include "SitePublisher.h"
#include "publish/PluginConnection.h"
#include "support/CatalogFixture.h"

namespace vorlina {

// Asks at each report whether to go on; without a question it does.
class SiteProgress : public IVorlinaProgress {
 public:
  explicit SiteProgress(std::function<bool(const QString& step)> ask = {}) : ask_(std::move(ask)) {}
  bool Report(int, int, const QString& step) override { return !ask_ || ask_(step); }

 private:
  std::function<bool(const QString&)> ask_;
};

// Gives every picture as it is, in its own size alone.
class PicturesAsTheyAre : public IVorlinaPictures {
 public:
  QList<VorlinaWebPictures> Prepare(const QStringList& sources, const QList<int>&,
                                    IVorlinaProgress& progress) override {
    QList<VorlinaWebPictures> all;
    if (!progress.Report(0, int(sources.size()), QString())) return all;
    for (const QString& source : sources) {
      const QSize size = QImageReader(source).size();
      const QByteArray stamp = QByteArray::number(QFileInfo(source).lastModified().toMSecsSinceEpoch());
      all += {size.isValid() ? QString() : u"broken"_qs, size, stamp, {}};
      if (size.isValid()) all.back().pictures += {size, source, {}};
    }
    return all;
  }
};

inline void Write(const QString& path, const QByteArray& content) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(content);
}

inline void WriteAll(const QString& folder, const QMap<QString, QByteArray>& files) {
  for (auto file = files.cbegin(); file != files.cend(); ++file)
    Write(folder + u'/' + file.key(), file.value());
}

// Every file of a folder with its content.
inline QMap<QString, QByteArray> Files(const QString& folder) {
  return QMap<QString, QByteArray>(FilesIn(folder));
}

inline const QString StandardSkin = QStringLiteral(VORLINA_SOURCE_DIR "/plugins/vlhtml/skin");

class SiteFixture : public StoreFixture {
 protected:
  SiteFixture() : target_(folder_.filePath(u"site"_qs)) {
    connection_.Execute(
        u"INSERT INTO Cataloghi "
        u"(NomeCatalogo,Titolo,Sottotitolo,Spalla,Azienda,Citta,Tel,Email,URL,NomeFiltro1,NomeFiltro2,"
        "NomeValore1,NomeValore2) VALUES ('c','Tavola & <casa>','L''arte','Riga uno'||char(10)||'Riga "
        "due','Bottega \"Verdi\"',"
        "'Faenza','+39 0546 55-01','info@example.com','javascript:alert(1)','Colore','Linea','Prezzo \\036','Dim\\046 \\047 cm')"_qs);
    for (const auto& [filter, value, published] : {std::tuple{1, u"Rosso"_qs, true},
                                                   {1, u"Blu"_qs, true},
                                                   {1, u"Segreto"_qs, false},
                                                   {2, u"<i>Classica</i>"_qs, true},
                                                   {2, u"Vuota"_qs, true}})
      connection_.Execute(u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore,Pubblica) VALUES (1,?,?,?)"_qs,
                          {filter, value, published});
    Add(u"B-1"_qs, u"Secondo"_qs, 2, 1, 4, true);
    Add(u"A-1"_qs, u"Primo: <script>alert('x')</script> & \"altro\""_qs, 1, 2, 0, true);
    Add(u"C-1"_qs, u"Nascosto"_qs, 3, 1, 4, false);
    Add(u"D/..\\x"_qs, {}, 4, 3, 0, true);
    Picture(u"A-1"_qs, 40, 30);
    connection_.Execute(
        u"INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica,Valore) VALUES (1,'a-1','Peso','1 < 2 kg')"_qs);
  }

  void Add(const QString& code, const QVariant& description, int order, int colour, int line,
           bool published) {
    connection_.Execute(
        u"INSERT INTO Prodotti (IDCatalogo,CodiceProdotto,Descrizione,Valore1,Valore2,OrdineTemp,IDFiltro1,"
        "IDFiltro2,Pubblica) VALUES (1,?,?,'12,50','10 x 20',?,?,?,?)"_qs,
        {code, description, order, colour, line, published});
  }
  void Picture(const QString& code, int width, int height) {
    const QString path = AppFile(u"Images/1-%1.jpg"_qs.arg(code));
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(path, "jpeg"));
    connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE CodiceProdotto=?"_qs, {path, code});
  }
  // In Italian, or in English, to the user and to the site's readers.
  VorlinaReport PublishTo(const QString& folder, int catalog, bool italian, SiteProgress progress,
                          IVorlinaUi* ui = nullptr) {
    PluginConnection connection(connection_);
    VorlinaHost host;
    host.language = italian ? u"Italian"_qs : u"English"_qs;
    host.applicationFolder = AppPath();
    host.pictures = &pictures_;
    host.ui = ui;
    VorlinaJob job;
    job.IDCatalogo = catalog;
    job.target = folder;
    job.profile = profile_;
    job.profile.language = italian ? u"it"_qs : u"en"_qs;
    job.preview = preview_;
    return vlhtml::SitePublisher(host, skin_, QStringLiteral(VORLINA_SOURCE_DIR "/plugins/vlhtml/words"))
        .Publish(connection, job, progress);
  }
  VorlinaReport Publish(SiteProgress progress = SiteProgress()) {
    return PublishTo(target_, 1, true, std::move(progress));
  }
  // How many files a publication made.
  int Written() {
    const VorlinaReport report = Publish();
    return report.added + report.changed;
  }
  QByteArray Page(const QString& name) { return ContentOf(target_ + u'/' + name); }
  QString Failure() {
    return FailureOf([&] { Publish(); });
  }
  // What lies beside the target: nothing is left there.
  QStringList Beside() {
    return QDir(folder_.path())
        .entryList({u".*vorlina*"_qs}, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
  }

  // A copy of the standard skin takes its place: to be changed, or read by whoever may not read the sources.
  void CopySkin() {
    if (skin_ != StandardSkin) return;
    skin_ = folder_.filePath(u"skin"_qs);
    WriteAll(skin_, Files(StandardSkin));
  }
  void ChangeSkin(const QString& name, const QByteArray& content) {
    CopySkin();
    Write(skin_ + u'/' + name, content);
  }

  QString skin_ = StandardSkin;
  const QString target_;
  VorlinaProfile profile_;
  bool preview_ = false;
  PicturesAsTheyAre pictures_;
};

}  // namespace vorlina
