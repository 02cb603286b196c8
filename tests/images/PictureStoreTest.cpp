// Nothing outside of "Images" is written or removed, whatever a row says; and rows of a folder that was
// copied or moved find the pictures that came along.
#include "images/PictureStore.h"

#include "images/PictureFolder.h"
#include "images/PicturePaths.h"
#include "store/SampleData.h"
#include "support/CatalogFixture.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

class PictureStoreTest : public CatalogFixture {
 protected:
  PictureStoreTest() {
    QDir(outside_.path()).mkdir(u"Images"_qs);
    for (const QString& name : {u"a.jpg"_qs, u"ta.jpg"_qs, u"Images/b.jpg"_qs})
      WriteFileSafely(Outside(name), "the user's own");
    QFile::link(outside_.path(), PicturePath(u"link"_qs));
    QFile::link(PicturePath({}), Outside(u"into"_qs));
    QFile::link(Outside(u"a.jpg"_qs), PicturePath(u"linked.jpg"_qs));
  }

  void Name(const QString& code, const QString& path) {
    if (Count(u"Cataloghi"_qs) == 0) AddCatalog(u"Catalog"_qs);
    AddProduct(1, code);
    SetImage(code, path);
  }
  QString Named(const QString& code) {
    return One(u"Immagine"_qs, u"Prodotti"_qs, u"CodiceProdotto=?"_qs, {code}).toString();
  }
  // A change that is stored, or taken back.
  QString Change(const std::function<void(PictureChange&)>& step, bool stored = true) {
    return FailureOf([&] {
      Transaction transaction(connection_);
      PictureChange change(transaction, connection_);
      step(change);
      if (stored) transaction.Commit();
    });
  }
  static QString Put(const QString& name) {
    WriteFileSafely(PicturePath(name), "picture");
    return PicturePath(name);
  }
};

}  // namespace

TEST_F(PictureStoreTest, OnlyWhatLiesInImagesIsWrittenOrRemoved) {
  const QString inside = AppPath() + u"/Images/"_qs;
  const std::vector<std::pair<QString, QString>> cases{
      {inside + u"x.jpg"_qs, u"x.jpg"_qs},
      {AppPath() + u"//Images/../Images/x.jpg"_qs, u"x.jpg"_qs},
      {Outside(u"into/x.jpg"_qs), u"x.jpg"_qs},
      {Outside(u"a.jpg"_qs), QString()},
      {inside + u"../Catalog.db"_qs, QString()},
      {inside + u"link/a.jpg"_qs, QString()},
      {inside + u".."_qs, QString()},
      {inside, QString()},
      {AppPath() + u"/Images2/x.jpg"_qs, QString()},
      {u"x.jpg"_qs, QString()},
      {QString(), QString()}};
  const auto outside = FilesIn(outside_.path());
  for (const auto& [path, name] : cases) {
    EXPECT_EQ(PictureFolder().NameOf(path), name) << path;
    Put(u"x.jpg"_qs);
    Put(u"tx.jpg"_qs);
    const PreparedPicture picture{"new", "new", {}};
    const auto take = [&, to = path](PictureChange& change) { change.TakeMain({}, to, picture); };
    EXPECT_EQ(Change(take).isEmpty(), !name.isEmpty()) << path;
    Change([to = path](PictureChange& change) { change.Retire({{to}, {to}}); });
    EXPECT_EQ(QFile::exists(PicturePath(u"x.jpg"_qs)), name.isEmpty()) << path;
    EXPECT_EQ(QFile::exists(PicturePath(u"tx.jpg"_qs)), name.isEmpty()) << path;
  }
  // A link in the folder is replaced and removed, not what it leads to.
  QFile::link(Outside(u"new.jpg"_qs), PicturePath(u"dangling.jpg"_qs));
  EXPECT_EQ(Change([&](PictureChange& change) {
              change.Take({}, PicturePath(u"linked.jpg"_qs), {"new", {}, {}});
              change.Take(PicturePath(u"linked.jpg"_qs), PicturePath(u"dangling.jpg"_qs));
              EXPECT_EQ(
                  change.CopyStaged(PictureUse::Logo, PicturePath(u"linked.jpg"_qs), PicturePath(u"link"_qs)),
                  StagedCopy::Made);
            }),
            QString());
  EXPECT_EQ(ContentOf(PicturePath(u"link"_qs)), "the user's own");
  EXPECT_EQ(ContentOf(PicturePath(u"linked.jpg"_qs)), "new");
  EXPECT_EQ(Differences(FilesIn(outside_.path()), outside), QStringList());
  EXPECT_TRUE(QFile::exists(Path()));
}

TEST_F(PictureStoreTest, AFileThatAnyRowNamesStaysHoweverItIsWritten) {
  QFile::remove(PicturePath(u"linked.jpg"_qs));
  for (const QString& name : {u"1.jpg"_qs, u"2.jpg"_qs, u"t2.jpg"_qs, u"3.jpg"_qs, u"t3.jpg"_qs}) Put(name);
  Name(u"a"_qs, Outside(u"into/1.jpg"_qs));
  Name(u"b"_qs, AppPath() + u"/Images/./t2.jpg"_qs);
  Name(u"c"_qs, Outside(u"3.jpg"_qs));
  connection_.Execute(u"UPDATE Cataloghi SET Logo=?"_qs, {PicturePath(u"T3.jpg"_qs)});
  const QStringList files{PicturePath(u"1.jpg"_qs), PicturePath(u"2.jpg"_qs), PicturePath(u"3.jpg"_qs)};
  const auto retire = [&](PictureChange& change) { change.Retire({files, {}}); };
  const QString before = PictureNames();
  Change(retire, false);
  EXPECT_EQ(PictureNames(), before) << "what is taken back gives nothing up";
  Change(retire);
  EXPECT_EQ(PictureNames(), u"1.jpg t2.jpg");
}

// What a change takes in goes again with its rows: not what a row names, nor the user's own file in its
// place.
TEST_F(PictureStoreTest, WhatIsTakenBackLeavesNothing) {
  QFile::remove(PicturePath(u"linked.jpg"_qs));
  for (const QString& name : {u"1.jpg"_qs, u"t1.jpg"_qs, u"own.jpg"_qs, u"named.jpg"_qs}) Put(name);
  Name(u"a"_qs, PicturePath(u"named.jpg"_qs));
  const QString outside = Outside(u"Images/b.jpg"_qs);
  const auto steps = [&](PictureChange& change) {
    change.TakeMain(outside, PicturePath(u"2.jpg"_qs), {{}, "thumbnail", {}});
    change.TakeMain(PicturePath(u"own.jpg"_qs), PicturePath(u"own.jpg"_qs), {"new", {}, {}});
    change.Take(outside, PicturePath(u"named.jpg"_qs));
    change.CopyMain(PicturePath(u"1.jpg"_qs), PicturePath(u"3.jpg"_qs));
    change.CopyStaged(PictureUse::Main, PicturePath(u"1.jpg"_qs), PicturePath(u"4.jpg"_qs));
    change.TakeMain({}, PicturePath(u"1.jpg"_qs), {"new", {}, {}});
    EXPECT_TRUE(
        PictureNames().startsWith(u"1.jpg 1.jpg.staged 2.jpg 3.jpg 4.jpg named.jpg named.jpg.staged"_qs));
    for (const QString& kept : {u"1.jpg"_qs, u"t1.jpg"_qs, u"named.jpg"_qs, u"own.jpg"_qs})
      EXPECT_EQ(ContentOf(PicturePath(kept)), "picture") << kept << " is replaced before the rows are stored";
  };
  EXPECT_EQ(Change(steps, false), QString());
  EXPECT_EQ(PictureNames(), u"1.jpg named.jpg own.jpg t1.jpg");
  EXPECT_EQ(ContentOf(PicturePath(u"own.jpg"_qs)), "picture");
  EXPECT_EQ(Change(steps), QString());
  EXPECT_EQ(PictureNames(), u"1.jpg 2.jpg 3.jpg 4.jpg named.jpg own.jpg t2.jpg t3.jpg t4.jpg");
  EXPECT_EQ(ContentOf(PicturePath(u"own.jpg"_qs)), "new");
}

TEST_F(PictureStoreTest, AFileThatCannotBeReplacedIsToldAndNothingIsGivenUp) {
  for (const QString& name : {u"1.jpg"_qs, u"2.jpg"_qs}) Put(name);
  EXPECT_NE(FailureOf([&] {
              Transaction transaction(connection_);
              transaction.OnCommit([] {
                QFile::remove(PicturePath(u"1.jpg"_qs));
                QDir().mkpath(PicturePath(u"1.jpg/folder"_qs));
              });
              PictureChange change(transaction, connection_);
              change.CopyMain(PicturePath(u"2.jpg"_qs), PicturePath(u"1.jpg"_qs));
              change.Retire({{PicturePath(u"2.jpg"_qs)}, {}});
              transaction.Commit();
              change.RequireReplaced();
            }),
            QString());
  QDir(PicturePath(u"1.jpg"_qs)).removeRecursively();
  EXPECT_EQ(PictureNames(), u"2.jpg linked.jpg");
}

// A kill came between the commit and the files.
TEST_F(PictureStoreTest, WhatWasToTakeAPicturesPlaceTakesItAtTheNextOpening) {
  const QByteArray wide = MakeJpeg(MakePhoto({40, 30}, 1));
  const QByteArray tall = MakeJpeg(MakePhoto({30, 40}, 1));
  for (const QString& name : {u"1.jpg"_qs, u"2.jpg"_qs, u"3.jpg"_qs}) {
    WriteFileSafely(PicturePath(name), wide);
    WriteFileSafely(PicturePath(name + u".staged"_qs), name == u"3.jpg" ? wide : tall);
    Put(u't' + name);
    WriteFileSafely(PicturePath(u't' + name + u".staged"_qs), "new");
    Name(name, PicturePath(name));
  }
  // The second one's row was not stored; of the third one both have the size.
  connection_.Execute(u"UPDATE Prodotti SET Width=iif(CodiceProdotto='1.jpg',30,40)"_qs);
  connection_.Execute(u"UPDATE Prodotti SET Height=70-Width"_qs);
  const QString logo = PicturePath(u"9-Logo.jpg"_qs);
  WriteFileSafely(logo, wide);
  WriteFileSafely(logo + u".staged"_qs, tall);
  connection_.Execute(u"INSERT INTO Cataloghi (Logo,Width,Height) VALUES (?,30,40)"_qs, {logo});
  FitPicturePaths(connection_);
  EXPECT_EQ(ContentOf(logo), tall);
  EXPECT_EQ(
      PictureNames(),
      u"1.jpg 2.jpg 2.jpg.staged 3.jpg 3.jpg.staged 9-Logo.jpg linked.jpg t1.jpg t2.jpg t2.jpg.staged t3.jpg "
      "t3.jpg.staged");
  EXPECT_EQ(ContentOf(PicturePath(u"1.jpg"_qs)), tall);
  EXPECT_EQ(ContentOf(PicturePath(u"t1.jpg"_qs)), "new");
}

TEST_F(PictureStoreTest, RowsOfAnotherFolderFindThePicturesThatCameAlong) {
  for (const QString& name : {u"1-a.jpg"_qs, u"b.jpg"_qs, u"7.jpg"_qs, u"own.jpg"_qs, u"1-Logo.jpg"_qs})
    Put(name);
  const std::vector<std::tuple<QString, QString, QString>> cases{
      {u"moved"_qs, u"/gone/Images/1-a.jpg"_qs, PicturePath(u"1-a.jpg"_qs)},
      {u"copied"_qs, Outside(u"Images/b.jpg"_qs), PicturePath(u"b.jpg"_qs)},
      {u"carried"_qs, u"C:\\Vorlina\\images\\1-a.jpg"_qs, PicturePath(u"1-a.jpg"_qs)},
      {u"not here"_qs, u"/gone/Images/1-z.jpg"_qs, u"/gone/Images/1-z.jpg"_qs},
      {u"linked"_qs, Outside(u"into/b.jpg"_qs), Outside(u"into/b.jpg"_qs)},
      {u"named by another"_qs, Outside(u"7.jpg"_qs), Outside(u"7.jpg"_qs)},
      {u"laid there"_qs, Outside(u"own.jpg"_qs), PicturePath(u"own.jpg"_qs)},
      {u"sample"_qs, SampleDataRoot + u"/Images/1-s.jpg"_qs, PicturePath(u"1-s.jpg"_qs)}};
  for (const auto& [code, path, target] : cases) Name(code, path);
  connection_.Execute(
      u"INSERT INTO Immagini (IDImmagine,IDCatalogo,CodiceProdotto,Immagine) VALUES (7,1,?,?)"_qs,
      {u"moved"_qs, u"/gone/Images/7.jpg"_qs});
  connection_.Execute(u"UPDATE Cataloghi SET Logo='/gone/Images/1-Logo.jpg'"_qs);
  EXPECT_EQ(FitPicturePaths(connection_), 7);
  for (const auto& [code, path, target] : cases) EXPECT_EQ(Named(code), target) << code;
  EXPECT_EQ(One(u"Immagine"_qs, u"Immagini"_qs), PicturePath(u"7.jpg"_qs));
  EXPECT_EQ(One(u"Logo"_qs, u"Cataloghi"_qs), PicturePath(u"1-Logo.jpg"_qs));
  const qint64 mark = connection_.ChangeMark();
  EXPECT_EQ(FitPicturePaths(connection_), 0);
  EXPECT_EQ(connection_.ChangeMark(), mark) << "what is in order, or cannot be, is not written";
}
