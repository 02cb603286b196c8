#include "Publication.h"

#include <IVorlinaPlugin.h>

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <atomic>
#include <exception>
#include <stdexcept>

#include "Crew.h"
#include "PageMark.h"
#include "PublicationRecord.h"
#include "PublishError.h"
#include "SiteKey.h"
#include "Staging.h"
#include "TargetFolder.h"

namespace publishing {
namespace {

QString Told(bool italian, const char* italianText, const char* englishText) {
  return QString::fromUtf8(italian ? italianText : englishText);
}

constexpr qsizetype ProfileInPages = 8;  // digits, enough to tell the profiles of a catalog apart

QString Name(const QByteArray& digest) { return QString::fromLatin1(digest.toHex()); }

// The target, when it is a folder to publish into.
QString Checked(const QString& target, IVorlinaConnection& connection, bool italian) {
  RequireSiteFolder(target, QFileInfo(connection.DataSource()).absolutePath(), italian);
  return target;
}

}  // namespace

class Publication::Work {
 public:
  enum class Kind { Page, Copy, Made };
  struct File {
    Kind kind = Kind::Page;
    QString name;
    QByteArray stamp;  // of what is no page
    std::size_t page = 0;
    QString source;  // of a copy
    std::function<std::string()> make;
    QStringList files;  // that came with a page
  };

  Work(IVorlinaConnection& connection, const VorlinaJob& job, const QString& plugin, bool italian)
      : connection_(connection),
        job_(job),
        plugin_(plugin),
        italian_(italian),
        staging_(Checked(job.target, connection, italian), italian),
        key_(connection, job.IDCatalogo, plugin) {}

  bool IsAsBefore(const PublicationInputs& inputs, VorlinaReport& report);
  bool MayGoOn(const MayReplace& ask);
  File& Add(Kind kind, const QString& name, const QByteArray& stamp);
  void AddPage(const QString& name, std::size_t page);
  VorlinaReport Make(const QString& title, const NewPageMaker& newMaker, IVorlinaProgress& progress);
  void Remember(const VorlinaReport& report, bool allMade);

  int pictures = 0;
  bool mayGoOn = false;

 private:
  QByteArray HiddenInput(const File& file, PageMaker& maker) const;
  bool IsCurrent(std::size_t file, const QByteArray& input) const;
  ManifestEntry MakeFile(const File& file, const QByteArray& input, PageMaker& maker);
  bool MakeFiles(const NewPageMaker& newMaker, IVorlinaProgress& progress);
  bool MakeOrClear(const NewPageMaker& newMaker, const QString& staged, IVorlinaProgress& progress);
  void Clear(const QString& what, IVorlinaProgress& progress);
  void Count(VorlinaReport& report);

  IVorlinaConnection& connection_;
  const VorlinaJob& job_;
  QString plugin_;
  bool italian_;
  Staging staging_;
  const Manifest* former_ = nullptr;
  SiteKey key_;
  QByteArray site_ = key_.Site().left(8);
  QByteArray profile_ = key_.Digest("profile " + job_.profile.identifier.toUtf8()).toHex();
  std::vector<File> files_;
  QSet<QString> names_;  // theirs
  std::size_t lastPage_ = 0;
  int pages_ = 0;
  std::vector<const ManifestEntry*> was_;             // the files' former entries; null where there is none
  std::vector<std::unique_ptr<ManifestEntry>> made_;  // the entries of those files that came anew
  std::atomic<bool> writes_{false};
  QStringList changes_;  // files that came anew, and that went
  Manifest coming_;

  QString recordFile_;  // empty where nothing is to be remembered
  QByteArray inputs_;
  TargetState before_;
  TargetState::Proven proven_;
};

bool Publication::Work::IsAsBefore(const PublicationInputs& inputs, VorlinaReport& report) {
  if (job_.preview) return false;
  const QString database = connection_.DataSource();
  const QString target = QDir::cleanPath(QFileInfo(job_.target).absoluteFilePath());
  recordFile_ = QFileInfo(database).absolutePath() +
                QStringLiteral("/PubWiz/%1/Published/%2").arg(plugin_, Name(key_.Digest(target.toUtf8())));
  inputs_ = DigestOf(inputs, database, job_);
  const auto record = PublicationRecord::Read(recordFile_);
  const bool isOfSameInputs = record && !inputs_.isEmpty() && inputs_ == record->inputs;
  if (!isOfSameInputs) staging_.ReadFormer();
  before_ = TargetState(job_.target,
                        record ? record->folders : Manifest::Folders(staging_.Former().entries.keys()));
  if (record) proven_ = before_.ProvenBy(*record);
  if (!proven_.IsAll() || !isOfSameInputs) return false;
  report = record->report;
  return true;
}

bool Publication::Work::MayGoOn(const MayReplace& ask) {
  const Manifest& former = staging_.Former();
  if (former.entries.isEmpty()) {
    RequireNoOtherSite(job_.target, italian_);
    return job_.preview || !ask || !HasShownFiles(job_.target) || ask(FormerSite::NoneButFiles, {});
  }
  const bool isOfCatalog = former.site == key_.Site();
  // Sites that tell no profile were published before there was one to tell, and pages tell but its beginning.
  const bool isOwn = isOfCatalog && profile_.startsWith(former.profile);
  if (isOwn || job_.preview) return true;
  if (ask)
    return ask(isOfCatalog ? FormerSite::OfAnotherProfile : FormerSite::OfAnotherCatalog, former.title);
  if (isOfCatalog)
    throw About(
        job_.target, italian_,
        QStringLiteral("La cartella %1 contiene il sito di questo catalogo pubblicato con un altro profilo. "
                       "Scegliere un'altra cartella; per sostituirlo, pubblicare dal programma Vorlina."),
        QStringLiteral("The folder %1 holds this catalog's site as published with another profile. Choose "
                       "another folder; to replace it, publish from the program Vorlina."));
  throw About(
      job_.target, italian_,
      QStringLiteral("La cartella %1 contiene il sito di un altro catalogo. Scegliere un'altra cartella; "
                     "per sostituirlo, pubblicare dal programma Vorlina."),
      QStringLiteral("The folder %1 holds the site of another catalog. Choose another folder; to replace "
                     "it, publish from the program Vorlina."));
}

Publication::Work::File& Publication::Work::Add(Kind kind, const QString& name, const QByteArray& stamp) {
  if (names_.contains(name))
    throw std::logic_error("the file \"" + name.toStdString() + "\" was added twice");
  names_.insert(name);
  if (kind != Kind::Page && !files_.empty()) files_[lastPage_].files += name;
  return files_.emplace_back(File{kind, name, stamp, 0, {}, {}, {}});
}

void Publication::Work::AddPage(const QString& name, std::size_t page) {
  // Where the first page is lost together with the list of files, the second still tells what came with it.
  QStringList told = pages_++ == 1 ? files_[lastPage_].files : QStringList();
  lastPage_ = files_.size();
  File& added = Add(Kind::Page, name, {});
  added.page = page;
  added.files = std::move(told);
}

// The list of files is public, and what they were made from is not.
QByteArray Publication::Work::HiddenInput(const File& file, PageMaker& maker) const {
  const QByteArray input = file.kind == Kind::Page ? maker.LookAt(file.page) : file.stamp;
  const QByteArray all = input + '|' + file.files.join(u'|').toUtf8() +
                         (file.kind == Kind::Page ? '|' + profile_.left(ProfileInPages) : QByteArray());
  // Short, as the digest is the slow part.
  return key_.Digest(
      QByteArray::number(qulonglong(Fingerprint({all.constData(), std::size_t(all.size())})), 36) + site_);
}

bool Publication::Work::IsCurrent(std::size_t file, const QByteArray& input) const {
  const ManifestEntry* was = was_[file];
  if (was == nullptr || was->input != input) return false;
  return proven_.Has(files_[file].name) || staging_.IsAsIn(files_[file].name, *was);
}

ManifestEntry Publication::Work::MakeFile(const File& file, const QByteArray& input, PageMaker& maker) {
  writes_ = true;
  staging_.MakeRoom(file.name);
  if (file.kind == Kind::Copy) return staging_.Copy(file.name, file.source, input);
  if (file.kind == Kind::Made) return staging_.Write(file.name, file.make(), input);
  std::string page = maker.Make();
  page += PageMark{key_.Site(), profile_.left(ProfileInPages), file.files}.ToText(page);
  return staging_.Write(file.name, page, input);
}

// Makes the files that are not what they would be made to be. False when the progress asked to stop.
bool Publication::Work::MakeFiles(const NewPageMaker& newMaker, IVorlinaProgress& progress) {
  made_.resize(files_.size());
  was_.resize(files_.size());
  const auto begin = [&]() -> publishing::Work {
    return [this, maker = std::shared_ptr<PageMaker>(newMaker())](std::size_t i) {
      const QByteArray input = HiddenInput(files_[i], *maker);
      const auto was = former_->entries.constFind(files_[i].name);
      was_[i] = was == former_->entries.constEnd() ? nullptr : &*was;
      if (!IsCurrent(i, input))
        made_[i] = std::make_unique<ManifestEntry>(MakeFile(files_[i], input, *maker));
    };
  };
  const QString comparing = Told(italian_, "Confronto con il sito", "Comparing with the site");
  const QString writing = Told(italian_, "Scrittura delle pagine", "Writing the pages");
  const auto report = [&](int done) {
    return progress.Report(done, int(files_.size()), writes_ ? writing : comparing);
  };
  if (!DoTogether(files_.size(), begin, report)) return false;
  report(int(files_.size()));
  return true;
}

void Publication::Work::Clear(const QString& what, IVorlinaProgress& progress) {
  staging_.Clear([&](int done, int all) { progress.Report(done, all, what); });
}

// What was staged for nothing goes while the progress shows so.
bool Publication::Work::MakeOrClear(const NewPageMaker& newMaker, const QString& staged,
                                    IVorlinaProgress& progress) {
  std::exception_ptr failure;
  try {
    if (MakeFiles(newMaker, progress)) return true;
  } catch (...) {
    failure = std::current_exception();
  }
  Clear(staged, progress);
  if (failure) std::rethrow_exception(failure);
  return false;
}

// Settles what will be there, and tells what it is against what was.
void Publication::Work::Count(VorlinaReport& report) {
  const auto& former = former_->entries;
  coming_.entries = former;
  coming_.entries.reserve(qsizetype(files_.size()));
  for (std::size_t i = 0; i < files_.size(); ++i) {
    const ManifestEntry& entry = made_[i] ? *made_[i] : *was_[i];
    report.bytes += entry.file.size;
    if (!made_[i]) continue;
    was_[i] != nullptr && !was_[i]->IsLeftOver() ? ++report.changed : ++report.added;
    changes_ += files_[i].name;
    coming_.entries.insert(files_[i].name, entry);
  }
  if (coming_.entries.size() == qsizetype(files_.size())) return;
  for (auto entry = former.cbegin(); entry != former.cend(); ++entry)
    if (!names_.contains(entry.key())) {
      report.removed += entry->IsLeftOver() ? 0 : 1;
      changes_ += entry.key();
      coming_.entries.remove(entry.key());
    }
}

VorlinaReport Publication::Work::Make(const QString& title, const NewPageMaker& newMaker,
                                      IVorlinaProgress& progress) {
  if (!mayGoOn) throw std::logic_error("Make was called without MayGoOn, or against it");
  const QString staged = Told(italian_, "Eliminazione dei file preparati", "Deleting the prepared files");
  Clear(staged, progress);  // of a run that was killed
  staging_.Respell(names_);
  former_ = &staging_.Former();
  VorlinaReport report;
  report.pages = pages_;
  report.pictures = pictures;
  // The key comes first: what is known by it must never be without it.
  if (!job_.preview && !key_.Keep(connection_))
    throw std::runtime_error(
        Told(
            italian_,
            "Il catalogo si sta pubblicando per la prima volta anche altrove. Attendere la fine e riprovare.",
            "The catalog is being published for the first time elsewhere too. Wait for the end and try "
            "again.")
            .toStdString());
  if (!MakeOrClear(newMaker, staged, progress)) return report;
  coming_.site = key_.Site();
  coming_.title = title;
  coming_.profile = profile_;
  Count(report);
  if (!changes_.isEmpty() || former_->profile != profile_) {
    const QString left = Told(italian_, "%1 non si è potuto eliminare; la prossima pubblicazione riproverà",
                              "%1 could not be deleted; the next publication will try again");
    for (const QString& file : staging_.Swap(coming_)) {
      inputs_.clear();
      report.notes += {VorlinaNote::Kind::Other, {}, left.arg(QDir::toNativeSeparators(file))};
    }
    Clear(Told(italian_, "Eliminazione dei file di prima", "Deleting the former files"), progress);
  }
  report.complete = true;
  return report;
}

void Publication::Work::Remember(const VorlinaReport& report, bool allMade) {
  if (!before_.IsKnown() || !report.complete) return;
  if (!allMade) inputs_.clear();
  PublicationRecord record;
  record.start = StartOfComputer();
  record.folders = Manifest::Folders(coming_.entries.keys());
  record.inputs = inputs_;
  record.report = report;
  record.report.added = record.report.changed = record.report.removed = 0;
  before_.Enter(record, job_.target, changes_);
  record.Write(recordFile_);
}

Publication::Publication(IVorlinaConnection& connection, const VorlinaJob& job, const QString& plugin,
                         bool italian)
    : work_(std::make_unique<Work>(connection, job, plugin, italian)) {}

Publication::~Publication() = default;

bool Publication::IsAsBefore(const PublicationInputs& inputs, VorlinaReport& report) {
  return work_->IsAsBefore(inputs, report);
}

bool Publication::MayGoOn(const MayReplace& ask) {
  work_->mayGoOn = work_->MayGoOn(ask);
  return work_->mayGoOn;
}

void Publication::AddPage(const QString& file, std::size_t page) { work_->AddPage(file, page); }

void Publication::AddCopy(const QString& file, const QString& source, const QByteArray& stamp) {
  work_->Add(Work::Kind::Copy, file, stamp).source = source;
}

void Publication::AddPicture(const QString& file, const QString& source, const QByteArray& stamp) {
  ++work_->pictures;
  AddCopy(file, source, stamp);
}

void Publication::AddMade(const QString& file, const QByteArray& stamp, std::function<std::string()> make) {
  work_->Add(Work::Kind::Made, file, stamp).make = std::move(make);
}

VorlinaReport Publication::Make(const QString& title, const NewPageMaker& newMaker,
                                IVorlinaProgress& progress) {
  return work_->Make(title, newMaker, progress);
}

void Publication::Remember(const VorlinaReport& report, bool allMade) { work_->Remember(report, allMade); }

}  // namespace publishing
