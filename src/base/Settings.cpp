#include "base/Settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDevice>
#include <QSettings>

#include "base/Error.h"
#include "base/Language.h"

namespace vorlina {
namespace {

// The file is plain text that a person can mend by hand: "[section]" and "key=value" lines in UTF-8, with a
// backslash before n, r or a backslash inside a value. Lines of any other form are passed over.
QString Escaped(QString text) {
  return text.replace(u'\\', u"\\\\"_qs).replace(u'\n', u"\\n"_qs).replace(u'\r', u"\\r"_qs);
}

QString Unescaped(const QString& text) {
  QString plain;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] != u'\\' || i + 1 == text.size()) {
      plain += text[i];
      continue;
    }
    const QChar next = text[++i];
    plain += next == u'n' ? QChar(u'\n') : next == u'r' ? QChar(u'\r') : next;
  }
  return plain;
}

bool ReadText(QIODevice& device, QSettings::SettingsMap& map) {
  QString section;
  const QStringList lines = QString::fromUtf8(device.readAll()).split(u'\n');
  for (QString line : lines) {
    if (line.endsWith(u'\r')) line.chop(1);
    if (line.startsWith(u'[') && line.endsWith(u']')) section = line.mid(1, line.size() - 2);
    const qsizetype equals = line.indexOf(u'=');
    if (equals > 0 && !section.isEmpty())
      map.insert(section + u'/' + line.left(equals), Unescaped(line.mid(equals + 1)));
  }
  return true;
}

// QSettings replaces its file as soon as the writer says yes, so the writer says yes only when every byte has
// reached the temporary file: on a full disk the former settings stay.
bool WriteText(QIODevice& device, const QSettings::SettingsMap& map) {
  QString text;
  QString section;
  for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
    const qsizetype slash = entry.key().indexOf(u'/');
    if (slash <= 0) continue;
    if (entry.key().left(slash) != section) {
      section = entry.key().left(slash);
      text += (text.isEmpty() ? u"["_qs : u"\n["_qs) + section + u"]\n"_qs;
    }
    text += entry.key().mid(slash + 1) + u'=' + Escaped(entry.value().toString()) + u'\n';
  }
  const QByteArray bytes = text.toUtf8();
  if (device.write(bytes) != bytes.size()) return false;
  auto* file = qobject_cast<QFileDevice*>(&device);
  return file == nullptr ||
         (file->flush() && file->error() == QFileDevice::NoError && file->size() == bytes.size());
}

QSettings::Format Format() {
  static const QSettings::Format format = QSettings::registerFormat(u"settings"_qs, ReadText, WriteText);
  return format;
}

QSettings Store(const QString& application) {
  return QSettings(Format(), QSettings::UserScope, u"Norsel"_qs, application);
}

}  // namespace

QString ApplicationTitle() { return QCoreApplication::applicationName(); }

QString GetSetting(const QString& application, const QString& section, const QString& key,
                   const QString& fallback) {
  const QVariant value = Store(application).value(section + u'/' + key);
  return value.isValid() && value.canConvert<QString>() ? value.toString() : fallback;
}

void SaveSetting(const QString& application, const QString& section, const QString& key,
                 const QString& value) {
  QSettings store = Store(application);
  const QVariant before = store.value(section + u'/' + key);
  store.setValue(section + u'/' + key, value);
  store.sync();
  if (store.status() == QSettings::NoError) return;
  // What could not be written is not kept in memory either, so that a later write does not meet it.
  if (before.isValid())
    store.setValue(section + u'/' + key, before);
  else
    store.remove(section + u'/' + key);
  throw Error(EitherLanguage(u"Impossibile salvare le impostazioni in %1"_qs,
                             u"The settings cannot be saved in %1"_qs)
                  .arg(QDir::toNativeSeparators(store.fileName())));
}

void SetSettingsFolder(const QString& folder) { QSettings::setPath(Format(), QSettings::UserScope, folder); }

}  // namespace vorlina
