// What "check" finds when rows and files do not agree, and that it finds nothing else.
#include "catalogs/CatalogCheck.h"
#include "support/CatalogFixture.h"

using namespace vorlina;

namespace {

class CheckTest : public CatalogFixture {
 protected:
  // What is found, with a mark before what the user misses something by.
  QStringList Found() {
    QStringList found;
    for (const Finding& finding : CheckCatalogs(connection_))
      found +=
          (IsDamage(finding.kind) ? u"!"_qs : QString()) + NameOf(finding.kind) + u": "_qs + finding.subject;
    return found;
  }
};

}  // namespace

TEST_F(CheckTest, EachDisagreementIsFoundAndNothingElse) {
  Fill("x", 3);
  WriteFileSafely(Outside(u"logo.jpg"_qs), "x");
  EXPECT_EQ(Found(), QStringList());
  // What is expected, and what is done before: a file in "Images" that goes or comes, or a statement.
  const std::vector<std::pair<QString, QString>> cases{
      {u"!missing-picture: Cataloghi 109"_qs, u"-109-Logo.jpg"_qs},
      {u"!missing-picture: Prodotti 109 È 1"_qs, u"-109-È 1.jpg"_qs},
      {u"!missing-picture: Immagini 109 È 0 7"_qs, u"-7.jpg"_qs},
      {u"missing-thumbnail: Prodotti 109 È 2"_qs, u"-t109-È 2.jpg"_qs},
      {u"unused-file: 109-gone.jpg"_qs, u"+109-gone.jpg"_qs},
      {u"temporary-file: 109-È 1.jpg.AbCdEf"_qs, u"+109-È 1.jpg.AbCdEf"_qs},
      {{}, u"+temp.bmp"_qs},
      {{}, u"UPDATE Prodotti SET IDFiltro1=0, IDFiltro2=NULL"_qs},
      // No such value; then one that exists, but belongs to another filter.
      {u"!dangling-filter: Prodotti 109 È 0"_qs,
       u"UPDATE Prodotti SET IDFiltro5=99 WHERE CodiceProdotto='È 0'"_qs},
      {{}, u"INSERT INTO Filtri (IDValore,IDCatalogo,IDNomeFiltro) VALUES (5,109,2)"_qs},
      {u"!dangling-filter: Prodotti 109 È 2"_qs,
       u"UPDATE Prodotti SET IDFiltro2=5, IDFiltro1=iif(CodiceProdotto='È 2',5,0)"_qs},
      {u"outside-picture: Cataloghi 200"_qs,
       u"INSERT INTO Cataloghi (IDCatalogo,Logo) VALUES (200,'%1')"_qs.arg(Outside(u"logo.jpg"_qs))},
      {{}, u"PRAGMA foreign_keys=OFF"_qs},
      {u"!database: Prodotti"_qs, u"INSERT INTO Prodotti (IDCatalogo,CodiceProdotto) VALUES (999,'A')"_qs}};
  for (const auto& [expected, step] : cases) {
    const QStringList before = Found();
    const QString file = AppFile(u"Images/"_qs + step.mid(1));
    if (step[0] == u'-')
      QFile::remove(file);
    else if (step[0] == u'+')
      WriteFileSafely(file, "x");
    else
      connection_.Execute(step);
    QStringList fresh = Found();
    for (const QString& known : before) fresh.removeOne(known);
    EXPECT_EQ(fresh.size(), expected.isEmpty() ? 0 : 1) << expected << ": " << fresh.join(u" | "_qs);
    EXPECT_TRUE(fresh.value(0).startsWith(expected)) << expected << ": " << fresh.value(0);
  }
}
