// The catalogs whose sites are looked at beside those of the samples, in one application folder: 1 has
// hostile texts in every field, 2 five products without pictures, 3 three thousand products with 297 filter
// values, 4 none at all. usage: make_catalogs FOLDER PICTURE
#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include "../../bench/EmptyDatabase.h"
#include "base/AppPath.h"
#include "publish/ProfileStore.h"
#include "store/Connection.h"
#include "store/Transaction.h"

using namespace vorlina;

namespace {

const QStringList Hostile = {
    u"</title></script><script>alert(1)</script>"_qs,
    u"\"><img src=x onerror=alert(2)>"_qs,
    u"' onmouseover='alert(3)' x='"_qs,
    u"javascript:alert(4)"_qs,
    u"مزهرية زرقاء مصنوعة يدويا"_qs,
    u"\u202Eabc\u2066 vase \u2028 next \u2029 end"_qs,
    u"🎁👩‍👩‍👧‍👦 Vase 🏺"_qs,
    u"{{{title}}} {{#cards}} ${alert(5)} \\u003c %s %1"_qs,
    u"<!-- --> ]]> <![CDATA[ &lt;b&gt; &amp;amp; \\\" \\"_qs,
    u"First line\nsecond line\n\n  third <b>line</b>\r\nfourth"_qs,
    QString(10'000, u'W'),
    u"A sentence that goes on. "_qs.repeated(400),
};
const QStringList Nouns = {u"Bowl"_qs, u"Vase"_qs, u"Lamp"_qs, u"Plate"_qs, u"Jug"_qs, u"Cup"_qs, u"Tray"_qs};

class Maker {
 public:
  Maker(const QString& folder, const QString& picture) : folder_(folder), picture_(picture) {
    SetAppPath(folder);
    QDir().mkpath(folder + u"/Images"_qs);
    EmptyDatabase(folder + u"/Catalog.db"_qs);
    connection_.Open(ConnectionTextFor(folder + u"/Catalog.db"_qs));
  }

  void MakeAll() {
    Transaction transaction(connection_);
    MakeHostile();
    Catalog(u"Five"_qs, {}, {u"Size"_qs});
    for (int i = 0; i < 5; ++i)
      Product(2, u"N-%1"_qs.arg(i), u"%1. It has no picture."_qs.arg(Nouns[i]), {u"12 cm"_qs}, {}, false);
    MakeLarge();
    Catalog(u"Empty"_qs, {u"Colour"_qs}, {});
    transaction.Commit();
    MakeProfile();
  }

 private:
  // Everything that a profile can have, and a colour that no text can be read on.
  void MakeProfile() {
    VorlinaProfile profile = ReadProfiles(connection_, 1).first();
    profile.language = u"en"_qs;
    profile.address = u"https://www.example.com/catalog/"_qs;
    profile.accent = u"#ffee00"_qs;
    profile.font = u"serif"_qs;
    profile.logo = profile.widePicture = picture_;
    profile.hours = Hostile[9] + u'\n' + Hostile[0];
    profile.mapLink = u"https://www.example.com/map?a=1&b=%22%3E"_qs;
    profile.sisters += {u"it"_qs, u"https://www.example.com/catalogo/"_qs};
    profile.highlights = {highlight_};
    StoreProfile(connection_, 1, profile);
  }

  void Catalog(const QString& name, const QStringList& filters, const QStringList& values) {
    connection_.Execute(
        u"INSERT INTO Cataloghi (NomeCatalogo,Titolo,Azienda,Tel,Email,NomeFiltro1,NomeFiltro2,NomeValore1,"
        "NomeValore2) VALUES (?,?,?,'+39 0546 5501','shop@example.com',?,?,?,?)"_qs,
        {name, name, name, filters.value(0), filters.value(1), values.value(0), values.value(1)});
  }

  int FilterValue(int catalog, int filter, const QString& text) {
    connection_.Execute(u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore) VALUES (?,?,?)"_qs,
                        {catalog, filter, text});
    return ++lastFilterValue_;
  }

  void Product(int catalog, const QString& code, const QString& description, const QStringList& values,
               const QList<int>& filters, bool withPicture) {
    QString picture;
    if (withPicture) {
      picture = folder_ + u"/Images/%1-x%2.jpg"_qs.arg(catalog).arg(++pictures_);
      QFile::copy(picture_, picture);
    }
    connection_.Execute(
        u"INSERT INTO Prodotti (IDCatalogo,CodiceProdotto,Descrizione,Valore1,Valore2,IDFiltro1,IDFiltro2,"
        "Immagine,OrdineTemp) VALUES (?,?,?,?,?,?,?,?,?)"_qs,
        {catalog, code, description, values.value(0), values.value(1), filters.value(0), filters.value(1),
         picture, ++order_});
  }

  // Every text stands in every field that has one.
  void MakeHostile() {
    const QString all = Hostile.mid(0, 10).join(u' ');
    Catalog(u"Hostile"_qs, {Hostile[0], Hostile[4]}, {u"Price"_qs, Hostile[1]});
    connection_.Execute(
        u"UPDATE Cataloghi SET Titolo=?,Sottotitolo=?,Spalla=?,Azienda=?,Indirizzo=?,Citta=?,Tel=?,Fax=?,"
        "Email=?,URL=?,Extras=? WHERE IDCatalogo=1"_qs,
        {Hostile[1], Hostile[0], QString(all + Hostile[10]), Hostile[6], Hostile[2], Hostile[4], Hostile[0],
         Hostile[8], QString(u"o'neil@example.com; "_qs + Hostile[1]), Hostile[3], Hostile[9]});
    QList<int> first, second;
    for (const QString& text : Hostile) {
      first += FilterValue(1, 1, text.left(250));
      second += FilterValue(1, 2, text.left(250));
    }
    for (int i = 0; i < 30; ++i) {
      const int n = i % int(Hostile.size());
      const QString code = u"%1-%2"_qs.arg(Hostile[n].left(40)).arg(i);
      if (i == 1) highlight_ = code;
      Product(1, code, Hostile[n], {Hostile[(n + 3) % 10], Hostile[(n + 5) % 10]},
              {first[n], second[(n + i) % int(second.size())]}, i < 26);
      connection_.Execute(
          u"INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica,Valore) VALUES (1,?,?,?)"_qs,
          {code, Hostile[n].left(250), Hostile[(n + 1) % 10]});
    }
  }

  void MakeLarge() {
    Catalog(u"Large"_qs, {u"Line"_qs, u"Colour"_qs}, {u"Price"_qs, u"Size"_qs});
    QList<int> lines, colours;
    for (int i = 0; i < 240; ++i) lines += FilterValue(3, 1, u"Line %1"_qs.arg(i, 3, 10, QChar(u'0')));
    for (int i = 0; i < 57; ++i) colours += FilterValue(3, 2, u"Shade %1"_qs.arg(i, 2, 10, QChar(u'0')));
    for (int i = 0; i < 3000; ++i)
      Product(3, u"K-%1"_qs.arg(i, 4, 10, QChar(u'0')),
              u"%1 número %2 with straße glaze. Made by hand in Grünau 绿谷."_qs.arg(Nouns[i % Nouns.size()])
                  .arg(i),
              {u"%1.50"_qs.arg(10 + i % 190), u"%1 cm"_qs.arg(8 + i % 30)},
              {lines[(i / 12) % 240], colours[i % 57]}, i < 10);
  }

  QString folder_, picture_, highlight_;
  Connection connection_;
  int lastFilterValue_ = 0, pictures_ = 0, order_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc != 3) return 2;
  Maker(QDir(QString::fromLocal8Bit(argv[1])).absolutePath(), QString::fromLocal8Bit(argv[2])).MakeAll();
  return 0;
}
