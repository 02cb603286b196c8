#include "Publication.h"

#include <IVorlinaPlugin.h>

#include <QDir>
#include <QFileInfo>

#include "Crew.h"
#include "PageMark.h"
#include "PublishError.h"
#include "TargetFolder.h"

namespace publishing {
namespace {

QString Told(bool italian, const char* italianText, const char* englishText) {
  return QString::fromUtf8(italian ? italianText : englishText);
}

// The target, when it is a folder to publish into.
QString Checked(const QString& target, IVorlinaConnection& connection, bool italian) {
  RequireSiteFolder(target, QFileInfo(connection.DataSource()).absolutePath(), italian);
  return target;
}

}  // namespace

Publication::Publication(IVorlinaConnection& connection, const VorlinaJob& job, bool italian)
    : connection_(connection),
      target_(Checked(job.target, connection, italian)),
      italian_(italian),
      preview_(job.preview),
      staging_(target_, italian),
      key_(connection, job.IDCatalogo) {}

bool Publication::MayGoOn(const MayReplace& ask) const {
  const Manifest& former = staging_.Former();
  if (former.entries.isEmpty()) {
    RequireNoOtherSite(target_, italian_);
    return true;
  }
  if (former.site == key_.Site()) return true;
  if (ask) return ask(former.title);
  throw About(
      target_, italian_,
      QStringLiteral("La cartella %1 contiene il sito di un altro catalogo. Scegliere un'altra cartella; "
                     "per sostituirlo, pubblicare dal programma Vorlina."),
      QStringLiteral("The folder %1 holds the site of another catalog. Choose another folder; to replace "
                     "it, publish from the program Vorlina."));
}

Publication::File& Publication::Add(Kind kind, const QString& name, const QByteArray& input) {
  if (kind != Kind::Page && !files_.empty()) files_[lastPage_].files += name;
  return files_.emplace_back(File{kind, name, input, 0, {}, {}, {}});
}

void Publication::AddPage(const QString& file, std::size_t page) {
  // Where the first page is lost together with the list of files, the second still tells what came with it.
  QStringList told = pages_++ == 1 ? files_[lastPage_].files : QStringList();
  lastPage_ = files_.size();
  File& added = Add(Kind::Page, file, {});
  added.page = page;
  added.files = std::move(told);
}

void Publication::AddCopy(const QString& file, const QString& source, const QByteArray& stamp) {
  Add(Kind::Copy, file, stamp).source = source;
}

void Publication::AddPicture(const QString& file, const QString& source, const QByteArray& stamp) {
  ++pictures_;
  AddCopy(file, source, stamp);
}

void Publication::AddMade(const QString& file, const QByteArray& stamp, std::function<QByteArray()> make) {
  Add(Kind::Made, file, stamp).make = std::move(make);
}

// The list of files is public, and what they were made from is not.
QByteArray Publication::HiddenInput(const File& file, PageMaker& maker) const {
  const QByteArray input = file.kind == Kind::Page ? maker.LookAt(file.page) : file.input;
  return key_.Digest(key_.Site() + input + '|' + file.files.join(u'|').toUtf8());
}

// Finds the files that are not what they would be made to be. False when the report asked to stop.
bool Publication::Compare(const NewPageMaker& newMaker, const Progress& report,
                          std::vector<const File*>& pending) {
  std::vector<char> current(files_.size(), 0);
  const auto begin = [&]() -> Work {
    return [&, maker = std::shared_ptr<PageMaker>(newMaker())](std::size_t i) {
      files_[i].input = HiddenInput(files_[i], *maker);
      current[i] = staging_.IsCurrent(files_[i].name, files_[i].input);
    };
  };
  if (!DoTogether(files_.size(), begin, report)) return false;
  for (std::size_t i = 0; i < files_.size(); ++i)
    if (current[i] == 0) pending.push_back(&files_[i]);
  return true;
}

ManifestEntry Publication::MakeFile(const File& file, PageMaker& maker) const {
  if (file.kind == Kind::Copy) return staging_.Copy(file.name, file.source, file.input);
  if (file.kind == Kind::Made) return staging_.Write(file.name, file.make().toStdString(), file.input);
  maker.LookAt(file.page);
  std::string page = maker.Make();
  page += PageMark{key_.Site(), file.files}.ToText(page);
  return staging_.Write(file.name, page, file.input);
}

// Makes these files in the staging folder and enters them into the manifest. False when the report asked to
// stop.
bool Publication::MakeFiles(const std::vector<const File*>& pending, const NewPageMaker& newMaker,
                            Manifest& coming, const Progress& report) {
  QStringList made;
  for (const File* file : pending) made += file->name;
  staging_.Begin(made);
  std::vector<ManifestEntry> entries(pending.size());
  const auto begin = [&]() -> Work {
    return [&, maker = std::shared_ptr<PageMaker>(newMaker())](std::size_t i) {
      entries[i] = MakeFile(*pending[i], *maker);
    };
  };
  if (!DoTogether(pending.size(), begin, report)) return false;
  for (std::size_t i = 0; i < entries.size(); ++i) coming.entries.insert(made[qsizetype(i)], entries[i]);
  report(int(pending.size()));
  return true;
}

void Publication::Count(const std::vector<const File*>& pending, const Manifest& coming,
                        VorlinaReport& report) const {
  const auto& former = staging_.Former().entries;
  const auto was = [&](const QString& name) {
    const auto entry = former.constFind(name);
    return entry != former.constEnd() && !entry->IsLeftOver();
  };
  for (const File* file : pending) was(file->name) ? ++report.changed : ++report.added;
  for (auto entry = former.cbegin(); entry != former.cend(); ++entry)
    report.removed += was(entry.key()) && !coming.entries.contains(entry.key()) ? 1 : 0;
  for (const ManifestEntry& entry : coming.entries) report.bytes += entry.file.size;
}

VorlinaReport Publication::Make(const QString& title, const NewPageMaker& newMaker,
                                IVorlinaProgress& progress) {
  VorlinaReport report;
  report.pages = pages_;
  report.pictures = pictures_;
  const auto telling = [&](std::size_t total, const QString& step) -> Progress {
    return [&progress, step, total](int done) { return progress.Report(done, int(total), step); };
  };
  std::vector<const File*> pending;
  const QString comparing = IsAgain() ? Told(italian_, "Confronto con il sito", "Comparing with the site")
                                      : Told(italian_, "Lettura del catalogo", "Reading the catalog");
  if (!Compare(newMaker, telling(files_.size(), comparing), pending)) return report;
  Manifest coming;
  coming.entries.reserve(qsizetype(files_.size()));
  coming.site = key_.Site();
  coming.title = title;
  for (const File& file : files_)
    coming.entries.insert(file.name, staging_.Former().entries.value(file.name));
  if (!pending.empty() || coming.entries.size() != staging_.Former().entries.size()) {
    if (!preview_) key_.Keep(connection_);
    const QString writing = Told(italian_, "Scrittura delle pagine", "Writing the pages");
    if (!MakeFiles(pending, newMaker, coming, telling(pending.size(), writing))) return report;
    const QString left = Told(italian_, "%1 non si è potuto eliminare; la prossima pubblicazione riproverà",
                              "%1 could not be deleted; the next publication will try again");
    Count(pending, coming, report);
    for (const QString& file : staging_.Swap(coming))
      report.notes += {VorlinaNote::Kind::Other, {}, left.arg(QDir::toNativeSeparators(file))};
  } else {
    Count(pending, coming, report);
  }
  report.complete = true;
  return report;
}

}  // namespace publishing
