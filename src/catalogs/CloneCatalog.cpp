#include "catalogs/CloneCatalog.h"

#include <QDir>
#include <QFile>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "images/PictureFolder.h"
#include "images/PictureStore.h"
#include "store/Connection.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

// Columns that a copied row takes over as they are.
const char16_t CatalogColumns[] =
    u"Descrizione,NomeFiltro1,NomeFiltro2,NomeFiltro3,NomeFiltro4,NomeFiltro5,NomeValore1,NomeValore2,"
    u"NomeValore3,"
    "Titolo,Sottotitolo,Spalla,Azienda,Indirizzo,Citta,Provincia,Stato,CAP,Tel,Fax,Email,URL,Extras,Logo,"
    "Width,Height";
const char16_t ProductColumns[] =
    u"CodiceProdotto,Descrizione,IDFiltro1,IDFiltro2,IDFiltro3,IDFiltro4,IDFiltro5,Valore1,Valore2,Valore3,"
    "SchedaTecnica,Immagine,Height,Width";

}  // namespace

int CountPictures(int IDCatalogo, Connection& connection) {
  Rows rows(connection,
            u"SELECT (SELECT COUNT(Immagine) FROM Prodotti WHERE IDCatalogo=?1)+"
            "(SELECT COUNT(Immagine) FROM Immagini WHERE IDCatalogo=?1)"_qs,
            {IDCatalogo});
  rows.Next();
  return rows.Value(0).toInt();
}

int CatalogClone::DuplicaCatalogo(const QString& prefix, const Progress& progress) {
  bool ending = false;
  try {
    Transaction transaction(
        connection_, {QT_TRANSLATE_NOOP("Texts", "Duplicazione del catalogo %1"), {QString::number(OldID_)}});
    PictureChange files(transaction, connection_);
    files_ = &files;
    total_ = CountPictures(OldID_, connection_);
    CopyCatalogRow(prefix);
    CopyProducts();
    CopiaImmaginiDuplicate(false, progress);
    CopyFilters();
    CopyRest();
    CopiaImmaginiDuplicate(true, progress);
    // The files are on the disk before a row names them.
    files.Sync();
    ending = true;
    transaction.Commit();
  } catch (const std::exception& error) {
    // A disk that fails at the very end has the clone reported as failed, although its rows are there.
    if (!ending || !IsStored()) throw;
    diskError_ = DescriptionOf(error);
  }
  return NewID_;
}

QStringList CatalogClone::Warnings() const {
  QStringList warnings;
  for (const QString& path : unread_)
    warnings += Texts::tr("L'immagine %1 non può essere letta e manca nella copia")
                    .arg(QDir::toNativeSeparators(path));
  if (!diskError_.isEmpty())
    warnings += Texts::tr("La copia è fatta, ma il disco ha segnalato un errore. Controllare il disco. (%1)")
                    .arg(diskError_);
  return warnings;
}

bool CatalogClone::IsStored() {
  Rows rows(connection_, u"SELECT 1 FROM Cataloghi WHERE IDCatalogo=?"_qs, {NewID_});
  return rows.Next();
}

void CatalogClone::CopyCatalogRow(const QString& prefix) {
  connection_.Execute(
      u"INSERT INTO Cataloghi (NomeCatalogo,%1) SELECT ?||COALESCE(NomeCatalogo,''),%1 FROM Cataloghi "
      "WHERE IDCatalogo=?"_qs.arg(QString::fromUtf16(CatalogColumns)),
      {prefix, OldID_});
  if (connection_.Changes() != 1) throw Error(Texts::tr("Il catalogo non esiste più"));
  NewID_ = int(connection_.LastInsertId());
  connection_.KeepCounter(u"Cataloghi"_qs, NewID_);
  connection_.Execute(
      u"INSERT INTO CExtension (IDCatalogo,IDExtension,Valore) "
      "SELECT ?,IDExtension,Valore FROM CExtension WHERE IDCatalogo=?"_qs,
      {NewID_, OldID_});
}

void CatalogClone::CopyProducts() {
  connection_.Execute(
      u"INSERT INTO Prodotti (IDCatalogo,%1) SELECT ?,%1 FROM Prodotti WHERE IDCatalogo=? ORDER BY IDProdotto"_qs
          .arg(QString::fromUtf16(ProductColumns)),
      {NewID_, OldID_});
}

// A product's value becomes the value of the same text and filter in the copy, the first one where there are
// several, and 0 where its value does not exist.
void CatalogClone::CopyFilters() {
  connection_.Execute(
      u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore,Pubblica) "
      "SELECT ?,IDNomeFiltro,Valore,Pubblica FROM Filtri WHERE IDCatalogo=? ORDER BY IDValore"_qs,
      {NewID_, OldID_});
  connection_.Execute(
      u"CREATE TEMP TABLE ValoriDuplicati "
      "(IDValore INTEGER PRIMARY KEY, IDNomeFiltro INTEGER, NuovoValore INTEGER)"_qs);
  connection_.Execute(
      u"WITH Copied AS MATERIALIZED (SELECT IDNomeFiltro,Valore,MIN(IDValore) AS NuovoValore FROM Filtri "
      "WHERE IDCatalogo=?1 GROUP BY IDNomeFiltro,Valore COLLATE VORLINA_TEXT) "
      "INSERT INTO temp.ValoriDuplicati SELECT F.IDValore,F.IDNomeFiltro,C.NuovoValore FROM Filtri F JOIN "
      "Copied C "
      "ON C.IDNomeFiltro=F.IDNomeFiltro AND C.Valore=F.Valore COLLATE VORLINA_TEXT WHERE F.IDCatalogo=?2"_qs,
      {NewID_, OldID_});
  QStringList columns;
  for (int n = 1; n <= 5; ++n)
    columns +=
        u"IDFiltro%1=CASE WHEN IDFiltro%1<>0 THEN COALESCE((SELECT NuovoValore FROM temp.ValoriDuplicati "
        "WHERE IDValore=IDFiltro%1 AND IDNomeFiltro=%1),0) ELSE IDFiltro%1 END"_qs.arg(n);
  connection_.Execute(u"UPDATE Prodotti SET %1 WHERE IDCatalogo=?"_qs.arg(columns.join(u',')), {NewID_});
  connection_.Execute(u"DROP TABLE temp.ValoriDuplicati"_qs);
}

void CatalogClone::CopyRest() {
  for (
      const QString& copy :
      {u"INSERT INTO PExtension (IDCatalogo,CodiceProdotto,IDExtension,Valore) "
       "SELECT ?,CodiceProdotto,IDExtension,Valore FROM PExtension WHERE IDCatalogo=?"_qs,
       u"INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica,Valore) "
       "SELECT ?,CodiceProdotto,Caratteristica,Valore FROM SchedeTecniche WHERE IDCatalogo=? ORDER BY IDScheda"_qs,
       u"INSERT INTO Immagini (IDCatalogo,CodiceProdotto,Immagine,Height,Width,Descrizione) "
       "SELECT ?,CodiceProdotto,Immagine,Height,Width,Descrizione FROM Immagini WHERE IDCatalogo=? "
       "ORDER BY IDImmagine"_qs})
    connection_.Execute(copy, {NewID_, OldID_});
  connection_.KeepCounter(u"Immagini"_qs, connection_.LastInsertId());
}

std::vector<CatalogClone::Picture> CatalogClone::PicturesToCopy(bool additional) const {
  std::vector<Picture> pictures;
  Rows rows(connection_,
            additional
                ? u"SELECT IDImmagine,Immagine FROM Immagini WHERE IDCatalogo=? AND Immagine IS NOT NULL"_qs
                : u"SELECT IDProdotto,Immagine FROM Prodotti WHERE IDCatalogo=? AND Immagine IS NOT NULL"_qs,
            {NewID_});
  while (rows.Next()) pictures.push_back({rows.Value(0).toLongLong(), rows.Value(1).toString()});
  return pictures;
}

void CatalogClone::CopiaImmaginiDuplicate(bool additional, const Progress& progress) {
  const QString update = additional ? u"UPDATE Immagini SET Immagine=? WHERE IDImmagine=?"_qs
                                    : u"UPDATE Prodotti SET Immagine=? WHERE IDProdotto=?"_qs;
  const std::vector<Picture> pictures = PicturesToCopy(additional);
  for (const Picture& picture : pictures) taken_.insert(keys_.Of(picture.path));
  for (const Picture& picture : pictures) {
    Report(progress, done_++, total_, FileNameOf(picture.path, true));
    connection_.Execute(update, {CopyPicture(picture, additional), picture.key});
  }
}

// Copies the file into "Images", wherever it lies, and gives the copy's path, also where there was none to
// copy.
QString CatalogClone::CopyPicture(const Picture& picture, bool additional) {
  const QString name = FileNameOf(picture.path, true);
  if (name.isEmpty() || name == u"." || name == u"..") return picture.path;
  const qsizetype dot = name.lastIndexOf(u'.');
  const QString number = QString::number(picture.key) + (dot < 0 ? QString() : name.mid(dot));
  QString target = ChoosePath(additional ? QStringList{number} : NewNames(name));
  const PictureUse use = additional ? PictureUse::Additional : PictureUse::Main;
  if (files_->CopyStaged(use, picture.path, target) == StagedCopy::NotRead) unread_ += picture.path;
  return target;
}

// The old catalog's number gives way to the new one wherever it stands before a hyphen, in a product's code
// too. Where that is another picture's name, it does so at the head alone.
QStringList CatalogClone::NewNames(const QString& name) const {
  const QString before = CatalogPrefix(OldID_);
  const QString after = CatalogPrefix(NewID_);
  QStringList names{QString(name).replace(before, after)};
  if (name.startsWith(before)) names += after + name.mid(before.size());
  return names;
}

// The first name that is no other picture's, or the last one behind the new catalog's number.
QString CatalogClone::ChoosePath(const QStringList& names) {
  QString path;
  for (const QString& name : names)
    if (IsFree(path = PicturePath(name))) break;
  for (int i = 1; !IsFree(path); ++i)
    path = PicturePath(CatalogPrefix(NewID_) + CatalogPrefix(i) + names.last());
  taken_.insert(keys_.Of(path));
  return path;
}

// A file that no row names is left from a clone that was cut short.
bool CatalogClone::IsFree(const QString& path) {
  const auto isFree = [this](const QString& file) {
    return !taken_.contains(keys_.Of(file)) && !(QFile::exists(file) && IsNamed(file));
  };
  return isFree(path) && isFree(ThumbnailPath(path));
}

bool CatalogClone::IsNamed(const QString& path) {
  if (!named_) {
    named_.emplace();
    ForEachNamedPicture(connection_,
                        [this](const NamedPicture& picture) { named_->insert(keys_.Of(picture.path)); });
  }
  return named_->contains(keys_.Of(path));
}

}  // namespace vorlina
