#include "TargetMemory.h"

#include <IVorlinaPlugin.h>

#include <QCryptographicHash>
#include <QRandomGenerator>
#include <array>

namespace publishing {
namespace {

const QString KeyName = QStringLiteral("VLHTML.HTML.Chiave");
// Its sites are known without its name.
const QString FirstPlugin = QStringLiteral("VLHTML.HTML");

QByteArray RandomKey() {
  std::array<quint32, 4> numbers{};
  QRandomGenerator::system()->fillRange(numbers.data(), qsizetype(numbers.size()));
  return QByteArray(reinterpret_cast<const char*>(numbers.data()), sizeof numbers).toHex();
}

}  // namespace

QString KeptWithCatalog(IVorlinaConnection& connection, int IDCatalogo, const QString& name) {
  const auto rows = connection.Open(
      QStringLiteral("SELECT CExtension.Valore FROM CExtension JOIN Extensions USING (IDExtension) "
                     "WHERE ExtensionName=? AND IDCatalogo=?"),
      {name, IDCatalogo});
  return rows->Next() ? rows->Value(0).toString() : QString();
}

void KeepWithCatalog(IVorlinaConnection& connection, int IDCatalogo, const QString& name,
                     const QString& value) {
  if (KeptWithCatalog(connection, IDCatalogo, name) == value && !value.isEmpty()) return;
  connection.BeginTrans();
  try {
    connection.Execute(
        QStringLiteral(
            "INSERT INTO Extensions (ExtensionName,C,P) VALUES (?,TRUE,FALSE) ON CONFLICT DO NOTHING"),
        {name});
    connection.Execute(
        QStringLiteral("INSERT INTO CExtension (IDCatalogo,IDExtension,Valore) "
                       "SELECT ?,IDExtension,? FROM Extensions WHERE ExtensionName=? "
                       "ON CONFLICT (IDCatalogo,IDExtension) DO UPDATE SET Valore=excluded.Valore"),
        {IDCatalogo, value, name});
    connection.CommitTrans();
  } catch (...) {
    connection.RollbackTrans();
    throw;
  }
}

SiteKey::SiteKey(IVorlinaConnection& connection, int IDCatalogo, const QString& plugin)
    : IDCatalogo_(IDCatalogo), key_(KeptWithCatalog(connection, IDCatalogo, KeyName).toUtf8()) {
  kept_ = !key_.isEmpty();
  if (!kept_) key_ = RandomKey();
  QByteArray name = "site " + QByteArray::number(IDCatalogo);
  if (plugin != FirstPlugin) name += ' ' + plugin.toUtf8();
  site_ = Digest(name).toHex();
}

void SiteKey::Keep(IVorlinaConnection& connection) const {
  if (!kept_) KeepWithCatalog(connection, IDCatalogo_, KeyName, QString::fromUtf8(key_));
}

QByteArray SiteKey::Digest(const QByteArray& text) const {
  return QCryptographicHash::hash(QByteArray(key_ + text), QCryptographicHash::Sha1).left(16);
}

}  // namespace publishing
