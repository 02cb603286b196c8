#include "catalogs/CatalogCheck.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "images/PictureFolder.h"
#include "images/PictureStore.h"
#include "store/CatalogDatabase.h"
#include "store/Connection.h"

namespace vorlina {
namespace {

struct KindText {
  FindingKind kind;
  const char16_t* name;
  const char* title;
};

const KindText KindTexts[] = {
    {FindingKind::Database, u"database", QT_TRANSLATE_NOOP("Texts", "Database danneggiato")},
    {FindingKind::MissingPicture, u"missing-picture", QT_TRANSLATE_NOOP("Texts", "Immagini che mancano")},
    {FindingKind::DanglingFilter, u"dangling-filter",
     QT_TRANSLATE_NOOP("Texts", "Prodotti con un valore di filtro che non esiste")},
    {FindingKind::MissingThumbnail, u"missing-thumbnail",
     QT_TRANSLATE_NOOP("Texts", "Miniature che mancano")},
    {FindingKind::OutsidePicture, u"outside-picture",
     QT_TRANSLATE_NOOP("Texts", "Immagini fuori dalla cartella \"Images\"")},
    {FindingKind::UnusedFile, u"unused-file",
     QT_TRANSLATE_NOOP("Texts", "File in \"Images\" che nessuna riga usa")},
    {FindingKind::TemporaryFile, u"temporary-file",
     QT_TRANSLATE_NOOP("Texts", "File temporanei rimasti in \"Images\"")},
};

const KindText& TextOf(FindingKind kind) {
  return *std::find_if(std::begin(KindTexts), std::end(KindTexts),
                       [=](const KindText& text) { return text.kind == kind; });
}

// What tells the row.
QString SubjectOf(const NamedPicture& picture) {
  switch (picture.use) {
    case PictureUse::Logo:
    case PictureUse::Profile:
      return u"Cataloghi %1"_qs.arg(picture.IDCatalogo);
    case PictureUse::Main:
      return u"Prodotti %1 "_qs.arg(picture.IDCatalogo) + picture.CodiceProdotto;
    default:
      return u"Immagini %1 "_qs.arg(picture.IDCatalogo) + picture.CodiceProdotto + u" %1"_qs.arg(picture.row);
  }
}

class Check {
 public:
  explicit Check(Connection& connection)
      : connection_(connection),
        images_(QFileInfo(connection.DataSource()).absolutePath() + u"/Images/"_qs),
        folder_(images_.chopped(1)) {}

  std::vector<Finding> Run() {
    for (const QString& text : CheckDatabase(connection_)) Add(FindingKind::Database, text);
    ReadFolder();
    ForEachNamedPicture(connection_, [this](const NamedPicture& picture) { CheckPicture(picture); });
    for (int filter = 1; filter <= 5; ++filter) CheckFilter(filter);
    CheckFiles();
    std::stable_sort(findings_.begin(), findings_.end(),
                     [](const Finding& a, const Finding& b) { return a.kind < b.kind; });
    return std::move(findings_);
  }

 private:
  void Add(FindingKind kind, const QString& subject, const QString& detail = {}) {
    findings_.push_back({kind, subject, detail});
  }

  // The names are read once: asking for each file by itself would take a call a row.
  void ReadFolder() {
    QDirIterator files(images_, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) present_.insert(files.next().mid(images_.size()));
  }

  void CheckPicture(const NamedPicture& picture) {
    const QString name = folder_.NameOf(picture.path);
    if (name.isEmpty()) {
      Add(IsPictureFile(picture.path) ? FindingKind::OutsidePicture : FindingKind::MissingPicture,
          SubjectOf(picture), picture.path);
      return;
    }
    used_.insert(name);
    if (!present_.contains(name)) Add(FindingKind::MissingPicture, SubjectOf(picture), picture.path);
    if (picture.use != PictureUse::Main) return;
    const QString thumbnail = ThumbnailName(name);
    used_.insert(thumbnail);
    if (present_.contains(name) && !present_.contains(thumbnail))
      Add(FindingKind::MissingThumbnail, SubjectOf(picture), QDir::toNativeSeparators(images_ + thumbnail));
  }

  void CheckFilter(int filter) {
    Rows rows(
        connection_,
        u"SELECT P.IDCatalogo || ' ' || P.CodiceProdotto, P.IDFiltro%1 FROM Prodotti P LEFT JOIN Filtri F "
        "ON F.IDValore=P.IDFiltro%1 AND F.IDCatalogo=P.IDCatalogo AND F.IDNomeFiltro=%1 "
        "WHERE P.IDFiltro%1<>0 AND F.IDValore IS NULL"_qs.arg(filter));
    while (rows.Next())
      Add(FindingKind::DanglingFilter, u"Prodotti "_qs + rows.Value(0).toString(),
          u"IDFiltro%1=%2"_qs.arg(QString::number(filter), rows.Value(1).toString()));
  }

  void CheckFiles() {
    // Files are written beside their target, under its name and six more characters.
    static const QRegularExpression temporary(u"\\.[A-Za-z0-9]+\\.[A-Za-z]{6}$"_qs);
    QStringList names;
    for (const QString& name : present_)
      if (!used_.contains(name) && name.compare(u"temp.bmp"_qs, Qt::CaseInsensitive) != 0) names += name;
    names.sort();
    for (const QString& name : names)
      Add(temporary.match(name).hasMatch() ? FindingKind::TemporaryFile : FindingKind::UnusedFile, name);
  }

  Connection& connection_;
  QString images_;  // with "/" everywhere and at its end
  PictureFolder folder_;
  QSet<QString> present_;  // names below "Images"
  QSet<QString> used_;
  std::vector<Finding> findings_;
};

}  // namespace

bool IsDamage(FindingKind kind) { return kind <= FindingKind::DanglingFilter; }

QString NameOf(FindingKind kind) { return QString::fromUtf16(TextOf(kind).name); }

QString TitleOf(FindingKind kind) { return Texts::tr(TextOf(kind).title); }

QString AdviceOn(FindingKind kind) {
  switch (kind) {
    case FindingKind::MissingPicture:
      return Texts::tr(
          "Rimettere ogni file in \"Images\" con lo stesso nome: alla prossima apertura la riga lo ritrova.");
    case FindingKind::OutsidePicture:
      return Texts::tr(
          "Copiare ogni file in \"Images\" con lo stesso nome: dalla prossima apertura la riga usa la "
          "copia.");
    default:
      return {};
  }
}

std::vector<Finding> CheckCatalogs(Connection& connection) { return Check(connection).Run(); }

}  // namespace vorlina
