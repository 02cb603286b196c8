// What "check" finds when rows and files do not agree, and that it finds nothing else.
#include "catalogs/CatalogCheck.h"
#include "support/CatalogFixture.h"
#include "support/Print.h"

using namespace vorlina;

namespace {

class CheckTest : public CatalogFixture {
 protected:
  // "kind: subject", as they come, with a mark before what the user misses something by.
  QStringList Found() {
    QStringList found;
    for (const Finding& finding : CheckCatalogs(connection_))
      found +=
          (IsDamage(finding.kind) ? u"!"_qs : QString()) + NameOf(finding.kind) + u": "_qs + finding.subject;
    return found;
  }
  QString Image(const QString& name) { return AppFile(u"Images/"_qs + name); }
};

}  // namespace

TEST_F(CheckTest, EachDisagreementIsFoundAndNothingElse) {
  Fill("x", 3);
  EXPECT_EQ(Found(), QStringList());
  const std::vector<std::pair<QString, std::function<void()>>> cases{
      {u"!missing-picture: Cataloghi 109"_qs, [&] { QFile::remove(Image(u"109-Logo.jpg"_qs)); }},
      {u"!missing-picture: Prodotti 109 È 1"_qs, [&] { QFile::remove(Image(u"109-È 1.jpg"_qs)); }},
      {u"!missing-picture: Immagini 109 È 0 7"_qs, [&] { QFile::remove(Image(u"7.jpg"_qs)); }},
      {u"missing-thumbnail: Prodotti 109 È 2"_qs, [&] { QFile::remove(Image(u"t109-È 2.jpg"_qs)); }},
      {u"unused-file: 109-gone.jpg"_qs, [&] { WriteFileSafely(Image(u"109-gone.jpg"_qs), "x"); }},
      {u"temporary-file: 109-È 1.jpg.AbCdEf"_qs,
       [&] { WriteFileSafely(Image(u"109-È 1.jpg.AbCdEf"_qs), "x"); }},
      {QString(),
       [&] {
         WriteFileSafely(Image(u"temp.bmp"_qs), "x");
         connection_.Execute(u"UPDATE Prodotti SET IDFiltro1=0, IDFiltro2=NULL"_qs);
       }},
      // No such value; then one that exists, but belongs to another filter.
      {u"!dangling-filter: Prodotti 109 È 0"_qs,
       [&] { connection_.Execute(u"UPDATE Prodotti SET IDFiltro5=99 WHERE CodiceProdotto='È 0'"_qs); }},
      {u"!dangling-filter: Prodotti 109 È 2"_qs,
       [&] {
         connection_.Execute(u"INSERT INTO Filtri (IDValore,IDCatalogo,IDNomeFiltro) VALUES (5,109,2)"_qs);
         connection_.Execute(u"UPDATE Prodotti SET IDFiltro2=5"_qs);
         connection_.Execute(u"UPDATE Prodotti SET IDFiltro1=5 WHERE CodiceProdotto='È 2'"_qs);
       }},
      {u"outside-picture: Cataloghi 200"_qs,
       [&] {
         WriteFileSafely(Outside(u"logo.jpg"_qs), "x");
         connection_.Execute(u"INSERT INTO Cataloghi (IDCatalogo,Logo) VALUES (200,?)"_qs,
                             {Outside(u"logo.jpg"_qs)});
       }},
      {u"!database: Prodotti"_qs,
       [&] {
         connection_.Execute(u"PRAGMA foreign_keys=OFF"_qs);
         connection_.Execute(u"INSERT INTO Prodotti (IDCatalogo,CodiceProdotto) VALUES (999,'A')"_qs);
       }},
  };
  QStringList before = Found();
  for (const auto& [expected, spoil] : cases) {
    spoil();
    QStringList fresh = Found();
    for (const QString& known : before) fresh.removeOne(known);
    EXPECT_EQ(fresh.size(), expected.isEmpty() ? 0 : 1) << expected << ": " << fresh.join(u" | "_qs);
    EXPECT_TRUE(fresh.value(0).startsWith(expected)) << expected << ": " << fresh.value(0);
    before = Found();
  }
}
