// What the properties of a catalog refuse, ask and store.
#include "catalogs/CatalogProperties.h"

#include "base/Helpers.h"
#include "store/Recordset.h"
#include "support/CatalogFixture.h"
#include "support/FullDisk.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

class CatalogPropertiesTest : public CatalogFixture {
 protected:
  CatalogPropertiesTest() {
    connection_.Execute(
        u"INSERT INTO Cataloghi (IDCatalogo,NomeCatalogo,NomeFiltro1,NomeFiltro3) VALUES "
        "(5,'a','Colore','L\\046uso'),(6,'other',NULL,NULL)"_qs);
    connection_.Execute(
        u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore) VALUES (5,1,'x'),(5,3,'y'),(6,3,'z')"_qs);
    AddProduct(5, u"p"_qs);
    AddProduct(6, u"q"_qs);
    connection_.Execute(u"UPDATE Prodotti SET IDFiltro1=2-IDProdotto,IDFiltro3=IDProdotto+1"_qs);
    Open();
  }
  void Open() {
    catalog_.Open({.table = u"Cataloghi"_qs, .where = u"IDCatalogo=5"_qs}, connection_);
    properties_.emplace(catalog_, connection_);
    for (const QString& column : CatalogProperties::Columns) boxes_[column] = properties_->Shown(column);
    properties_->Begin(boxes_);
  }
  // What is refused, or told, when the boxes are saved; all questions are answered alike.
  QString Save(bool answer = true) {
    questions_.clear();
    return FailureOf([&] {
      const auto refusal = properties_->Prepare(boxes_, [&](const QString& question) {
        questions_ += question;
        return answer;
      });
      if (refusal) throw Error(refusal->text);
      if (const QString failure = properties_->Save(); !failure.isEmpty()) throw Error(failure);
    });
  }
  QString Stored(const QString& expression) {
    return NullToEmpty(One(expression, u"Cataloghi"_qs, u"IDCatalogo=5"_qs));
  }
  // The filters' values, and what the two products have of filters 1 and 3.
  QString Filters() {
    return NullToEmpty(One(u"group_concat(Valore,'')"_qs, u"Filtri"_qs)) + u' ' +
           NullToEmpty(One(u"group_concat(IDFiltro1||IDFiltro3,' ')"_qs, u"Prodotti"_qs));
  }
  // Chooses a picture that is gone by the time it is stored, as a stick that is taken out.
  QByteArray ChooseLogo(QSize size) {
    QByteArray jpeg = MakeJpeg(MakePhoto(size, 2));
    WriteFileSafely(Outside(u"logo.jpg"_qs), jpeg);
    EXPECT_EQ(properties_->ChooseLogo(Outside(u"logo.jpg"_qs)), size);
    QFile::remove(Outside(u"logo.jpg"_qs));
    boxes_[u"Logo"_qs] = properties_->Logo();
    boxes_[u"Width"_qs] = QString::number(size.width());
    return jpeg;
  }

  Recordset catalog_;
  std::optional<CatalogProperties> properties_;
  PropertyTexts boxes_;
  QStringList questions_;
};

}  // namespace

// Language, column, text, what is told.
TEST_F(CatalogPropertiesTest, ARefusalStoresNothing) {
  const std::tuple<QString, QString, QString, QString> cases[] = {
      {u"Italian"_qs, u"NomeValore2"_qs, u"DESCRIZIONE"_qs,
       u"Il nome 'DESCRIZIONE' non è consentito per  un campo valore o un campo filtro."_qs},
      {u"English"_qs, u"NomeFiltro5"_qs, u"Code"_qs,
       u"The name 'Code' is not allowed for a value or a filter field."_qs},
      {u"English"_qs, u"NomeFiltro5"_qs, u"codice"_qs, {}},
      {u"English"_qs, u"Titolo"_qs, u"Code"_qs, {}},
      {u"Italian"_qs, u"Spalla"_qs, u"a|b"_qs, u"Il carattere | non è consentito"_qs},
      {u"English"_qs, u"Cap"_qs, u"|"_qs, u"| is an invalid character "_qs}};
  for (const auto& [language, column, text, told] : cases) {
    SetLanguage(language);
    connection_.Execute(u"UPDATE Cataloghi SET NomeCatalogo='a',NomeFiltro5=NULL"_qs);
    Open();
    boxes_[u"NomeCatalogo"_qs] = u"b"_qs;
    boxes_[column] = text;
    EXPECT_EQ(Save(), told);
    EXPECT_EQ(Stored(u"NomeCatalogo"_qs), told.isEmpty() ? u"b"_qs : u"a"_qs);
    EXPECT_EQ(Stored(column) == text, told.isEmpty());
  }
}

TEST_F(CatalogPropertiesTest, ARemovedFilterTakesItsValuesAlong) {
  EXPECT_TRUE(properties_->IsChanged(boxes_));  // by the escaped name alone
  boxes_[u"NomeFiltro3"_qs].clear();
  boxes_[u"NomeValore1"_qs] = u"a.b\\/"_qs;
  boxes_[u"Extras"_qs] = u"C:\\045"_qs;
  const QString question =
      u"Do you want to delete the selected filterL\\046uso and all data belonging to it? ?"_qs;
  EXPECT_EQ(Save(false), QString());
  EXPECT_EQ(questions_, QStringList{question});
  EXPECT_EQ(Stored(u"NomeFiltro3||NomeValore1"_qs), u"L\\046usoa\\046b\\\\\\047"_qs);
  EXPECT_EQ(Filters(), u"xyz 12 03"_qs);

  Open();
  EXPECT_EQ(boxes_[u"NomeValore1"_qs] + boxes_[u"Extras"_qs], u"a.b\\/C:\\045"_qs);
  boxes_[u"NomeFiltro3"_qs].clear();
  // One of the statements fails: all is as it was.
  Refuse(u"UPDATE ON Prodotti"_qs);
  EXPECT_NE(Save(), QString());
  EXPECT_EQ(Stored(u"NomeFiltro3"_qs) + Filters(), u"L\\046usoxyz 12 03"_qs);
  connection_.Execute(u"DROP TRIGGER Refuse"_qs);
  EXPECT_EQ(Save(), QString());
  EXPECT_EQ(questions_, QStringList{question});
  EXPECT_EQ(Stored(u"NomeFiltro1||ifnull(NomeFiltro3,'-')"_qs), u"Colore-"_qs);
  EXPECT_EQ(Filters(), u"xz 10 03"_qs);
  // A name that was Null gets the empty text, without a question, and so stays.
  Open();
  boxes_[u"Titolo"_qs] = u"t"_qs;
  EXPECT_EQ(Save(), QString());
  EXPECT_EQ(questions_, QStringList());
  EXPECT_EQ(Stored(u"NomeFiltro3||quote(NomeFiltro4)||quote(Width)"_qs), u"''NULL"_qs);
}

TEST_F(CatalogPropertiesTest, WhatOthersStoredMeanwhileIsNotWrittenOverUnseen) {
  connection_.Execute(
      u"UPDATE Cataloghi SET Titolo='theirs',Tel='1',NomeFiltro2='new' WHERE IDCatalogo=5"_qs);
  boxes_[u"Titolo"_qs] = u"mine"_qs;
  boxes_[u"Citta"_qs] = u"Faenza"_qs;
  EXPECT_EQ(Save(), QString());
  EXPECT_EQ(properties_->WrittenOver(), QStringList{u"Titolo"_qs});
  EXPECT_EQ(Stored(u"Titolo||Citta||Tel||NomeFiltro2"_qs), u"mineFaenza1new"_qs);
  connection_.Execute(u"DELETE FROM Cataloghi WHERE IDCatalogo=5"_qs);
  boxes_[u"Titolo"_qs] = u"again"_qs;
  EXPECT_EQ(Save(), u"The catalog is not there any more: it was deleted elsewhere"_qs);
}

TEST_F(CatalogPropertiesTest, ALogoIsReplacedWholeOrNotAtAll) {
  const QString target = AppFile(u"Images/5-Logo.jpg"_qs);
  const QByteArray small = ChooseLogo({30, 20});
  EXPECT_FALSE(QFile::exists(target));
  EXPECT_EQ(Save(), QString());
  EXPECT_EQ(Stored(u"Logo||' '||Width"_qs), QString(target + u" 30"_qs));
  WriteFileSafely(Outside(u"none.jpg"_qs), "no picture");
  EXPECT_NE(FailureOf([&] { properties_->ChooseLogo(Outside(u"none.jpg"_qs)); }), QString());
  EXPECT_EQ(properties_->ChosenLogo(), QString());
  // Somebody else has stored the size of another one.
  connection_.Execute(u"UPDATE Cataloghi SET Width=50"_qs);
  ChooseLogo({30, 20});
  EXPECT_EQ(Save(), QString());
  EXPECT_EQ(properties_->WrittenOver(), QStringList{u"Width"_qs});
  const QByteArray large = ChooseLogo({900, 700});
  {
    const FullDisk full(100'000);
    EXPECT_TRUE(Save().contains(u"5-Logo.jpg cannot be written"));
  }
  // A link, or no file at all where the row names one, is as it was as well.
  Refuse(u"UPDATE ON Cataloghi"_qs);
  for (const bool link : {true, false}) {
    QFile::remove(target);
    if (link) QFile::link(Outside(u"none.jpg"_qs), target);
    EXPECT_NE(Save(), QString());
    EXPECT_EQ(ContentOf(target), link ? "no picture" : "(missing)");
  }
  connection_.Execute(u"DROP TRIGGER Refuse"_qs);
  // What alone cannot take its place is told, and stays chosen; the row is as the picture.
  QDir().mkpath(target);
  boxes_[u"Titolo"_qs] = u"new"_qs;
  EXPECT_NE(Save(), QString());
  EXPECT_EQ(Stored(u"Titolo||Width"_qs), u"new30"_qs);
  QDir().rmdir(target);
  WriteFileSafely(target, small);
  // The picture of a product that has the name stays as well.
  SetImage(u"q"_qs, target);
  EXPECT_NE(Save(), QString());
  EXPECT_EQ(ContentOf(target), small);
  EXPECT_EQ(Stored(u"Width"_qs), u"30"_qs);
  SetImage(u"q"_qs, {});
  EXPECT_EQ(Save(), QString());
  EXPECT_EQ(ContentOf(target), large);
  EXPECT_EQ(Findings(), QStringList());
  for (const QString& column : {u"Logo"_qs, u"Width"_qs}) boxes_[column].clear();
  EXPECT_EQ(Save(), QString());
  EXPECT_EQ(Stored(u"Logo||quote(Width)"_qs), u"NULL"_qs);
  EXPECT_FALSE(QFile::exists(target));
}
