#include "SitePublisher.h"

#include <QDir>
#include <QFileInfo>
#include <future>
#include <memory>
#include <optional>

#include "Crew.h"
#include "PageData.h"
#include "PageMark.h"
#include "PublishError.h"
#include "Staging.h"
#include "TargetFolder.h"
#include "TargetMemory.h"

namespace vlhtml {
namespace {

// A file of the site: a page that is rendered, or a copy of a source.
struct Task {
  QString file;
  QByteArray input;
  Page page;
  QString source;     // "" for a page
  QStringList files;  // that were published with the page
};

// The pages, each followed by the files that are published with it. What a page is made from is left open.
std::vector<Task> Tasks(const SitePlan& plan, const Skin& skin) {
  std::vector<Task> tasks;
  std::size_t last = 0;
  const auto addPage = [&](const QString& file, const Page& page) {
    last = tasks.size();
    tasks.push_back({file, {}, page, {}, {}});
  };
  const auto addCopy = [&](const QString& file, const QByteArray& input, const QString& source) {
    tasks[last].files += file;
    tasks.push_back({file, input, {}, source, {}});
  };
  const auto addPicture = [&](const PlannedPicture& picture) {
    addCopy(picture.file, picture.stamp, picture.source);
    if (picture.smallFile != picture.file)
      addCopy(picture.smallFile, picture.smallStamp, picture.smallSource);
  };
  const auto addList = [&](const PlannedList& list) {
    const PageKind kind = list.filter > 0 ? PageKind::Filter : PageKind::Index;
    for (int page = 1; page <= list.Pages(); ++page) addPage(list.PageFile(page), {kind, &list, page});
  };
  addPage(QStringLiteral("index.html"), {PageKind::Home, nullptr, 0});
  for (const PlannedPicture& picture : plan.logo) addPicture(picture);
  for (const Skin::File& file : skin.StaticFiles())
    addCopy(file.name, file.hash, skin.Folder() + u'/' + file.name);
  // Where the home page is lost together with the list of files, this one still tells what came with it.
  const std::size_t next = tasks.size();
  addList(plan.all);
  tasks[next].files = tasks[0].files;
  for (const PlannedList& list : plan.filters) addList(list);
  for (std::size_t i = 0; i < plan.products.size(); ++i) {
    const PlannedProduct& product = plan.products[i];
    addPage(product.file, {PageKind::Product, nullptr, int(i)});
    for (const PlannedPicture& picture : product.pictures) addPicture(picture);
  }
  return tasks;
}

// The list of files is public, and what files were made from is not.
QByteArray HiddenInput(const Task& task, const PageData& pages, const SiteKey& key) {
  const QByteArray input = task.source.isEmpty() ? pages.InputOf(task.page) : task.input;
  return key.Digest(key.Site() + input + '|' + task.files.join(u'|').toUtf8());
}

// Makes files of the site, on one thread.
class Builder {
 public:
  Builder(const Staging& staging, const PageData& pages, QByteArray site, const QString& skin, bool italian)
      : staging_(staging), pages_(pages), site_(std::move(site)), skin_(skin, italian) {}

  ManifestEntry Make(const Task& task) {
    if (!task.source.isEmpty()) return staging_.Copy(task.file, task.source, task.input);
    std::string page = skin_.Render(task.page.kind, pages_.Site(), pages_.ContentOf(task.page));
    page += PageMark{site_, task.files}.ToText(page);
    return staging_.Write(task.file, page, task.input);
  }

 private:
  const Staging& staging_;
  const PageData& pages_;
  QByteArray site_;
  Skin skin_;
};

QString Told(bool italian, const char* italianText, const char* englishText) {
  return QString::fromUtf8(italian ? italianText : englishText);
}

// Whether a site of this name may go into the folder.
bool MayTake(const QString& folder, const Manifest& former, const QByteArray& site, bool italian,
             const MayReplace& mayReplace) {
  if (former.entries.isEmpty()) {
    RequireNoOtherSite(folder, italian);
    return true;
  }
  if (former.site == site) return true;
  if (mayReplace) return mayReplace(former.title);
  throw About(
      folder, italian,
      QStringLiteral("La cartella %1 contiene il sito di un altro catalogo. Scegliere un'altra cartella; "
                     "per sostituirlo, pubblicare dal programma Vorlina."),
      QStringLiteral("The folder %1 holds the site of another catalog. Choose another folder; to replace "
                     "it, publish from the program Vorlina."));
}

// The tasks whose files are not what they would be made to be, with their inputs.
std::optional<std::vector<const Task*>> Pending(std::vector<Task>& tasks, const PageData& pages,
                                                const SiteKey& key, const Staging& staging,
                                                const std::function<bool(int)>& report) {
  std::vector<char> current(tasks.size(), 0);
  const auto look = [&](std::size_t i) {
    tasks[i].input = HiddenInput(tasks[i], pages, key);
    current[i] = staging.IsCurrent(tasks[i].file, tasks[i].input);
  };
  const auto begin = [&]() -> Work { return look; };
  if (!DoTogether(tasks.size(), begin, report)) return {};
  std::vector<const Task*> pending;
  for (std::size_t i = 0; i < tasks.size(); ++i)
    if (current[i] == 0) pending.push_back(&tasks[i]);
  return pending;
}

// Makes these files in the staging folder and enters them into the manifest. False when the report asked to
// stop.
bool Build(const std::vector<const Task*>& pending, Staging& staging,
           const std::function<std::shared_ptr<Builder>()>& newBuilder, Manifest& coming,
           const std::function<bool(int)>& report) {
  QStringList made;
  for (const Task* task : pending) made += task->file;
  staging.Begin(made);
  std::vector<ManifestEntry> entries(pending.size());
  const auto begin = [&]() -> Work {
    return [&, builder = newBuilder()](std::size_t i) { entries[i] = builder->Make(*pending[i]); };
  };
  if (!DoTogether(pending.size(), begin, report)) return false;
  for (std::size_t i = 0; i < entries.size(); ++i) coming.entries.insert(made[qsizetype(i)], entries[i]);
  report(int(pending.size()));
  return true;
}

}  // namespace

PublishResult PublishSite(IVorlinaConnection& connection, int IDCatalogo, const QString& folder,
                          const QString& skinFolder, const Languages& languages, IVorlinaProgress& progress,
                          const MayReplace& mayReplace) {
  const bool italian = languages.italian;
  PublishResult result;
  const QString application = QFileInfo(connection.DataSource()).absolutePath();
  RequireSiteFolder(folder, application, italian);
  Staging staging(folder, italian);
  const SiteKey key(connection, IDCatalogo);
  if (!MayTake(folder, staging.Former(), key.Site(), italian, mayReplace)) return result;
  const QString reading = Told(italian, "Lettura del catalogo", "Reading the catalog");
  if (!progress.Report(0, 1, reading)) return result;
  CatalogSnapshot catalog = ReadSnapshot(connection, IDCatalogo, italian);
  // The files are looked at while the longest table is read.
  auto planned =
      std::async([&] { return SitePlan(catalog, application + QStringLiteral("/Images"), languages); });
  ReadFeatures(connection, IDCatalogo, catalog);
  const SitePlan plan = planned.get();
  const Skin skin(skinFolder, italian);
  const PageData pages(plan, skin, languages.siteItalian);
  std::vector<Task> tasks = Tasks(plan, skin);
  result.warnings = plan.warnings;

  const QString comparing = staging.Former().entries.isEmpty()
                                ? reading
                                : Told(italian, "Confronto con il sito", "Comparing with the site");
  const auto pending = Pending(tasks, pages, key, staging,
                               [&](int done) { return progress.Report(done, int(tasks.size()), comparing); });
  if (!pending) return result;
  Manifest coming;
  coming.entries.reserve(qsizetype(tasks.size()));
  coming.site = key.Site();
  coming.title = QString::fromStdString(catalog.title.empty() ? catalog.name : catalog.title);
  for (const Task& task : tasks) {
    result.pages += task.source.isEmpty() ? 1 : 0;
    coming.entries.insert(task.file, staging.Former().entries.value(task.file));
  }
  result.written = int(pending->size());
  result.complete = true;
  if (pending->empty() && coming.entries.size() == staging.Former().entries.size()) return result;
  key.Keep(connection);
  const auto begin = [&] {
    return std::make_shared<Builder>(staging, pages, key.Site(), skinFolder, italian);
  };
  result.complete = Build(*pending, staging, begin, coming, [&](int done) {
    return progress.Report(done, result.written,
                           Told(italian, "Scrittura delle pagine", "Writing the pages"));
  });
  if (!result.complete) return result;
  const QString left = Told(italian, "%1 non si è potuto eliminare; la prossima pubblicazione riproverà",
                            "%1 could not be deleted; the next publication will try again");
  for (const QString& file : staging.Swap(coming))
    result.warnings += left.arg(QDir::toNativeSeparators(file));
  return result;
}

}  // namespace vlhtml
