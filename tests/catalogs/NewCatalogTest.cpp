// What a new catalog may be called, and how its row and logo are stored.
#include "base/Helpers.h"
#include "catalogs/NewCatalog.h"
#include "images/ImagePipeline.h"
#include "support/CatalogFixture.h"
#include "support/FullDisk.h"
#include "support/Print.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

class NewCatalogTest : public CatalogFixture {
 protected:
  QString Write(const QString& name, const QByteArray& bytes) const {
    QString path = Outside(name);
    WriteFileSafely(path, bytes);
    return path;
  }
  NewCatalog Minimal() const {
    NewCatalog catalog;
    catalog.NomeCatalogo = u"a"_qs;
    catalog.valueNames = QStringList{{}, {}, {}};
    catalog.filterNames = QStringList{u"f"_qs, {}, {}, {}, {}};
    return catalog;
  }
  // With a logo that is on the disk.
  NewCatalog WithLogo() const {
    NewCatalog catalog = Minimal();
    catalog.LogoPath = Write(u"l'ogo.jpg"_qs, logo_);
    catalog.logoSize = {40, 30};
    catalog.company[u"Logo"_qs] = catalog.LogoPath;
    return catalog;
  }
  QString LogoFile(const NewCatalog& catalog) const {
    return AppFile(u"Images/%1-Logo.jpg"_qs.arg(catalog.IDCatalogo));
  }
  // Columns of the one row, "-" for Null.
  QStringList Row(const QStringList& columns) {
    Rows rows(connection_, u"SELECT "_qs + columns.join(u',') + u" FROM Cataloghi"_qs);
    EXPECT_TRUE(rows.Next());
    QStringList texts;
    for (int i = 0; i < columns.size(); ++i)
      texts += rows.Value(i).isNull() ? u"-"_qs : rows.Value(i).toString();
    EXPECT_FALSE(rows.Next()) << "one row, and no more";
    return texts;
  }
  const QStringList logoColumns_{u"Logo"_qs, u"Width"_qs, u"Height"_qs};
  const QByteArray logo_ = MakeJpeg(MakePhoto({40, 30}, 1));
};

}  // namespace

TEST_F(NewCatalogTest, TheStoredFormOfANameHasFiftyCharacters) {
  const QString emoji = u"\U0001F600"_qs;
  const std::vector<std::pair<QString, QString>> cases{
      {QString(13, u'.'), QString(12, u'.')},
      {QString(12, u'.') + u"ab"_qs, QString(12, u'.') + u"ab"_qs},
      {QString(12, u'.') + u"abc"_qs, QString(12, u'.') + u"ab"_qs},
      {QString(51, u'x'), QString(50, u'x')},
      {QString(26, u'\\'), QString(25, u'\\')},
      {QString(48, u'x') + emoji, QString(48, u'x') + emoji},
      {QString(49, u'x') + emoji, QString(49, u'x')},
      {QString(49, u'x') + emoji[0], QString(49, u'x')},
      {{}, {}},
  };
  for (const auto& [typed, kept] : cases) EXPECT_EQ(FitEscapedName(typed), kept) << typed;
}

TEST_F(NewCatalogTest, TheCaptionCutsALongDescriptionToItsBeginning) {
  const std::vector<std::pair<QVariant, QString>> cases{
      {NullValue(), u"Nome"_qs},
      {QString(u""_qs), u"Nome - "_qs},
      {QString(99, u'x'), u"Nome - "_qs + QString(99, u'x')},
      {QString(100, u'x'), u"Nome - xxxxxxxxxx..."_qs},
  };
  for (const auto& [description, caption] : cases)
    EXPECT_EQ(CatalogCaption(u"Nome"_qs, description), caption);
}

TEST_F(NewCatalogTest, TheSamplesNeverOfferTheirCompany) {
  const QStringList columns{u"Azienda"_qs, u"cap"_qs, u"Fax"_qs};
  EXPECT_TRUE(OfferedCompany(connection_, columns).isEmpty());
  connection_.Execute(u"INSERT INTO Cataloghi (IDCatalogo,Azienda) VALUES (109,'sample'),(110,'sample')"_qs);
  EXPECT_TRUE(OfferedCompany(connection_, columns).isEmpty());
  connection_.Execute(
      u"INSERT INTO Cataloghi (IDCatalogo,Azienda,CAP) VALUES (7,'older','1'),(8,'O''Neill','2')"_qs);
  const QMap<QString, QString> expected{
      {u"Azienda"_qs, u"O'Neill"_qs}, {u"cap"_qs, u"2"_qs}, {u"Fax"_qs, u""_qs}};
  EXPECT_EQ(OfferedCompany(connection_, columns), expected);
}

TEST_F(NewCatalogTest, ALogoIsMeasuredUprightAndMustBeWhole) {
  JpegForm turned;
  turned.exif = MakeExif(6);
  EXPECT_EQ(MeasureWholeImage(Write(u"t.jpg"_qs, MakeJpeg(MakePhoto({40, 30}, 1), turned))), QSize(30, 40));
  for (const QByteArray& bytes :
       {logo_.left(logo_.size() / 2), QByteArray("\x89PNG\r\n\x1a\n"), QByteArray()}) {
    try {
      MeasureWholeImage(Write(u"bad.jpg"_qs, bytes));
      ADD_FAILURE();
    } catch (const Error& error) {
      EXPECT_TRUE(error.Description().contains(u"bad.jpg")) << error.Description();
    }
  }
}

TEST_F(NewCatalogTest, NamesAreStoredEscapedWithTheirGapsAndTextsAsTheyAre) {
  NewCatalog catalog = Minimal();
  catalog.NomeCatalogo = u"L'anno \"nuovo\" [100%] \\ ./*:#&-%$"_qs;
  catalog.valueNames = QStringList{{}, u"a.b]'"_qs, {}};
  catalog.filterNames = QStringList{u"x\\y"_qs, {}, {}, u"/*:#&-%$"_qs, {}};
  catalog.company = {{u"Citta"_qs, u"L'Aquila"_qs}, {u"url"_qs, {}}, {u"Logo"_qs, {}}};
  StoreCatalog(connection_, catalog);
  EXPECT_EQ(Row({u"NomeCatalogo"_qs, u"Descrizione"_qs, u"NomeValore1"_qs, u"NomeValore2"_qs}),
            (QStringList{catalog.NomeCatalogo, u"-"_qs, u"-"_qs, u"a\\046b]'"_qs}));
  EXPECT_EQ(Row({u"NomeFiltro1"_qs, u"NomeFiltro2"_qs, u"NomeFiltro4"_qs, u"NomeFiltro5"_qs}),
            (QStringList{u"x\\\\y"_qs, u"-"_qs, u"\\047\\042\\058\\035\\038\\045\\037\\036"_qs, u"-"_qs}));
  EXPECT_EQ(Row({u"IDCatalogo"_qs, u"Citta"_qs, u"URL"_qs, u"Logo"_qs, u"Width"_qs}),
            (QStringList{QString::number(catalog.IDCatalogo), u"L'Aquila"_qs, u"-"_qs, u"-"_qs, u"-"_qs}));
  EXPECT_TRUE(FilesIn(AppFile(u"Images"_qs)).empty());
}

TEST_F(NewCatalogTest, ANewCatalogTakesNobodysRow) {
  connection_.Execute(u"INSERT INTO Cataloghi (IDCatalogo,NomeCatalogo) VALUES (0,'zero')"_qs);
  NewCatalog catalog = Minimal();
  StoreCatalog(connection_, catalog);
  EXPECT_EQ(Count(u"Cataloghi"_qs), 2);
  EXPECT_NE(catalog.IDCatalogo, 0);
}

TEST_F(NewCatalogTest, TheLogoIsCopiedAsItIsUnlessItVanished) {
  NewCatalog catalog = WithLogo();
  StoreCatalog(connection_, catalog);
  EXPECT_EQ(Row(logoColumns_), (QStringList{LogoFile(catalog), u"40"_qs, u"30"_qs}));
  EXPECT_EQ(ContentOf(LogoFile(catalog)), logo_);
  EXPECT_EQ(ContentOf(catalog.LogoPath), logo_);

  connection_.Execute(u"DELETE FROM Cataloghi"_qs);
  catalog = WithLogo();
  QFile::remove(catalog.LogoPath);
  StoreCatalog(connection_, catalog);
  EXPECT_EQ(Row(logoColumns_), (QStringList{catalog.LogoPath, u"-"_qs, u"-"_qs}));
}

TEST_F(NewCatalogTest, AFullDiskLeavesTheRowAndNoHalfLogoAndAnotherAttemptGoesOnWithIt) {
  NewCatalog catalog = WithLogo();
  const QByteArray large = MakeJpeg(MakePhoto({900, 700}, 2));
  WriteFileSafely(catalog.LogoPath, large);
  ASSERT_GT(large.size(), 100'000);
  {
    const FullDisk full(100'000);
    EXPECT_NE(FailureOf([&] { StoreCatalog(connection_, catalog); }), QString());
  }
  EXPECT_EQ(Row(logoColumns_), (QStringList{catalog.LogoPath, u"-"_qs, u"-"_qs}));
  EXPECT_TRUE(FilesIn(AppFile(u"Images"_qs)).empty());
  EXPECT_FALSE(connection_.InTransaction());

  const int first = catalog.IDCatalogo;
  catalog.filterNames = QStringList{{}, u"g"_qs, {}, {}, {}};
  StoreCatalog(connection_, catalog);
  EXPECT_EQ(catalog.IDCatalogo, first);
  EXPECT_EQ(Row({u"NomeFiltro1"_qs, u"NomeFiltro2"_qs, u"Logo"_qs}),
            (QStringList{u"-"_qs, u"g"_qs, LogoFile(catalog)}));

  // Somebody deletes the row before the next attempt: it is made anew.
  connection_.Execute(u"DELETE FROM Cataloghi"_qs);
  StoreCatalog(connection_, catalog);
  EXPECT_NE(catalog.IDCatalogo, first);
  EXPECT_EQ(Row(logoColumns_).value(0), LogoFile(catalog));
}
