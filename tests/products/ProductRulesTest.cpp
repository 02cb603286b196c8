// What a cell accepts, and what follows a changed code.
#include <unistd.h>

#include <memory>

#include "base/Helpers.h"
#include "catalogs/CatalogCheck.h"
#include "images/ImagePipeline.h"
#include "products/CellRules.h"
#include "products/CodeChange.h"
#include "products/FilterValues.h"
#include "products/ProductCode.h"
#include "store/RowErrors.h"
#include "store/Transaction.h"
#include "support/CatalogFixture.h"
#include "support/Print.h"

using namespace vorlina;

TEST(CellRules, RefuseInTheirOrder) {
  const QString empty = u"Insert a value for the product code"_qs;
  const QString fileName = u"\\ / : * \" ? < > | are invalid character in product code"_qs;
  const QString bar = u"| is an invalid character"_qs;
  struct Case {
    QString key;
    QVariant value;
    bool isFilter;
    QStringList refusals;
    QVariant stored;
  };
  const Case cases[] = {{u"Codice"_qs, QString(), false, {empty}, QString()},
                        {u"Codice"_qs, NullValue(), false, {empty}, NullValue()},
                        {u"Codice"_qs, u" a b \n"_qs, false, {}, u"a b"_qs},
                        {u"Codice"_qs, u"  "_qs, false, {empty}, QString()},
                        {u"Codice"_qs, u"a/b"_qs, false, {fileName}, u"a/b"_qs},
                        {u"codice"_qs, u"a|b"_qs, false, {fileName, bar}, u"a|b"_qs},
                        {u"Codice"_qs, u"O'Neil 50% 🚪"_qs, false, {}, u"O'Neil 50% 🚪"_qs},
                        {u"Codice"_qs, u" R'5 \n"_qs, false, {}, u"R'5"_qs},
                        {u"Codice"_qs, u"  "_qs, false, {empty}, QString()},
                        {u"Descrizione"_qs, u" a|b"_qs, false, {bar}, u" a|b"_qs},
                        {u"Descrizione"_qs, QString(), false, {}, QString()},
                        {u"Colore"_qs, QString(), true, {}, 0},
                        {u"Colore"_qs, NullValue(), true, {}, 0},
                        {u"Colore"_qs, 7, true, {}, 7}};
  SetLanguage(u"English"_qs);
  for (const Case& one : cases) {
    const CellVerdict verdict = CheckCell(one.key, one.value, one.isFilter);
    EXPECT_EQ(verdict.refusals, one.refusals) << one.key << ' ' << one.value.toString();
    EXPECT_EQ(verdict.value, one.stored) << one.key << ' ' << one.value.toString();
  }
  SetLanguage(u"Italian"_qs);
  EXPECT_EQ(CheckCell(u"Codice"_qs, u"|"_qs, false).refusals,
            (QStringList{u"I caratteri \\ / : * \" ? < > | non sono consentiti nel codice del prodotto"_qs,
                         u"Il carattere | non è consentito"_qs}));
}

namespace {

class CodeChangeTest : public CatalogFixture {
 protected:
  CodeChangeTest() {
    Fill("x", 3);
    connection_.Execute(
        u"INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica) VALUES (109,'È 0','Peso')"_qs);
  }
  // Gives a product another code, as the grid does when it writes the row.
  void Change(const QString& code, bool fails = false, const QString& former = u"È 0"_qs) {
    CodeChange change(109, former, code, connection_);
    Transaction transaction(connection_);
    connection_.Execute(u"UPDATE Prodotti SET CodiceProdotto=? WHERE CodiceProdotto=?"_qs, {code, former});
    change.CopyPictures();
    if (fails) return;
    transaction.Commit();
    change.Finish();
  }
  QStringList Findings() {
    QStringList all;
    for (const Finding& finding : CheckCatalogs(connection_))
      all += NameOf(finding.kind) + u' ' + finding.subject;
    return all;
  }
};

}  // namespace

TEST_F(CodeChangeTest, ThePicturesFollow) {
  const QByteArray picture = ContentOf(MainImagePath(109, u"È 0"_qs));
  Change(u"O'Neil"_qs);
  EXPECT_EQ(ContentOf(MainImagePath(109, u"O'Neil"_qs)), picture);
  EXPECT_EQ(One(u"Immagine"_qs, u"Prodotti"_qs, u"CodiceProdotto='O''Neil'"_qs),
            MainImagePath(109, u"O'Neil"_qs));
  EXPECT_FALSE(QFile::exists(MainImagePath(109, u"È 0"_qs)));
  EXPECT_EQ(One(u"COUNT(*)"_qs, u"SchedeTecniche"_qs, u"CodiceProdotto='O''Neil'"_qs), 1);
  EXPECT_EQ(Findings(), QStringList());
}

TEST_F(CodeChangeTest, AFailureTakesTheCopiesBack) {
  const auto files = FilesIn(AppFile(u"Images"_qs));
  Change(u"new"_qs, true);
  EXPECT_EQ(Differences(FilesIn(AppFile(u"Images"_qs)), files), QStringList());
  EXPECT_EQ(Findings(), QStringList());
}

TEST_F(CodeChangeTest, WhatIsNotTheProductsOwnKeepsItsName) {
  const QString image = u"UPDATE Prodotti SET Immagine=? WHERE CodiceProdotto=?"_qs;
  const QString shared = MainImagePath(109, u"È 0"_qs);
  connection_.Execute(image, {shared, u"È 1"_qs});
  Change(u"shared"_qs);
  EXPECT_TRUE(QFile::exists(shared)) << "another product shows it";
  connection_.Execute(u"UPDATE Prodotti SET CodiceProdotto='È 0' WHERE CodiceProdotto='shared'"_qs);
  WriteFileSafely(Outside(u"own.jpg"_qs), "the user's own");
  connection_.Execute(image, {Outside(u"own.jpg"_qs), u"È 0"_qs});
  Change(u"outside"_qs);
  EXPECT_EQ(One(u"Immagine"_qs, u"Prodotti"_qs, u"CodiceProdotto='outside'"_qs), Outside(u"own.jpg"_qs));
  EXPECT_TRUE(QFile::exists(Outside(u"own.jpg"_qs)));
}

TEST_F(CodeChangeTest, ALogoIsNotWrittenOver) {
  const QString logo = AppFile(u"Images/109-Logo.jpg"_qs);
  const QByteArray picture = ContentOf(logo);
  Change(u"logo"_qs);
  connection_.Execute(u"UPDATE Prodotti SET CodiceProdotto='È 0' WHERE CodiceProdotto='logo'"_qs);
  Change(u"Logo"_qs);
  EXPECT_EQ(ContentOf(logo), picture);
  EXPECT_EQ(Findings(), QStringList());
}

// As a file system that does not tell letter cases apart shows one file under two names.
TEST_F(CodeChangeTest, OneFileUnderTwoNamesIsNotDeleted) {
  const QString former = MainImagePath(109, u"È 0"_qs);
  ASSERT_EQ(::link(QFile::encodeName(former), QFile::encodeName(MainImagePath(109, u"è 0"_qs))), 0);
  Change(u"è 0"_qs);
  EXPECT_TRUE(QFile::exists(former));
  EXPECT_EQ(One(u"Immagine"_qs, u"Prodotti"_qs, u"CodiceProdotto='è 0'"_qs), former);
}

TEST_F(CodeChangeTest, TwoProductsChangePlaces) {
  const QByteArray first = ContentOf(MainImagePath(109, u"È 0"_qs));
  const QByteArray second = ContentOf(MainImagePath(109, u"È 1"_qs));
  WriteFileSafely(ThumbnailPath(MainImagePath(109, u"between"_qs)), "left by something else");
  QFile::remove(ThumbnailPath(MainImagePath(109, u"È 0"_qs)));
  Change(u"between"_qs);
  EXPECT_FALSE(QFile::exists(ThumbnailPath(MainImagePath(109, u"between"_qs))));
  Change(u"È 0"_qs, false, u"È 1"_qs);
  Change(u"È 1"_qs, false, u"between"_qs);
  EXPECT_EQ(ContentOf(MainImagePath(109, u"È 1"_qs)), first);
  EXPECT_EQ(ContentOf(MainImagePath(109, u"È 0"_qs)), second);
}

TEST_F(CodeChangeTest, AFilterTakesNoValueThatACellRefuses) {
  SetLanguage(u"English"_qs);
  AddFilterValue(109, 1, u" dell'Elba "_qs, connection_);
  EXPECT_EQ(FailureOf([&] { AddFilterValue(109, 1, u"a|b"_qs, connection_); }),
            u"| is an invalid character"_qs);
  EXPECT_EQ(One(u"group_concat(Valore)"_qs, u"Filtri"_qs), u"dell'Elba"_qs);
}

TEST_F(CodeChangeTest, ACodeIsTakenInAnyLetterCase) {
  const qint64 own = One(u"IDProdotto"_qs, u"Prodotti"_qs, u"CodiceProdotto='È 0'"_qs).toLongLong();
  EXPECT_TRUE(IsCodeTaken(109, u"è 0"_qs, 0, connection_));
  EXPECT_FALSE(IsCodeTaken(109, u"è 0"_qs, own, connection_)) << "its own";
  EXPECT_FALSE(IsCodeTaken(109, u"e 0"_qs, 0, connection_));
  EXPECT_FALSE(IsCodeTaken(110, u"è 0"_qs, 0, connection_));
  AddProduct(109, u"x-1"_qs);
  EXPECT_TRUE(IsCodeTaken(109, u"X-1"_qs, 0, connection_));
  EXPECT_THROW(RequireFreeCode(109, u"è 0"_qs, 0, connection_), DuplicateError);
}
