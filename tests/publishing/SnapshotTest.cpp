// What the library of all plug-ins makes of a catalog's texts, and what a profile keeps from readers.
#include "CatalogSnapshot.h"
#include "Description.h"
#include "VorlinaPrice.h"
#include "vlhtml/SiteFixture.h"

using namespace vorlina;
using namespace publishing;

TEST(Description, IsDividedIntoNameAndParagraphs) {
  const QString tail = u" e un paralume di lino naturale cucito a mano"_qs;
  const auto divided = [](const QString& text) {
    const Description description = DescriptionOf(text);
    QStringList all{QString::fromStdString(description.name)};
    for (const std::string& paragraph : description.paragraphs) all += QString::fromStdString(paragraph);
    return all;
  };
  const std::vector<std::pair<QString, QStringList>> cases = {
      {u" \r\n\t "_qs, {u""_qs}},
      {u"Bowl número 0 with straße glaze. Made by hand."_qs,
       {u"Bowl número 0 with straße glaze"_qs, u"Made by hand."_qs}},
      {u"Vite S.p.A."_qs, {u"Vite S.p.A."_qs}},
      {u"Eccetera..."_qs, {u"Eccetera..."_qs}},
      {u"Vaso\r\n\r\n \r\nBlu\rcobalto\n\nAlto"_qs, {u"Vaso"_qs, u"Blu\ncobalto"_qs, u"Alto"_qs}},
      {u"Vaso. Blu."_qs, {u"Vaso"_qs, u"Blu."_qs}},
      {u"Vase h. 30 cm. blue"_qs, {u"Vase h. 30 cm. blue"_qs}},
      {u"Cup No. 125. Green edition"_qs, {u"Cup No. 125. Green edition"_qs}},
      {u"Nouvelle collection ! Vase 30 cm. Bleu"_qs, {u"Nouvelle collection ! Vase 30 cm. Bleu"_qs}},
      {u"Vaso grande. – Blu scuro"_qs, {u"Vaso grande. – Blu scuro"_qs}},
      {u"T-Shirt Gr. XL (für 2 Pers. Rot) neu"_qs, {u"T-Shirt Gr. XL (für 2 Pers. Rot) neu"_qs}},
      {u"Lampada da 1.5 l, art. 5 e mod. A. Con piede"_qs + tail + u"\nAlta",
       {u"Lampada da 1.5 l, art. 5 e mod. A. Con piede"_qs + tail, u"Alta"_qs}},
      {u"Nuova! Lampada di S.p.A. Rossi. Con piede, 3. Modello"_qs + tail,
       {u"Nuova! Lampada di S.p.A. Rossi"_qs, u"Con piede, 3. Modello"_qs + tail}},
      {u"Non è mai davvero \"finita?\" Sì"_qs + tail + tail,
       {u"Non è mai davvero \"finita?\""_qs, u"Sì"_qs + tail + tail}},
      {u"漢字。"_qs + QString(70, u'漢'), {u"漢字。"_qs, QString(70, u'漢')}},
      {u"Lampada"_qs + tail + u", con luce – "_qs + tail + tail,
       {u"Lampada"_qs + tail + u", con luce…", u"…"_qs + tail.trimmed() + tail}},
      {u"Lampada, grande"_qs + tail + tail + u"\nAlta",
       {u"Lampada, grande"_qs + tail + u" e un paralume di lino naturale cucito a…", u"…mano\nAlta"_qs}},
      {QString(99, u'x') + u"🙂🙂", {QString(99, u'x') + u"…", u"…🙂🙂"_qs}},
      {QString(10'000, QChar(0x301)),
       {QString(100, QChar(0x301)) + u"…", u"…"_qs + QString(9'900, QChar(0x301))}},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(divided(text), expected);
}

TEST(PriceValue, IsTheOneWhoseNameSaysSo) {
  const std::vector<std::tuple<QString, QString, int, int>> cases = {
      {u"Peso"_qs, u"PREZZO €"_qs, VorlinaProfile::PriceByName, 2},
      {u"Codice listino"_qs, u"Listenpreis/St."_qs, VorlinaProfile::PriceByName, 2},
      {u"Size"_qs, u"£"_qs, VorlinaProfile::PriceByName, 2},
      {u"Prezzemolo"_qs, u"Eurocodice"_qs, VorlinaProfile::PriceByName, 0},
      {u"Price"_qs, u"Prezzo"_qs, VorlinaProfile::PriceByName, 1},
      {u"Price"_qs, u"Size"_qs, VorlinaProfile::NoPrice, 0},
      {u"Price"_qs, u"Size"_qs, 2, 2},
      {u"Price"_qs, u""_qs, 2, 0},
      {u"Price"_qs, u""_qs, 7, 0}};
  for (const auto& [first, second, chosen, expected] : cases) {
    VorlinaProfile profile;
    profile.price = chosen;
    EXPECT_EQ(PriceValue({first, second, {}}, profile), expected) << first << " " << second << chosen;
  }
}

class SnapshotTest : public SiteFixture {
 protected:
  CatalogSnapshot Read() {
    PluginConnection connection(connection_);
    CatalogSnapshot snapshot = ReadSnapshot(connection, job_, false);
    ReadFeatures(connection, job_, snapshot);
    return snapshot;
  }
  VorlinaJob job_{1, {}, {}, {}, false};
};

TEST_F(SnapshotTest, HasNothingOfWhatTheProfileHides) {
  const auto all = Read();
  EXPECT_EQ(all.price, 1);
  EXPECT_EQ(all.products[0].price, "12,50");
  EXPECT_EQ(all.products[0].values[2], "") << "a value without a name";
  EXPECT_EQ(all.products[0].features.size(), 1U);
  job_.profile.values = {false, true, true};
  job_.profile.filters[0] = false;
  job_.profile.techData = false;
  const auto some = Read();
  EXPECT_EQ(some.price, 0);
  EXPECT_EQ(some.valueNames[0] + some.filterNames[0], "");
  EXPECT_EQ(some.filterValues.size(), 2U);
  for (const Product& product : some.products) {
    EXPECT_EQ(product.price + product.values[0], "");
    EXPECT_EQ(product.values[1], "10 x 20");
    EXPECT_EQ(product.filters[0], 0);
    EXPECT_TRUE(product.features.empty());
  }
}

TEST_F(SnapshotTest, TellsCodesApartAsTheDatabaseDoes) {
  Add(u"È-1"_qs, u"Ecrù"_qs, 5, 1, 0, true);
  Add(u"è-1"_qs, u"Interno"_qs, 6, 1, 0, false);
  connection_.Execute(
      u"INSERT INTO Immagini (IDCatalogo,CodiceProdotto,Immagine) VALUES (1,'è-1','x.jpg')"_qs);
  connection_.Execute(
      u"INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica,Valore) VALUES (1,'è-1','Costo','9')"_qs);
  job_.profile.highlights = {u"è-1"_qs};
  const auto catalog = Read();
  const Product& shown = catalog.products.back();
  EXPECT_EQ(shown.code, u"È-1"_qs);
  EXPECT_TRUE(shown.pictures.empty() && shown.features.empty() && !shown.highlight);
}

TEST_F(SnapshotTest, ShowsTheHighlightsAndTellsWhatWasOverlooked) {
  job_.profile.highlights = {u"d/..\\X"_qs, u"a-1"_qs, u"C-1"_qs, u"gone"_qs};
  connection_.Execute(u"UPDATE Cataloghi SET Logo='logo.jpg'"_qs);
  connection_.Execute(u"UPDATE Prodotti SET OrdineTemp=2 WHERE CodiceProdotto='D/..\\x'"_qs);
  CatalogSnapshot snapshot = Read();
  EXPECT_EQ(snapshot.highlights, (std::vector<std::size_t>{0, 2}));
  EXPECT_TRUE(snapshot.products[0].highlight);
  EXPECT_EQ(snapshot.widePicture.source, AppFile(u"Images/1-A-1.jpg"_qs));
  EXPECT_EQ(snapshot.logo.source, u"logo.jpg"_qs);
  QStringList notes;
  for (const VorlinaNote& note : snapshot.notes)
    notes += u"%1 %2 %3"_qs.arg(int(note.kind)).arg(note.product, note.text);
  EXPECT_EQ(notes, (QStringList{u"2 D/..\\x It has the same order of publication as B-1."_qs,
                                u"0 B-1 It has no picture."_qs, u"0 D/..\\x It has no picture."_qs,
                                u"1 D/..\\x It has no description: its code stands instead."_qs}));
  job_.profile.logo = u"own.jpg"_qs;
  job_.profile.widePicture = u"wide.jpg"_qs;
  EXPECT_EQ(Read().logo.source + Read().widePicture.source, u"own.jpgwide.jpg"_qs);
  job_.profile.showLogo = false;
  EXPECT_EQ(Read().logo.source, QString());
}
