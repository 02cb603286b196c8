#include "HelpSource.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace vorlina {
namespace {

QByteArray ContentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

HelpEntry EntryOf(const QJsonObject& object) {
  HelpEntry entry{object[u"name"_qs].toString(), object[u"topic"_qs].toInt(), {}};
  for (const QJsonValue& window : object[u"windows"_qs].toArray()) entry.windows += window.toString();
  return entry;
}

// What is in a list more than once.
QStringList Twins(QStringList list) {
  QStringList twins;
  list.sort();
  for (qsizetype i = 1; i < list.size(); ++i)
    if (list[i] == list[i - 1] && !twins.contains(list[i])) twins += list[i];
  return twins;
}

}  // namespace

HelpSource::HelpSource(const QString& folder) : folder_(folder) {
  ReadContents();
  ReadPages();
}

void HelpSource::ReadContents() {
  QJsonParseError error;
  const QJsonDocument contents = QJsonDocument::fromJson(ContentOf(folder_ + u"/help.json"_qs), &error);
  if (error.error != QJsonParseError::NoError) faults_ += u"help.json: "_qs + error.errorString();
  for (const QJsonValue& each : contents[u"sections"_qs].toArray()) {
    HelpSection section;
    for (const QString& language : HelpLanguages) {
      section.titles[language] = each[u"title"_qs][language].toString();
      if (section.titles[language].isEmpty())
        faults_ += u"help.json: section %1 has no title in \"%2\""_qs.arg(sections_.size() + 1).arg(language);
    }
    for (const QJsonValue& page : each[u"pages"_qs].toArray())
      section.entries.push_back(EntryOf(page.toObject()));
    if (section.entries.empty())
      faults_ += u"help.json: section %1 has no pages"_qs.arg(sections_.size() + 1);
    sections_.push_back(section);
  }
}

void HelpSource::ReadPages() {
  for (const HelpEntry& entry : Entries())
    for (const QString& language : HelpLanguages) {
      const QString file = language + u'/' + entry.name + u".html"_qs;
      if (QFile::exists(folder_ + u'/' + file))
        pages_[{language, entry.name}] = ReadHelpPage(QString::fromUtf8(ContentOf(folder_ + u'/' + file)));
      else
        faults_ += file + u": there is no such page"_qs;
    }
}

std::vector<HelpEntry> HelpSource::Entries() const {
  std::vector<HelpEntry> all;
  for (const HelpSection& section : sections_)
    all.insert(all.end(), section.entries.begin(), section.entries.end());
  return all;
}

QStringList HelpSource::Pictures(const QString& language) const {
  QStringList names;
  for (const auto& [key, page] : pages_)
    if (key.first == language)
      for (const QString& picture : page.pictures) names += picture.section(u'/', -1).chopped(4);
  names.removeDuplicates();
  names.sort();
  return names;
}

QStringList HelpSource::Problems(const QStringList& windows) const {
  QStringList problems = faults_;
  CheckNames(windows, problems);
  for (const auto& [key, page] : pages_) CheckPage(key.first, key.second, problems);
  CheckStrays(problems);
  CheckStyle(problems);
  return problems;
}

void HelpSource::CheckNames(const QStringList& windows, QStringList& problems) const {
  static const QRegularExpression plain(u"^[a-z0-9-]+$"_qs);
  QStringList names, topics, shown;
  for (const HelpEntry& entry : Entries()) {
    names += entry.name;
    if (entry.topic != 0) topics += QString::number(entry.topic);
    shown += entry.windows;
    if (!plain.match(entry.name).hasMatch())
      problems += u"help.json: \"%1\" is no name for a page"_qs.arg(entry.name);
  }
  for (const QString& twin : Twins(names)) problems += u"help.json: two pages are called "_qs + twin;
  for (const QString& twin : Twins(topics)) problems += u"help.json: two pages have the topic "_qs + twin;
  for (const QString& twin : Twins(shown)) problems += u"help.json: two pages have the window "_qs + twin;
  for (const QString& window : windows)
    if (!shown.contains(window)) problems += u"help.json: no page has the window "_qs + window;
}

void HelpSource::CheckPage(const QString& language, const QString& name, QStringList& problems) const {
  const HelpPage& page = Page(language, name);
  const QString file = language + u'/' + name + u".html: "_qs;
  for (const QString& fault : page.faults) problems += file + fault;
  for (const QString& link : page.links)
    if (const QString fault = LinkFault(language, name, link); !fault.isEmpty()) problems += file + fault;
  static const QRegularExpression picture(u"^pictures/[\\w-]+\\.png$"_qs);
  for (const QString& path : page.pictures)
    if (!picture.match(path).hasMatch())
      problems += file + u"a picture is \"pictures/NAME.png\", not "_qs + path;
  const auto other = pages_.find({HelpLanguages.front(), name});
  if (language == HelpLanguages.front() || other == pages_.end()) return;
  if (other->second.anchors != page.anchors) problems += file + u"the anchors are others than in Italian"_qs;
  if (other->second.headings != page.headings)
    problems +=
        file + u"there are %1 headings, and %2 in Italian"_qs.arg(page.headings).arg(other->second.headings);
}

QString HelpSource::LinkFault(const QString& language, const QString& page, const QString& link) const {
  static const QRegularExpression outside(u"^(https?://|mailto:)"_qs);
  if (outside.match(link).hasMatch()) return {};
  const QString file = link.section(u'#', 0, 0), anchor = link.section(u'#', 1);
  if (!file.isEmpty() && !file.endsWith(u".html")) return u"the link to %1 leads nowhere"_qs.arg(link);
  const auto target = pages_.find({language, file.isEmpty() ? page : file.chopped(5)});
  if (target == pages_.end()) return u"the link to %1 leads to no page"_qs.arg(link);
  if (!anchor.isEmpty() && !target->second.anchors.contains(anchor))
    return u"the link to %1 leads to no anchor"_qs.arg(link);
  return {};
}

// Pages that the contents do not name.
void HelpSource::CheckStrays(QStringList& problems) const {
  for (const QString& language : HelpLanguages)
    for (const QString& file :
         QDir(folder_ + u'/' + language).entryList({u"*.html"_qs}, QDir::Files, QDir::Name))
      if (!pages_.contains({language, file.chopped(5)}))
        problems += u"%1/%2: help.json does not name it"_qs.arg(language, file);
}

// Letters of a fixed size would not follow the reader's.
void HelpSource::CheckStyle(QStringList& problems) const {
  static const QRegularExpression fixed(u"font(-size)?:[^;}]*\\d(px|pt)"_qs);
  const QString style = QString::fromUtf8(ContentOf(folder_ + u"/help.css"_qs));
  if (style.isEmpty()) problems += u"help.css: it is not there"_qs;
  if (const auto found = fixed.match(style); found.hasMatch())
    problems += u"help.css: a fixed size of letters: "_qs + found.captured();
}

QStringList WindowsBelow(const QString& folder) {
  QStringList names;
  for (QDirIterator forms(folder, {u"frm*.ui"_qs}, QDir::Files, QDirIterator::Subdirectories);
       forms.hasNext();) {
    forms.next();
    names += forms.fileInfo().baseName();
  }
  names.sort();
  return names;
}

}  // namespace vorlina
