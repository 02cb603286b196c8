// Cloning and deleting a whole catalog, rows and files.
#include <sys/stat.h>

#include "catalogs/CloneCatalog.h"
#include "catalogs/DeleteCatalog.h"
#include "publish/ExtensionManager.h"
#include "support/CatalogFixture.h"
#include "support/FaultVfs.h"
#include "support/FullDisk.h"

using namespace vorlina;

namespace {

// All that could break a statement or a file name, and what escaping makes of it.
const QString OddName = QStringLiteral("L'\"anta\" [blu]\\ .,!;:?%_`");
const QString OddCode = QStringLiteral("O'Neil 50% [x] 🚪");

class CloneTest : public CatalogFixture {
 protected:
  CloneTest() {
    catalog_ = AddCatalog(OddName);
    connection_.Execute(
        u"UPDATE Cataloghi SET NomeFiltro1='Colore', NomeValore2=?, Logo=?, Width=30, Extras=?"_qs,
        {OddName, Put(Named(u"Logo"_qs)), QString(100'000, u'x')});
  }

  QString Put(const QString& name, const QByteArray& bytes = "picture") const {
    QString path = AppFile(u"Images/"_qs + name);
    WriteFileSafely(path, bytes + name.toUtf8());
    return path;
  }
  QString Named(const QString& code) const { return Named(catalog_, code); }
  static QString Named(int catalog, const QString& code) { return u"%1-%2.jpg"_qs.arg(catalog).arg(code); }
  int AddValue(int filter, const QVariant& text) {
    connection_.Execute(u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore,Pubblica) VALUES (?,?,?,0)"_qs,
                        {catalog_, filter, text});
    return int(connection_.LastInsertId());
  }
  // A product with main picture, thumbnail and an additional picture, tech data and a mark.
  void AddWholeProduct(const QString& code) {
    AddProduct(catalog_, code, 7);
    Put(u't' + Named(code));
    connection_.Execute(u"UPDATE Prodotti SET Immagine=?, Width=4, Pubblica=0 WHERE CodiceProdotto=?"_qs,
                        {Put(Named(code)), code});
    connection_.Execute(
        u"INSERT INTO Immagini (IDCatalogo,CodiceProdotto,Descrizione) VALUES (?,?,'side')"_qs,
        {catalog_, code});
    const qint64 id = connection_.LastInsertId();
    connection_.Execute(u"UPDATE Immagini SET Immagine=? WHERE IDImmagine=?"_qs,
                        {Put(u"%1.jpg"_qs.arg(id)), id});
    connection_.Execute(
        u"INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica,Valore) "
        "VALUES (?,?,'Peso','2 kg'),(?,?,'Altezza',NULL)"_qs,
        {catalog_, code, catalog_, code});
    EXPECT_TRUE(SetExtension(u"ImmagineModificata"_qs, u"1"_qs, catalog_, code, connection_));
  }
  int Clone() { return CatalogClone(catalog_, connection_).DuplicaCatalogo(u"Copy of "_qs, {}); }

  // Every row of a catalog as text, but for its identifiers.
  QStringList RowsOf(int catalog) {
    QStringList all;
    for (const QString& sql :
         {u"Descrizione,NomeFiltro1,NomeValore2,Extras,Logo,Width) FROM Cataloghi*rowid"_qs,
          u"CodiceProdotto,Descrizione,Valore1,Width) FROM Prodotti*CodiceProdotto"_qs,
          u"IDNomeFiltro,Valore,Pubblica) FROM Filtri*IDValore"_qs,
          u"CodiceProdotto,Caratteristica,Valore) FROM SchedeTecniche*IDScheda"_qs,
          u"CodiceProdotto,Descrizione) FROM Immagini*IDImmagine"_qs,
          u"IDExtension,Valore) FROM CExtension*IDExtension"_qs,
          u"CodiceProdotto,IDExtension,Valore) FROM PExtension*CodiceProdotto,IDExtension"_qs}) {
      Rows rows(connection_,
                u"SELECT json_array("_qs + QString(sql).replace(u'*', u" WHERE IDCatalogo=? ORDER BY "_qs),
                {catalog});
      while (rows.Next()) all += rows.Value(0).toString();
    }
    return all;
  }
  // What a product has for each filter: the value's text where it is one of that filter, else what is stored.
  QString FilterTexts(int catalog, const QString& code) {
    QStringList texts;
    for (int n = 1; n <= 5; ++n)
      texts += One(u"ifnull((SELECT Valore FROM Filtri F WHERE F.IDCatalogo=P.IDCatalogo AND IDNomeFiltro=%1 "
                   "AND IDValore=IDFiltro%1),ifnull(IDFiltro%1,'Null'))"_qs.arg(n),
                   u"Prodotti P"_qs, u"IDCatalogo=? AND CodiceProdotto=?"_qs, {catalog, code})
                   .toString();
    return texts.join(u' ');
  }

  int catalog_ = 0;
};

}  // namespace

TEST_F(CloneTest, ACloneIsEqualAndStandsAlone) {
  for (const QString& code : {OddCode, u"2"_qs}) AddWholeProduct(code);
  EXPECT_TRUE(SetExtension(u"Tema"_qs, OddName, catalog_, {}, connection_));
  AddValue(1, OddName);
  const QStringList before = RowsOf(catalog_);
  const auto files = FilesIn(AppFile(u"Images"_qs));
  const int clone = Clone();
  EXPECT_EQ(RowsOf(clone), before);
  EXPECT_EQ(RowsOf(catalog_), before);
  EXPECT_EQ(One(u"NomeCatalogo"_qs, u"Cataloghi"_qs, u"IDCatalogo=?"_qs, {clone}),
            QString(u"Copy of "_qs + OddName));
  EXPECT_EQ(
      One(u"COUNT(*)"_qs, u"Prodotti"_qs, u"IDCatalogo=? AND OrdineTemp IS NULL AND Pubblica"_qs, {clone}),
      2);
  EXPECT_EQ(One(u"Immagine"_qs, u"Prodotti"_qs, u"IDCatalogo=? AND CodiceProdotto=?"_qs, {clone, OddCode}),
            AppFile(u"Images/"_qs + Named(clone, OddCode)));
  EXPECT_EQ(FilesIn(AppFile(u"Images"_qs)).size(), files.size() + 6);
  EXPECT_EQ(Findings(), QStringList());

  DeleteCatalog(clone, connection_);
  EXPECT_EQ(Differences(FilesIn(AppFile(u"Images"_qs)), files), QStringList());
  EXPECT_EQ(RowsOf(catalog_), before);
  EXPECT_EQ(RowsOf(clone), QStringList());
}

TEST_F(CloneTest, FilterValuesAreThoseOfTheCopy) {
  const int red = AddValue(1, u"Rosso"_qs);
  const int again = AddValue(1, u"ROSSO"_qs);
  const int other = AddValue(3, u"Rosso"_qs);
  AddProduct(catalog_, u"a"_qs);
  AddProduct(catalog_, u"b"_qs);
  connection_.Execute(u"UPDATE Prodotti SET IDFiltro1=?,IDFiltro2=0,IDFiltro3=? WHERE CodiceProdotto='a'"_qs,
                      {red, other});
  // One that belongs to another filter, one that does not exist, and a twin of the first.
  connection_.Execute(
      u"UPDATE Prodotti SET IDFiltro1=?,IDFiltro3=?,IDFiltro5=999999 WHERE CodiceProdotto='b'"_qs,
      {again, red});
  const int clone = Clone();
  EXPECT_EQ(FilterTexts(clone, u"a"_qs), u"Rosso 0 Rosso Null Null");
  EXPECT_EQ(FilterTexts(clone, u"b"_qs), u"Rosso Null 0 Null 0");
  EXPECT_TRUE(FilterTexts(catalog_, u"a"_qs).startsWith(u"Rosso")) << "the source is as it was";
}

TEST_F(CloneTest, NamesOfFilesAreRewrittenAndNeverShared) {
  // The number before a hyphen is rewritten in the code too; of two names that would become one, both stay
  // apart.
  const int next = catalog_ + 1;
  const QString rewritten = u"A%1-2"_qs.arg(catalog_);
  const QString same = u"A%1-2"_qs.arg(next);
  for (const QString& code : {rewritten, u"plain"_qs, same}) AddWholeProduct(code);
  WriteFileSafely(Outside(Named(u"x"_qs)), "x");
  WriteFileSafely(Outside(Named(next, u"x"_qs)), "the user's own");
  AddProduct(catalog_, u"taken"_qs);
  SetImage(u"taken"_qs, Outside(Named(u"x"_qs)));
  const auto outside = FilesIn(outside_.path());
  const int clone = Clone();
  ASSERT_EQ(clone, next);
  const auto imageOf = [&](const QString& code) {
    return One(u"Immagine"_qs, u"Prodotti"_qs, u"IDCatalogo=? AND CodiceProdotto=?"_qs, {clone, code})
        .toString();
  };
  EXPECT_EQ(imageOf(rewritten), AppFile(u"Images/%1-A%1-2.jpg"_qs.arg(next)));
  for (const QString& code : {rewritten, same})
    EXPECT_EQ(ContentOf(imageOf(code)), "picture" + Named(code).toUtf8());
  EXPECT_EQ(ContentOf(imageOf(u"taken"_qs)), "x");
  DeleteCatalog(clone, connection_);
  EXPECT_TRUE(QFile::exists(AppFile(u"Images/"_qs + Named(u"plain"_qs))));
  DeleteCatalog(catalog_, connection_);
  EXPECT_EQ(Differences(FilesIn(outside_.path()), outside), QStringList());
}

TEST_F(CloneTest, AFailureOrAStopLeavesNeitherRowsNorFiles) {
  for (int i = 0; i < 5; ++i) AddWholeProduct(u"%1 è"_qs.arg(i));
  Put(Named(u"4 è"_qs), QByteArray(300'000, 'x'));
  const QStringList rows = RowsOf(catalog_);
  const auto files = FilesIn(AppFile(u"Images"_qs));
  const auto asBefore = [&](const char* when) {
    EXPECT_EQ(Differences(FilesIn(AppFile(u"Images"_qs)), files), QStringList()) << when;
    EXPECT_EQ(RowsOf(catalog_), rows) << when;
    EXPECT_EQ(Count(u"Cataloghi"_qs), 1) << when;
    EXPECT_FALSE(connection_.InTransaction()) << when;
  };
  EXPECT_THROW(
      CatalogClone(catalog_, connection_)
          .DuplicaCatalogo({}, [](qint64 done, qint64 total, const QString&) { return done < total - 2; }),
      Stopped);
  asBefore("stopped");
  Refuse(u"INSERT ON Immagini"_qs);
  EXPECT_EQ(FailureOf([&] { Clone(); }), u"refused");
  asBefore("refused");
  connection_.Execute(u"DROP TRIGGER Refuse"_qs);
  {
    const FullDisk full(290'000);
    EXPECT_NE(FailureOf([&] { Clone(); }), QString());
  }
  asBefore("full disk");
  // A commit that fails, of a clone and of a deletion.
  connection_.Execute(
      u"CREATE TEMP TABLE Late (i INTEGER REFERENCES Missing (i) DEFERRABLE INITIALLY DEFERRED)"_qs);
  connection_.Execute(u"CREATE TEMP TABLE Missing (i INTEGER PRIMARY KEY)"_qs);
  for (const QString& event : {u"UPDATE OF Immagine ON main.Immagini"_qs, u"DELETE ON main.Cataloghi"_qs})
    connection_.Execute(
        u"CREATE TEMP TRIGGER \"Behind %1\" AFTER %1 BEGIN INSERT INTO Late VALUES (1); END"_qs.arg(event));
  const QString refused = u"The row refers to a catalog or a product that no longer exists."_qs;
  EXPECT_EQ(FailureOf([&] { Clone(); }), refused);
  EXPECT_EQ(FailureOf([&] { DeleteCatalog(catalog_, connection_); }), refused);
  asBefore("commit");
  connection_.Open(ConnectionTextFor(Path()));
  EXPECT_EQ(RowsOf(Clone()), rows) << "and it can be done again";
}

TEST_F(CloneTest, ADeletedCatalogTakesWhatIsItsOwnAndNothingElse) {
  AddWholeProduct(OddCode);
  AddProduct(catalog_, u"bare"_qs);
  AddValue(2, u"x"_qs);
  const int clone = Clone();
  connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE IDCatalogo=? AND CodiceProdotto='bare'"_qs,
                      {AppFile(u"Images/"_qs + Named(OddCode)), clone});
  // The clone still needs the logo, and by now a picture of the source.
  DeleteCatalog(catalog_, connection_);
  EXPECT_EQ(Findings(), QStringList()) << "the clone misses nothing, and nothing else is left";
  connection_.Execute(u"UPDATE Cataloghi SET Logo=?"_qs, {Outside(u"logo.jpg"_qs)});
  WriteFileSafely(Outside(u"logo.jpg"_qs), "the user's own");
  DeleteCatalog(clone, connection_);
  EXPECT_EQ(ContentOf(Outside(u"logo.jpg"_qs)), "the user's own") << "a logo that was never copied";
  EXPECT_EQ(FilesIn(AppFile(u"Images"_qs)).size(), 1U) << "the former logo, which no row names";
  for (const QString& table : {u"Cataloghi"_qs, u"Prodotti"_qs, u"Filtri"_qs, u"Immagini"_qs,
                               u"SchedeTecniche"_qs, u"CExtension"_qs, u"PExtension"_qs})
    EXPECT_EQ(Count(table), 0) << table;
}

// The disk fails in the last sync of a commit, when what was written is done already.
TEST_F(CloneTest, WhatIsToldAfterAFailingLastSyncAgreesWithRowsAndFiles) {
  AddWholeProduct(OddCode);
  const QStringList rows = RowsOf(catalog_);
  connection_.Close();
  const FaultVfs vfs;
  connection_.Open(ConnectionTextFor(Path()));
  FaultVfs::FailBehindDeletion();
  CatalogClone cloning(catalog_, connection_);
  const int clone = cloning.DuplicaCatalogo({}, {});
  EXPECT_EQ(RowsOf(clone), rows);
  EXPECT_TRUE(cloning.Warnings().value(0).startsWith(u"The copy is made, but the disk reported an error"));
  EXPECT_EQ(Findings(), QStringList()) << "the copy has its pictures";
  const auto files = FilesIn(AppFile(u"Images"_qs));
  FaultVfs::FailBehindDeletion();
  EXPECT_TRUE(
      FailureOf([&] { DeleteCatalog(clone, connection_); }).startsWith(u"The catalog is deleted, but"));
  EXPECT_EQ(RowsOf(clone), QStringList());
  EXPECT_EQ(Differences(FilesIn(AppFile(u"Images"_qs)), files), QStringList());
  connection_.Close();
}

TEST_F(CloneTest, PicturesThatCannotBeReadAreNamedAndMissingOnesAreNot) {
  const QString pipe = Outside(u"pipe.jpg"_qs);
  ::mkfifo(QFile::encodeName(pipe).constData(), 0600);
  QStringList expected;
  for (const QString& path : {pipe, outside_.path(), Path(), Outside(u"gone.jpg"_qs)}) {
    AddProduct(catalog_, path);
    SetImage(path, path);
    expected += u"The picture %1 cannot be read, and the copy lacks it"_qs.arg(path);
  }
  expected.removeLast();
  const auto files = FilesIn(AppFile(u"Images"_qs));
  CatalogClone cloning(catalog_, connection_);
  cloning.DuplicaCatalogo({}, {});
  QStringList told = cloning.Warnings();
  for (QStringList* list : {&told, &expected}) list->sort();
  EXPECT_EQ(told, expected);
  EXPECT_EQ(Differences(FilesIn(AppFile(u"Images"_qs)), files), QStringList());
}
