// Makes the delivered database from the schema, the sample catalogs and their pictures:
//   make_catalog SCHEMA SAMPLES TARGET
// The target is only replaced by a database that has passed its checks.
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

#include "CatalogWriter.h"
#include "base/Error.h"
#include "base/SafeFile.h"

using namespace vorlina;

namespace {

QString TextOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw Error(path + u": " + file.errorString());
  return QString::fromUtf8(file.readAll());
}

void Check(SQLite::Database& database) {
  SQLite::Statement keys(database, "PRAGMA foreign_key_check");
  if (keys.executeStep())
    throw Error(u"a row without its parent in "_qs + QString::fromStdString(keys.getColumn(0).getString()));
  SQLite::Statement integrity(database, "PRAGMA integrity_check");
  integrity.executeStep();
  const std::string finding = integrity.getColumn(0).getString();
  if (finding != "ok") throw Error(QString::fromStdString(finding));
}

void MakeDatabase(const QString& file, const QString& schema, const QString& samples) {
  SQLite::Database database(file.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  database.exec("PRAGMA foreign_keys = ON");
  database.exec(TextOf(schema).toStdString());
  SQLite::Transaction transaction(database);
  CatalogWriter writer(database, samples + u"/Images");
  for (const SampleCatalog& catalog : ReadSampleCatalogs(samples)) writer.Write(catalog);
  transaction.commit();
  Check(database);
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const QStringList words = QCoreApplication::arguments();
  if (words.size() != 4) {
    QTextStream(stderr) << "usage: make_catalog SCHEMA SAMPLES TARGET\n";
    return 2;
  }
  try {
    const QTemporaryDir beside(QFileInfo(words[3]).absolutePath() + u"/making-XXXXXX");
    if (!beside.isValid()) throw Error(beside.errorString());
    const QString made = beside.filePath(u"Catalog.db"_qs);
    MakeDatabase(made, words[1], words[2]);
    CopyFileSafely(made, words[3]);
    return 0;
  } catch (const std::exception& error) {
    QTextStream(stderr) << "make_catalog: " << DescriptionOf(error) << '\n';
    return 1;
  }
}
