#include "catalogs/CatalogCheck.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

#include "base/Helpers.h"
#include "base/Language.h"
#include "images/PictureFolder.h"
#include "images/PictureStore.h"
#include "store/CatalogDatabase.h"
#include "store/Connection.h"

namespace vorlina {
namespace {

struct KindText {
  FindingKind kind;
  const char16_t* name;
  const char16_t* italian;
  const char16_t* english;
};

const KindText KindTexts[] = {
    {FindingKind::Database, u"database", u"Database danneggiato", u"Damage in the database"},
    {FindingKind::MissingPicture, u"missing-picture", u"Immagini che mancano", u"Pictures that are missing"},
    {FindingKind::DanglingFilter, u"dangling-filter", u"Prodotti con un valore di filtro che non esiste",
     u"Products with a filter value that does not exist"},
    {FindingKind::MissingThumbnail, u"missing-thumbnail", u"Miniature che mancano",
     u"Thumbnails that are missing"},
    {FindingKind::OutsidePicture, u"outside-picture", u"Immagini fuori dalla cartella \"Images\"",
     u"Pictures outside of the folder \"Images\""},
    {FindingKind::UnusedFile, u"unused-file", u"File in \"Images\" che nessuna riga usa",
     u"Files in \"Images\" that no row uses"},
    {FindingKind::TemporaryFile, u"temporary-file", u"File temporanei rimasti in \"Images\"",
     u"Temporary files left in \"Images\""},
};

// What the user can do about a kind of finding; both texts are empty where there is nothing to do.
std::pair<const char16_t*, const char16_t*> AdviceTexts(FindingKind kind) {
  switch (kind) {
    case FindingKind::MissingPicture:
      return {
          u"Rimettere ogni file in \"Images\" con lo stesso nome: alla prossima apertura la riga lo ritrova.",
          u"Put each file back into \"Images\" under the same name: the next start finds it again."};
    case FindingKind::OutsidePicture:
      return {
          u"Copiare ogni file in \"Images\" con lo stesso nome: dalla prossima apertura la riga usa la "
          u"copia.",
          u"Copy each file into \"Images\" under the same name: the row uses the copy from the next start "
          u"on."};
    default:
      return {u"", u""};
  }
}

const KindText& TextOf(FindingKind kind) {
  return *std::find_if(std::begin(KindTexts), std::end(KindTexts),
                       [=](const KindText& text) { return text.kind == kind; });
}

// What tells the row.
QString SubjectOf(const NamedPicture& picture) {
  switch (picture.use) {
    case PictureUse::Logo:
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

QString TitleOf(FindingKind kind) {
  return EitherLanguage(QString::fromUtf16(TextOf(kind).italian), QString::fromUtf16(TextOf(kind).english));
}

QString AdviceOn(FindingKind kind) {
  const auto [italian, english] = AdviceTexts(kind);
  return EitherLanguage(QString::fromUtf16(italian), QString::fromUtf16(english));
}

std::vector<Finding> CheckCatalogs(Connection& connection) { return Check(connection).Run(); }

}  // namespace vorlina
