#include "SiteKey.h"

#include <QCryptographicHash>
#include <QRandomGenerator>
#include <array>

#include "CatalogValues.h"

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

SiteKey::SiteKey(IVorlinaConnection& connection, int IDCatalogo, const QString& plugin)
    : IDCatalogo_(IDCatalogo), key_(KeptWithCatalog(connection, IDCatalogo, KeyName).toUtf8()) {
  kept_ = !key_.isEmpty();
  if (!kept_) key_ = RandomKey();
  QByteArray name = "site " + QByteArray::number(IDCatalogo);
  if (plugin != FirstPlugin) name += ' ' + plugin.toUtf8();
  site_ = Digest(name).toHex();
}

bool SiteKey::Keep(IVorlinaConnection& connection) const {
  return kept_ || KeepOnceWithCatalog(connection, IDCatalogo_, KeyName, QString::fromUtf8(key_));
}

QByteArray SiteKey::Digest(const QByteArray& text) const {
  return QCryptographicHash::hash(QByteArray(key_ + text), QCryptographicHash::Sha1).left(16);
}

}  // namespace publishing
