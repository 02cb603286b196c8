// One catalog, written twice: a database for Vorlina and a content folder for Hugo, with the same products,
// texts, filter values and, where a picture is given, copies of it. usage: make_content FOLDER PRODUCTS
// [PICTURE]
#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include "../EmptyDatabase.h"
#include "base/SafeFile.h"
#include "store/Connection.h"
#include "store/Transaction.h"

using namespace vorlina;

namespace {

const QStringList Nouns = {u"bowl"_qs, u"vase"_qs, u"lamp"_qs, u"plate"_qs, u"jug"_qs, u"cup"_qs, u"tray"_qs};
const QStringList Values = {u"red"_qs,   u"blue"_qs,  u"green"_qs, u"white"_qs,
                            u"black"_qs, u"ochre"_qs, u"grey"_qs,  u"sand"_qs};

struct Item {
  QString code, description, price, size;
  int filters[5];
  QStringList features;
};

Item Make(int i) {
  Item item;
  item.code = u"P%1"_qs.arg(i, 6, 10, QChar(u'0'));
  item.description =
      u"Hand-made %1 number %2 with a <glaze> & \"pattern\""_qs.arg(Nouns[i % Nouns.size()]).arg(i);
  item.price = u"%1.%2"_qs.arg(10 + i % 190).arg(i % 100, 2, 10, QChar(u'0'));
  item.size = u"%1 x %2 cm"_qs.arg(8 + i % 30).arg(6 + i % 22);
  for (int n = 0; n < 5; ++n) item.filters[n] = (i / (n + 1)) % int(Values.size());
  for (int n = 0; n < 6; ++n) item.features += u"value %1 of product %2"_qs.arg(n).arg(i);
  return item;
}

void Write(const QString& path, const QString& text) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) qFatal("cannot write %s", qPrintable(path));
  file.write(text.toUtf8());
}

void AddToDatabase(Connection& connection, const Item& item, int i, const QString& picture) {
  QVariantList values = {item.code, item.description, item.price, item.size, i};
  for (int n = 0; n < 5; ++n) values += n * int(Values.size()) + item.filters[n] + 1;
  values += picture;
  connection.Execute(
      u"INSERT INTO Prodotti (IDCatalogo,CodiceProdotto,Descrizione,Valore1,Valore2,OrdineTemp,IDFiltro1,"
      "IDFiltro2,IDFiltro3,IDFiltro4,IDFiltro5,Immagine) VALUES (1,?,?,?,?,?,?,?,?,?,?,?)"_qs,
      values);
  for (int n = 0; n < item.features.size(); ++n)
    connection.Execute(
        u"INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica,Valore) VALUES (1,?,?,?)"_qs,
        {item.code, u"Feature %1"_qs.arg(n), item.features[n]});
}

// The products of one first filter come round after as many as it has values.
void AddToHugo(const QString& folder, const Item& item, int i, int count, const QString& picture) {
  QString text =
      u"---\ntitle: '%1'\ncode: %2\nweight: %3\nprice: '%4'\nsize: '%5'\n"_qs.arg(item.description, item.code)
          .arg(i + 1)
          .arg(item.price, item.size);
  for (int n = 0; n < 5; ++n) text += u"filter%1s: ['%2']\n"_qs.arg(n + 1).arg(Values[item.filters[n]]);
  text += u"sisters:\n"_qs;
  for (int n = 1; n <= 4; ++n)
    if (const int sister = i + n * int(Values.size()); sister < count)
      text += u"  - p%1\n"_qs.arg(sister, 6, 10, QChar(u'0'));
  text += u"features:\n"_qs;
  for (int n = 0; n < item.features.size(); ++n)
    text += u"  - {name: 'Feature %1', value: '%2'}\n"_qs.arg(n).arg(item.features[n]);
  if (!picture.isEmpty()) text += u"picture: '%1.jpg'\n"_qs.arg(item.code);
  Write(folder + u"/content/products/%1.md"_qs.arg(item.code.toLower()), text + u"---\n"_qs);
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  if (argc < 3) return 2;
  const QString folder = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
  const int count = QString::fromLocal8Bit(argv[2]).toInt();
  const QString picture = argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString();
  for (const QString& name : {u"Images"_qs, u"hugo/content/products"_qs, u"hugo/static/images"_qs})
    QDir().mkpath(folder + u'/' + name);
  const QString path = folder + u"/Catalog.db"_qs;
  EmptyDatabase(path);
  Connection connection;
  connection.Open(ConnectionTextFor(path));
  Transaction transaction(connection);
  connection.Execute(
      u"INSERT INTO Cataloghi (NomeCatalogo,Titolo,Sottotitolo,Spalla,Azienda,NomeFiltro1,NomeFiltro2,"
      "NomeFiltro3,NomeFiltro4,NomeFiltro5,NomeValore1,NomeValore2) VALUES ('Catalog','Catalog','All of it',"
      "'A text about us.','Company','Filter1','Filter2','Filter3','Filter4','Filter5','Price','Size')"_qs);
  for (int n = 1; n <= 5; ++n)
    for (const QString& value : Values)
      connection.Execute(u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore) VALUES (1,?,?)"_qs,
                         {n, value});
  for (int i = 0; i < count; ++i) {
    const Item item = Make(i);
    QString own;
    if (!picture.isEmpty()) {
      own = folder + u"/Images/1-%1.jpg"_qs.arg(item.code);
      QFile::copy(picture, own);
      QFile::link(own, folder + u"/hugo/static/images/%1.jpg"_qs.arg(item.code));
    }
    AddToDatabase(connection, item, i, own);
    AddToHugo(folder + u"/hugo"_qs, item, i, count, own);
  }
  transaction.Commit();
  return 0;
}
