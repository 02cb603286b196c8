#include "base/Settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "base/Error.h"
#include "base/SafeFile.h"
#include "base/Texts.h"
#include "files/FolderLock.h"

namespace vorlina {
namespace {

// How long a save waits for that of another program, which takes but a moment.
constexpr int WaitForOthers = 2000;  // milliseconds

QString settingsFolder;

// The file is plain text that a person can mend by hand: "[section]" and "key=value" lines in UTF-8, where
// blanks around names and values do not count. Lines of any other form, comments among them, are passed over
// and kept. A value has a backslash before n, r or a backslash, and at its ends before s and t, which stand
// for a blank and a tabulator.
QByteArray Escaped(const QString& value) {
  QString text = value;
  text.replace(u'\\', u"\\\\"_qs).replace(u'\n', u"\\n"_qs).replace(u'\r', u"\\r"_qs);
  const auto code = [](QChar c) { return c == u'\t' ? u"\\t"_qs : u"\\s"_qs; };
  const auto isBlank = [](QChar c) { return c == u' ' || c == u'\t'; };
  if (!text.isEmpty() && isBlank(text.back())) text.replace(text.size() - 1, 1, code(text.back()));
  if (!text.isEmpty() && isBlank(text.front())) text.replace(0, 1, code(text.front()));
  return text.toUtf8();
}

QString Unescaped(const QByteArray& bytes) {
  const QString text = QString::fromUtf8(bytes);
  QString plain;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] != u'\\' || i + 1 == text.size()) {
      plain += text[i];
      continue;
    }
    const QChar next = text[++i];
    const bool atEnd = i == 1 || i + 1 == text.size();
    if (next == u'n')
      plain += u'\n';
    else if (next == u'r')
      plain += u'\r';
    else if (atEnd && next == u's')
      plain += u' ';
    else if (atEnd && next == u't')
      plain += u'\t';
    else
      plain += next;
  }
  return plain;
}

// Without the mark that some editors put at the beginning of a file.
QByteArray Trimmed(QByteArrayView bytes) {
  constexpr QByteArrayView Mark("\xEF\xBB\xBF");
  if (bytes.startsWith(Mark)) bytes = bytes.sliced(Mark.size());
  const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
  while (!bytes.isEmpty() && isBlank(bytes.front())) bytes = bytes.sliced(1);
  while (!bytes.isEmpty() && isBlank(bytes.back())) bytes.chop(1);
  return bytes.toByteArray();
}

// The lines of a settings file. What is not changed stays as it stands, byte by byte.
class SettingsLines {
 public:
  explicit SettingsLines(const QByteArray& bytes) : lines_(bytes.split('\n')) {
    if (lines_.last().isEmpty()) lines_.removeLast();
  }

  QByteArray Bytes() const { return lines_.join('\n') + '\n'; }

  // Null when there is no such key.
  QString Value(const QString& section, const QString& key) const {
    const Place place = Find(section, key);
    if (place.line < 0) return {};
    const QByteArray& line = lines_[place.line];
    const QString value = Unescaped(Trimmed(line.sliced(line.indexOf('=') + 1)));
    return value.isNull() ? u""_qs : value;
  }

  void SetValue(const QString& section, const QString& key, const QString& value) {
    const Place place = Find(section, key);
    const QByteArray end = !lines_.isEmpty() && lines_.first().endsWith('\r') ? "\r" : "";
    if (place.line >= 0) {
      QByteArray& line = lines_[place.line];
      qsizetype begin = line.indexOf('=') + 1;
      while (begin < line.size() && (line[begin] == ' ' || line[begin] == '\t')) ++begin;
      line = line.first(begin) + Escaped(value) + (line.endsWith('\r') ? "\r" : "");
      return;
    }
    qsizetype behind = place.sectionEnd;
    if (behind < 0) {
      if (!lines_.isEmpty()) lines_ += end;
      lines_ += '[' + section.toUtf8() + ']' + end;
      behind = lines_.size() - 1;
    }
    lines_.insert(behind + 1, key.toUtf8() + '=' + Escaped(value) + end);
  }

 private:
  struct Place {
    qsizetype line = -1;        // of the key: the last one counts
    qsizetype sectionEnd = -1;  // its last key, or its heading
  };

  Place Find(const QString& section, const QString& key) const {
    const QByteArray heading = '[' + section.toUtf8() + ']';
    const QByteArray name = key.toUtf8();
    Place place;
    bool inSection = false;
    for (qsizetype i = 0; i < lines_.size(); ++i) {
      const QByteArray line = Trimmed(lines_[i]);
      const bool isHeading = line.startsWith('[') && line.endsWith(']');
      if (isHeading) inSection = line == heading;
      const qsizetype equals = line.startsWith('#') || line.startsWith(';') ? -1 : line.indexOf('=');
      if (!inSection || (!isHeading && equals <= 0)) continue;
      place.sectionEnd = i;
      if (equals > 0 && Trimmed(line.first(equals)) == name) place.line = i;
    }
    return place;
  }

  QByteArrayList lines_;
};

QString PathOf(const QString& application) {
  if (settingsFolder.isEmpty())
    settingsFolder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  return settingsFolder + u"/Norsel/"_qs + application + u".settings"_qs;
}

// The program's own folder, asked for without AppPath: what decides on the application folder may ask here.
QString DeliveredPathOf(const QString& application) {
  return QCoreApplication::applicationDirPath() + u'/' + application + u".settings"_qs;
}

// Nothing where there is no file yet. False where it cannot be read.
bool ReadLines(const QString& path, QByteArray& bytes) {
  QFile file(path);
  if (!QFileInfo::exists(path)) return true;
  if (!file.open(QIODevice::ReadOnly)) return false;
  bytes = file.readAll();
  return file.error() == QFileDevice::NoError;
}

// Null when there is no such key.
QString ValueIn(const QString& path, const QString& section, const QString& key) {
  QByteArray bytes;
  ReadLines(path, bytes);
  return SettingsLines(bytes).Value(section, key);
}

// Whoever gets here holds the folder, so that the file beside has one name, and what a killed save left there
// goes with the next one. Passwords lie in it: it is for its user alone.
void WriteLines(const QString& path, const QByteArray& bytes) {
  const QFileInfo named(path);
  // A link stays one: people keep such files elsewhere.
  const QFileInfo file(named.exists()      ? named.canonicalFilePath()
                       : named.isSymLink() ? named.symLinkTarget()
                                           : path);
  const QString beside = file.path() + u"/."_qs + file.fileName() + u".saving"_qs;
  QFile::remove(beside);
  try {
    WriteStagedFile(beside, [&](QIODevice& device) {
      static_cast<QFile&>(device).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
      return device.write(bytes) == bytes.size();
    });
    MoveFileSafely(beside, file.filePath());
  } catch (...) {
    QFile::remove(beside);
    throw;
  }
}

void SaveLine(const QString& path, const QString& section, const QString& key, const QString& value) {
  const QString folder = QFileInfo(path).path();
  MakeFolder(folder);
  files::FolderLock hold;
  if (!hold.TakeAlone(folder, WaitForOthers))
    throw Error(Texts::tr("un altro programma le sta salvando. Riprovare."));
  QByteArray bytes;
  if (!ReadLines(path, bytes))
    throw Error(Texts::tr("il file non può essere letto. Controllarne i permessi."));
  SettingsLines lines(bytes);
  if (const QString former = lines.Value(section, key); !former.isNull() && former == value) return;
  lines.SetValue(section, key, value);
  WriteLines(path, lines.Bytes());
}

}  // namespace

QString ApplicationTitle() { return QCoreApplication::applicationName(); }

QString GetSetting(const QString& application, const QString& section, const QString& key,
                   const QString& fallback) {
  for (const QString& path : {PathOf(application), DeliveredPathOf(application)})
    if (QString value = ValueIn(path, section, key); !value.isNull()) return value;
  return fallback;
}

bool IsSetByUser(const QString& application, const QString& section, const QString& key) {
  return !ValueIn(PathOf(application), section, key).isNull();
}

void SaveSetting(const QString& application, const QString& section, const QString& key,
                 const QString& value) {
  const QString path = PathOf(application);
  try {
    SaveLine(path, section, key, value);
  } catch (const DiskFullError& full) {
    throw DiskFullError(path, full.Cause());
  } catch (const Error& error) {
    throw Error(Texts::tr("Impossibile salvare le impostazioni in %1: %2")
                    .arg(QDir::toNativeSeparators(path), error.Description()));
  }
}

void SetSettingsFolder(const QString& folder) { settingsFolder = folder; }

}  // namespace vorlina
