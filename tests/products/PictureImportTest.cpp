// The import of a folder of pictures.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QImage>

#include "products/PictureImport.h"
#include "support/CatalogFixture.h"
#include "support/FaultVfs.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

class PictureImportTest : public CatalogFixture {
 protected:
  PictureImportTest() : catalog_(AddCatalog(u"Catalog"_qs)) {}

  void Put(const QString& name) const { WriteFileSafely(Outside(name), photo_); }
  PictureImport Import() { return PictureImport(outside_.path(), catalog_, connection_); }
  QString RunToItsEnd() {
    return FailureOf([&] { EXPECT_TRUE(Import().Run({})); });
  }
  QStringList Descriptions() {
    const QString ordered = u"(SELECT * FROM Prodotti ORDER BY IDProdotto)"_qs;
    return One(u"group_concat(CodiceProdotto||' '||ifnull(Descrizione,''),'|')"_qs, ordered)
        .toString()
        .split(u'|');
  }
  QString Named(const QString& code) const { return QString::number(catalog_) + u'-' + code + u".jpg"_qs; }

  const QByteArray photo_ = MakeJpeg(MakePhoto({1000, 750}, 1), {.exif = MakeExif(6)});
  int catalog_;
};

}  // namespace

TEST_F(PictureImportTest, EveryPictureBecomesAProduct) {
  for (const QString& name : {u"10 porta.JPG"_qs, u"2 porta.jpg"_qs, u"L'anta \"blu\".Jpg"_qs,
                              u"ドア; DROP TABLE--.jpg"_qs, u"🚪 50%_.jpg"_qs, u"a.b\\c.jpg"_qs})
    Put(name);
  EXPECT_EQ(RunToItsEnd(), QString());
  EXPECT_EQ(Descriptions(), (QStringList{u"1 🚪 50%_"_qs, u"2 2 porta"_qs, u"3 10 porta"_qs, u"4 a.b\\c"_qs,
                                         u"5 L'anta \"blu\""_qs, u"6 ドア; DROP TABLE--"_qs}));
  EXPECT_EQ(Findings(), QStringList());
  EXPECT_EQ(One(u"Width || 'x' || Height"_qs, u"Prodotti"_qs, u"CodiceProdotto='4'"_qs), u"600x800"_qs);
  EXPECT_EQ(QImage(AppFile(u"Images/t"_qs + Named(u"4"_qs))).size(), QSize(150, 200));
  EXPECT_EQ(One(u"COUNT(*)"_qs, u"Prodotti"_qs, u"OrdineTemp IS NULL AND Pubblica"_qs), 6);
  EXPECT_EQ(One(u"COUNT(*)"_qs, u"PExtension JOIN Extensions USING (IDExtension)"_qs,
                u"ExtensionName='ImmagineModificata' AND Valore='1'"_qs),
            6);
}

TEST_F(PictureImportTest, CodesAreTheFreeNumbersAboveTheCount) {
  for (const QString& code : {u"1"_qs, u"2"_qs, u"4"_qs, u"6"_qs}) AddProduct(catalog_, code);
  for (const QString& name : {u"a.jpg"_qs, u"b.jpg"_qs}) Put(name);
  EXPECT_EQ(RunToItsEnd(), QString());
  EXPECT_EQ(Descriptions().mid(4), (QStringList{u"5 a"_qs, u"7 b"_qs})) << "3 lies below, 6 is taken";
  EXPECT_EQ(ProductStore(catalog_ + 1, connection_).NuovoCodice(), u"1");
  // A product that was given another code since may still have its picture under the number.
  const QString kept = AppFile(u"Images/"_qs + Named(u"8"_qs));
  SetImage(u"1"_qs, kept);
  WriteFileSafely(kept, "kept");
  EXPECT_EQ(ProductStore(catalog_, connection_).NuovoCodice(), u"8");
  // A copy of the database may have a product that is not there.
  const QString former = AppFile(u"Images/"_qs + Named(u"10"_qs));
  WriteFileSafely(former, "kept");
  EXPECT_EQ(RunToItsEnd(), QString());
  EXPECT_EQ(Descriptions().mid(6), (QStringList{u"9 a"_qs, u"11 b"_qs}));
  for (const QString& file : {kept, former}) EXPECT_EQ(ContentOf(file), "kept");
}

TEST_F(PictureImportTest, AStopTakesEffectBeforeTheNextPictureWhicheverItIs) {
  for (const QString& name : {u"a.jpg"_qs, u"b.jpg"_qs, u"c.jpg"_qs}) Put(name);
  for (int most = 0, all = 0; most <= 3; ++most) {
    PictureImport import = Import();
    EXPECT_EQ(import.Run([=](qint64 done, qint64, const QString&) { return done < most; }), most == 3);
    EXPECT_EQ(import.Imported(), most);
    EXPECT_EQ(Count(u"Prodotti"_qs), all += most);
    EXPECT_EQ(PictureNames().count(u".jpg"_qs), 2 * all);
    EXPECT_EQ(Findings(), QStringList());
  }
}

// A window is worked with while one picture takes its time.
TEST_F(PictureImportTest, WhatIsToBeDoneMeanwhileFindsNoTransaction) {
  WriteFileSafely(Outside(u"large.jpg"_qs),
                  MakeJpeg(MakePhoto({3000, 2000}, 1), {.progressive = true, .across = 1, .down = 1}));
  int turns = 0;
  EXPECT_TRUE(Import().Run({}, [&] {
    ++turns;
    EXPECT_FALSE(connection_.InTransaction());
  }));
  EXPECT_GT(turns, 0);
}

TEST_F(PictureImportTest, ABadFileEndsTheImportThere) {
  const std::pair<const char*, std::function<void(const QString&)>> cases[] = {
      {"empty", [](const QString& path) { WriteFileSafely(path, QByteArray()); }},
      {"cut", [this](const QString& path) { WriteFileSafely(path, photo_.chopped(500)); }},
      {"a pipe by now", [](const QString& path) {
         QFile::remove(path);
         ::mkfifo(QFile::encodeName(path).constData(), 0600);
       }}};
  int before = 0;
  for (const auto& [name, spoil] : cases) {
    for (const QString& file : {u"a.jpg"_qs, u"b.jpg"_qs, u"c.jpg"_qs}) Put(file);
    PictureImport import = Import();
    spoil(Outside(u"b.jpg"_qs));
    const QString failure = FailureOf([&] { import.Run({}); });
    EXPECT_TRUE(failure.contains(u"b.jpg cannot be read: "_qs)) << name << ": " << failure;
    EXPECT_EQ(import.Imported(), 1) << name;
    EXPECT_TRUE(import.Failed() == u"b.jpg" && import.IsFileToBlame()) << name;
    EXPECT_EQ(Count(u"Prodotti"_qs), ++before) << name;
    EXPECT_EQ(Findings(), QStringList()) << name;
    QFile::remove(Outside(u"b.jpg"_qs));
  }
}

TEST_F(PictureImportTest, WhatCannotBeWrittenLeavesNeitherRowNorPicture) {
  for (const QString& name : {u"a.jpg"_qs, u"b.jpg"_qs}) Put(name);
  Refuse(u"INSERT ON PExtension WHEN new.CodiceProdotto='2'"_qs);
  PictureImport import = Import();
  EXPECT_TRUE(FailureOf([&] { import.Run({}); }).contains(u"refused"_qs));
  EXPECT_TRUE(import.Failed() == u"b.jpg" && !import.IsFileToBlame());
  EXPECT_EQ(Descriptions(), QStringList{u"1 a"_qs}) << "row and mark belong together";
  EXPECT_EQ(Findings(), QStringList());
}

TEST_F(PictureImportTest, AProductThatIsThereAfterAFailingLastSyncCounts) {
  Put(u"a.jpg"_qs);
  connection_.Close();
  const FaultVfs vfs;
  connection_.Open(ConnectionTextFor(Path()));
  FaultVfs::FailBehindDeletion();
  PictureImport import = Import();
  EXPECT_NE(FailureOf([&] { import.Run({}); }), QString());
  EXPECT_EQ(import.Imported(), 1);
  EXPECT_EQ(Findings(), QStringList());
  connection_.Close();
}

TEST_F(PictureImportTest, WhatIsPassedOverIsListed) {
  for (const QString& name : {u"a.jpg"_qs, u".hidden.jpg"_qs, u"B.txt"_qs, u"c.JPEG"_qs}) Put(name);
  QDir(outside_.path()).mkdir(u"folder.jpg"_qs);
  QFile::link(Outside(u"nowhere"_qs), Outside(u"link.JPG"_qs));
  ::mkfifo(QFile::encodeName(Outside(u"pipe.jpg"_qs)).constData(), 0600);
  const QByteArray noText = QFile::encodeName(outside_.path()) + "/caff\xE8.jpg";
  ::close(::open(noText.constData(), O_CREAT | O_WRONLY, 0600));
  const PictureImport import = Import();
  EXPECT_EQ(import.Count(), 1);
  QStringList leftOut;
  for (const auto& [file, reason] : import.PassedOver()) leftOut += file + u": "_qs + reason;
  EXPECT_EQ(leftOut,
            (QStringList{u"B.txt: it is no 'jpg' image"_qs,
                         u"c.JPEG: the name does not end in .jpg: rename the file to import it"_qs,
                         u"caff\uFFFD.jpg: the name has characters that cannot be read: rename the "
                         "file to import it"_qs,
                         u"link.JPG: it is a link that leads to no file"_qs, u"pipe.jpg: it is no file"_qs}));
  ::unlink(noText.constData());  // by a name that no text could give
}
