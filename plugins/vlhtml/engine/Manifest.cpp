#include "Manifest.h"

#include <QFile>
#include <QStringList>
#include <algorithm>

namespace vlhtml {
namespace {

const QByteArray Head = "Vorlina site manifest 1";

// The names that the publisher gives: no way out of the folder.
bool IsOurs(const QString& name) {
  const auto allowed = [](QChar c) {
    return c.unicode() < 128 && (c.isLetterOrNumber() || QStringView(u"-_./").contains(c));
  };
  return !name.isEmpty() && !name.startsWith(u'/') && !name.contains(u"..") &&
         std::all_of(name.begin(), name.end(), allowed);
}

}  // namespace

QString Manifest::FileName() { return QStringLiteral("vorlina-manifest.txt"); }

Manifest Manifest::Read(const QString& folder) {
  Manifest manifest;
  QFile file(folder + u'/' + FileName());
  if (!file.open(QIODevice::ReadOnly) || file.readLine().trimmed() != Head) return manifest;
  while (!file.atEnd()) {
    const QList<QByteArray> parts = file.readLine().trimmed().split('\t');
    if (parts.size() != 4) continue;
    const QString name = QString::fromUtf8(parts[3]);
    if (IsOurs(name))
      manifest.entries.insert(name,
                              {QByteArray::fromHex(parts[0]), parts[1].toLongLong(), parts[2].toLongLong()});
  }
  return manifest;
}

QByteArray Manifest::ToText() const {
  QStringList names = entries.keys();
  std::sort(names.begin(), names.end());
  QByteArray text = Head + '\n';
  for (const QString& name : names) {
    const ManifestEntry& entry = entries[name];
    text += entry.input.toHex() + '\t' + QByteArray::number(entry.size) + '\t' +
            QByteArray::number(entry.time) + '\t' + name.toUtf8() + '\n';
  }
  return text;
}

}  // namespace vlhtml
