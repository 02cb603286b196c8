#include "Manifest.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QSet>
#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "PageMark.h"

namespace publishing {
namespace {

const QByteArray Head = "Vorlina site manifest 2";
const QByteArray End = "end ";

constexpr qsizetype UsualLine = 80;

// A name inside the folder, and no list of ours.
bool IsInside(const QString& name) {
  const auto refused = [](QChar c) {
    return c.unicode() < 32 || c == u'\\' || c == u':' || c.unicode() == 127;
  };
  if (name == Manifest::FileName() || std::any_of(name.begin(), name.end(), refused)) return false;
  const QStringView whole(name);
  for (qsizetype at = 0; at <= whole.size();) {
    const qsizetype end = whole.indexOf(u'/', at) < 0 ? whole.size() : whole.indexOf(u'/', at);
    const QStringView part = whole.sliced(at, end - at);
    if (part.isEmpty() || part == u"." || part == u"..") return false;
    at = end + 1;
  }
  return true;
}

QByteArray Digest(QByteArrayView text) {
  return QCryptographicHash::hash(text, QCryptographicHash::Sha1).toHex();
}

// A line without its end.
bool ReadEntry(QByteArrayView line, Manifest& manifest) {
  std::array<QByteArrayView, 3> numbers;
  for (QByteArrayView& number : numbers) {
    const qsizetype end = line.indexOf('\t');
    if (end < 0) return false;
    number = line.first(end);
    line = line.sliced(end + 1);
  }
  if (line.contains('\t')) return false;
  const QString name = QString::fromUtf8(line);
  ManifestEntry entry;
  entry.input = QByteArray::fromHex(QByteArray::fromRawData(numbers[0].data(), numbers[0].size()));
  std::from_chars(numbers[1].begin(), numbers[1].end(), entry.file.size);
  std::from_chars(numbers[2].begin(), numbers[2].end(), entry.file.content, 16);
  manifest.entries.insert(name, entry);
  return IsInside(name);
}

// The line that begins here, without its end, which the text has.
QByteArrayView LineAt(const QByteArray& text, qsizetype begin) {
  return QByteArrayView(text).sliced(begin, text.indexOf('\n', begin) - begin);
}

struct MarkedSite {
  QByteArray profile;
  QStringList files;
};

// The pages of each site in a folder, and what was published with them.
QMap<QByteArray, MarkedSite> MarkedFiles(const QString& folder) {
  QMap<QByteArray, MarkedSite> sites;
  for (const QString& name : QDir(folder).entryList({QStringLiteral("*.html")}, QDir::Files)) {
    QFile file(folder + u'/' + name);
    if (file.size() > LargestPage || !file.open(QIODevice::ReadOnly)) continue;
    if (const auto mark = PageMark::Read(file.readAll())) {
      sites[mark->site].profile = mark->profile;
      sites[mark->site].files += QStringList(name) + mark->files;
    }
  }
  return sites;
}

Manifest FromPages(const QString& folder) {
  Manifest manifest;
  QStringList files;
  const auto sites = MarkedFiles(folder);
  for (auto site = sites.cbegin(); site != sites.cend(); ++site) {
    if (site->files.size() <= files.size()) continue;
    manifest.site = site.key();
    manifest.profile = site->profile;
    files = site->files;
  }
  for (const QString& file : files)
    if (IsInside(file) && QFileInfo(folder + u'/' + file).isFile()) manifest.entries.insert(file, {});
  return manifest;
}

}  // namespace

QString Manifest::FileName() { return QStringLiteral("vorlina-manifest.txt"); }

std::optional<Manifest> Manifest::Read(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QByteArray text = file.readAll();
  const qsizetype end = text.lastIndexOf('\n', text.size() - 2) + 1;
  if (text.mid(end) != End + Digest(QByteArrayView(text).first(end)) + '\n' ||
      !text.startsWith(QByteArray(Head + '\n')))
    return {};
  Manifest manifest;
  const qsizetype second = Head.size() + 1;
  if (second >= end) return {};
  const QByteArray about = LineAt(text, second).toByteArray();
  const QList<QByteArray> parts = about.split('\t');
  manifest.site = parts.value(0);
  manifest.title = QString::fromUtf8(parts.value(1));
  manifest.profile = parts.value(2);
  manifest.entries.reserve(text.size() / UsualLine);
  for (qsizetype at = second + about.size() + 1; at < end;) {
    const QByteArrayView line = LineAt(text, at);
    if (!ReadEntry(line, manifest)) return {};
    at += line.size() + 1;
  }
  return manifest;
}

Manifest Manifest::OfFolder(const QString& folder) {
  auto manifest = Read(folder + u'/' + FileName());
  if (!manifest) return FromPages(folder);
  manifest->isKept = true;
  return *std::move(manifest);
}

QByteArray Manifest::ToText() const {
  std::vector<decltype(entries)::const_iterator> sorted;
  sorted.reserve(std::size_t(entries.size()));
  for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) sorted.push_back(entry);
  std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.key() < b.key(); });
  QByteArray text;
  text.reserve((qsizetype(sorted.size()) + 2) * UsualLine);
  text += Head + '\n' + site + '\t' + title.simplified().toUtf8();
  if (!profile.isEmpty()) text += '\t' + profile;
  text += '\n';
  for (const auto& entry : sorted)
    text += entry->input.toHex() + '\t' + QByteArray::number(entry->file.size) + '\t' +
            QByteArray::number(qulonglong(entry->file.content), 16) + '\t' + entry.key().toUtf8() + '\n';
  text += End + Digest(text) + '\n';
  return text;
}

QStringList Manifest::Folders(const QStringList& files) {
  QSet<QString> folders;
  for (const QString& file : files)
    for (qsizetype at = file.lastIndexOf(u'/'); at > 0; at = file.lastIndexOf(u'/', at - 1)) {
      const qsizetype known = folders.size();
      folders.insert(file.left(at));
      if (folders.size() == known) break;
    }
  QStringList sorted(folders.begin(), folders.end());
  std::sort(sorted.begin(), sorted.end());
  return sorted;
}

}  // namespace publishing
