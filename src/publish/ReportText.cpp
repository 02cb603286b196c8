#include "publish/ReportText.h"

#include <QDir>
#include <QLocale>
#include <algorithm>

#include "base/Helpers.h"
#include "base/Texts.h"

namespace vorlina {
namespace {

using Kind = VorlinaNote::Kind;

constexpr std::pair<Kind, const char*> Kinds[] = {
    {Kind::NoPicture, QT_TRANSLATE_NOOP("Texts", "Senza immagine")},
    {Kind::NoDescription, QT_TRANSLATE_NOOP("Texts", "Senza descrizione")},
    {Kind::DoubleOrder, QT_TRANSLATE_NOOP("Texts", "Con un numero d'ordine doppio")},
    {Kind::Picture, QT_TRANSLATE_NOOP("Texts", "Con un'immagine che non si può pubblicare")},
    {Kind::Other, QT_TRANSLATE_NOOP("Texts", "Altro")},
};

QString CommonText(const std::vector<ReportLine>& lines) {
  const auto isOther = [&](const ReportLine& line) { return line.text != lines.front().text; };
  const bool isCommon = lines.size() > 1 && std::none_of(lines.begin(), lines.end(), isOther);
  return isCommon ? lines.front().text : QString();
}

}  // namespace

QString NumbersOf(const VorlinaReport& report) {
  const QLocale locale;
  return Texts::tr("Pagine: %1. Immagini: %2. In tutto: %3.")
      .arg(locale.toString(report.pages), locale.toString(report.pictures),
           locale.formattedDataSize(report.bytes));
}

QString ChangesOf(const VorlinaReport& report) {
  const QLocale locale;
  if (report.added + report.changed + report.removed == 0)
    return Texts::tr("Non è cambiato nulla rispetto a ciò che c'era.");
  return Texts::tr("File nuovi: %1, cambiati: %2, tolti: %3.")
      .arg(locale.toString(report.added), locale.toString(report.changed), locale.toString(report.removed));
}

std::vector<ReportGroup> GroupsOf(const VorlinaReport& report, const QHash<QString, QString>& names) {
  std::vector<ReportGroup> groups;
  for (const auto& [kind, title] : Kinds) {
    ReportGroup group{Texts::tr(title), {}, {}};
    for (const VorlinaNote& note : report.notes)
      if (note.kind == kind)
        group.lines.push_back({note.product, names.value(note.product), OneLine(note.text)});
    if (group.lines.empty()) continue;
    group.text = CommonText(group.lines);
    groups.push_back(std::move(group));
  }
  return groups;
}

QString HeadOf(const ReportGroup& group) {
  const QString head = u"%1: %2"_qs.arg(group.title, QLocale().toString(qlonglong(group.lines.size())));
  return group.text.isEmpty() ? head : head + u". "_qs + group.text;
}

QString PlainReport(const VorlinaReport& report, const QString& what, const QString& target,
                    const std::vector<ReportGroup>& groups) {
  QStringList lines{what, QDir::toNativeSeparators(target), NumbersOf(report), ChangesOf(report)};
  for (const ReportGroup& group : groups) {
    lines += QStringList{{}, HeadOf(group)};
    for (const ReportLine& line : group.lines) {
      QStringList columns{OneLine(line.code), line.name};
      if (group.text.isEmpty()) columns += line.text;
      lines += columns.join(u'\t');
    }
  }
  return lines.join(u"\r\n"_qs);
}

}  // namespace vorlina
