#include "Manifest.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QSet>
#include <algorithm>
#include <array>
#include <vector>

#include "PageMark.h"

namespace publishing {
namespace {

const QByteArray Head = "Vorlina site manifest 2";
const QByteArray End = "end ";

// Pages are far smaller; a larger file is none of ours.
constexpr qint64 LargestPage = 16 << 20;

// A name inside the folder, and no list of ours.
bool IsInside(const QString& name) {
  const auto refused = [](QChar c) {
    return c.unicode() < 32 || c == u'\\' || c == u':' || c.unicode() == 127;
  };
  if (name == Manifest::FileName() || std::any_of(name.begin(), name.end(), refused)) return false;
  const QStringList parts = name.split(u'/');
  return std::none_of(parts.begin(), parts.end(),
                      [](const QString& part) { return part.isEmpty() || part == u"." || part == u".."; });
}

QByteArray Digest(const QByteArray& text) {
  return QCryptographicHash::hash(text, QCryptographicHash::Sha1).toHex();
}

// A line without its end.
bool ReadEntry(QByteArrayView line, Manifest& manifest) {
  std::array<QByteArray, 3> numbers;
  for (QByteArray& number : numbers) {
    const qsizetype end = line.indexOf('\t');
    if (end < 0) return false;
    number = line.first(end).toByteArray();
    line = line.sliced(end + 1);
  }
  if (line.contains('\t')) return false;
  const QString name = QString::fromUtf8(line);
  manifest.entries.insert(name, {QByteArray::fromHex(numbers[0]),
                                 {numbers[1].toLongLong(), numbers[2].toULongLong(nullptr, 16)}});
  return IsInside(name);
}

// The pages of each site in a folder, and what was published with them.
QMap<QByteArray, QStringList> MarkedFiles(const QString& folder) {
  QMap<QByteArray, QStringList> sites;
  for (const QString& name : QDir(folder).entryList({QStringLiteral("*.html")}, QDir::Files)) {
    QFile file(folder + u'/' + name);
    if (file.size() > LargestPage || !file.open(QIODevice::ReadOnly)) continue;
    if (const auto mark = PageMark::Read(file.readAll()))
      sites[mark->site] += QStringList(name) + mark->files;
  }
  return sites;
}

Manifest FromPages(const QString& folder) {
  Manifest manifest;
  QStringList files;
  const auto sites = MarkedFiles(folder);
  for (auto site = sites.cbegin(); site != sites.cend(); ++site) {
    if (site->size() <= files.size()) continue;
    manifest.site = site.key();
    files = *site;
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
  QList<QByteArray> lines = text.left(end).split('\n');
  if (text.mid(end) != End + Digest(text.left(end)) + '\n' || lines.size() < 3 || lines[0] != Head) return {};
  Manifest manifest;
  const qsizetype blank = lines[1].indexOf('\t');
  manifest.site = lines[1].left(blank);
  manifest.title = QString::fromUtf8(lines[1].mid(blank + 1));
  manifest.entries.reserve(lines.size());
  for (qsizetype i = 2; i < lines.size() - 1; ++i)
    if (!ReadEntry(lines[i], manifest)) return {};
  return manifest;
}

Manifest Manifest::OfFolder(const QString& folder) {
  const auto manifest = Read(folder + u'/' + FileName());
  return manifest ? *manifest : FromPages(folder);
}

QByteArray Manifest::ToText() const {
  std::vector<decltype(entries)::const_iterator> sorted;
  sorted.reserve(std::size_t(entries.size()));
  for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) sorted.push_back(entry);
  std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.key() < b.key(); });
  QByteArray text = Head + '\n' + site + '\t' + title.simplified().toUtf8() + '\n';
  for (const auto& entry : sorted)
    text += entry->input.toHex() + '\t' + QByteArray::number(entry->file.size) + '\t' +
            QByteArray::number(qulonglong(entry->file.content), 16) + '\t' + entry.key().toUtf8() + '\n';
  return text + End + Digest(text) + '\n';
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
