#include "SitePublisher.h"

#include <atomic>
#include <exception>
#include <mutex>
#include <thread>

#include "PageData.h"
#include "Staging.h"

namespace vlhtml {
namespace {

// A file of the site: a page that is rendered, or a copy of a source.
struct Task {
  QString file;
  QByteArray input;
  Page page;
  QString source;  // "" for a page
};

std::vector<Task> Tasks(const SitePlan& plan, const PageData& pages, const Skin& skin) {
  std::vector<Task> tasks;
  const auto addPage = [&](const QString& file, const Page& page) {
    tasks.push_back({file, pages.InputOf(page), page, {}});
  };
  const auto addList = [&](const PlannedList& list) {
    const PageKind kind = list.filter > 0 ? PageKind::Filter : PageKind::Index;
    for (int page = 1; page <= list.Pages(); ++page) addPage(list.PageFile(page), {kind, &list, page});
  };
  const auto addPicture = [&](const PlannedPicture& picture) {
    tasks.push_back({picture.file, picture.stamp, {}, picture.source});
    if (picture.smallFile != picture.file)
      tasks.push_back({picture.smallFile, picture.smallStamp, {}, picture.smallSource});
  };
  addPage(QStringLiteral("index.html"), {PageKind::Home, nullptr, 0});
  addList(plan.all);
  for (const PlannedList& list : plan.filters) addList(list);
  for (std::size_t i = 0; i < plan.products.size(); ++i) {
    const PlannedProduct& product = plan.products[i];
    addPage(product.file, {PageKind::Product, nullptr, int(i)});
    for (const PlannedPicture& picture : product.pictures) addPicture(picture);
  }
  for (const PlannedPicture& picture : plan.logo) addPicture(picture);
  for (const Skin::File& file : skin.StaticFiles())
    tasks.push_back({file.name, file.hash, {}, skin.Folder() + u'/' + file.name});
  return tasks;
}

// Makes the files that are not current, on as many threads as there are processors, while this one reports.
class Builder {
 public:
  Builder(const Staging& staging, const PageData& pages, const QString& skin, bool italian)
      : staging_(staging), pages_(pages), skin_(skin), italian_(italian) {}

  // False when the progress asked to stop. Throws what a thread threw.
  bool Build(const std::vector<const Task*>& tasks, std::vector<ManifestEntry>& entries,
             IVorlinaProgress& progress, const QString& step) {
    if (!progress.Report(0, int(tasks.size()), step)) return false;
    std::vector<std::thread> threads;
    const std::size_t count = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, 4);
    for (std::size_t i = 0; i < std::min(count, tasks.size()); ++i)
      threads.emplace_back([&] { Work(tasks, entries); });
    const auto total = int(tasks.size());
    while (done_ < total && !stop_) {
      if (!progress.Report(done_, total, step)) stop_ = cancelled_ = true;
      std::this_thread::sleep_for(std::chrono::milliseconds(total < 500 ? 2 : 15));
    }
    for (std::thread& thread : threads) thread.join();
    if (failure_) std::rethrow_exception(failure_);
    return !cancelled_;
  }

 private:
  void Work(const std::vector<const Task*>& tasks, std::vector<ManifestEntry>& entries) {
    try {
      Skin skin(skin_, italian_);
      for (std::size_t i = next_++; i < tasks.size() && !stop_; i = next_++) {
        entries[i] = Make(*tasks[i], skin);
        ++done_;
      }
    } catch (...) {
      const std::lock_guard lock(mutex_);
      if (!failure_) failure_ = std::current_exception();
      stop_ = true;
    }
  }

  ManifestEntry Make(const Task& task, Skin& skin) const {
    if (!task.source.isEmpty()) return staging_.Copy(task.file, task.source, task.input);
    return staging_.Write(task.file, skin.Render(task.page.kind, pages_.Site(), pages_.ContentOf(task.page)),
                          task.input);
  }

  const Staging& staging_;
  const PageData& pages_;
  QString skin_;
  bool italian_;
  std::atomic<std::size_t> next_{0};
  std::atomic<int> done_{0};
  std::atomic<bool> stop_{false};
  bool cancelled_ = false;
  std::mutex mutex_;
  std::exception_ptr failure_;
};

}  // namespace

PublishResult PublishSite(IVorlinaConnection& connection, int IDCatalogo, const QString& folder,
                          const QString& skinFolder, const Languages& languages, IVorlinaProgress& progress) {
  const bool italian = languages.italian;
  PublishResult result;
  const QString reading =
      italian ? QStringLiteral("Lettura del catalogo") : QStringLiteral("Reading the catalog");
  const QString writing =
      italian ? QStringLiteral("Scrittura delle pagine") : QStringLiteral("Writing the pages");
  if (!progress.Report(0, 1, reading)) return result;
  const CatalogSnapshot catalog = ReadSnapshot(connection, IDCatalogo, italian);
  const SitePlan plan(catalog, languages);
  const Skin skin(skinFolder, italian);
  const PageData pages(plan, skin, languages.siteItalian);
  const std::vector<Task> tasks = Tasks(plan, pages, skin);

  Staging staging(folder, italian);
  Manifest manifest;
  std::vector<const Task*> pending;
  QStringList files;
  for (const Task& task : tasks) {
    files += task.file;
    result.pages += task.source.isEmpty() ? 1 : 0;
    if (staging.IsCurrent(task.file, task.input))
      manifest.entries.insert(task.file, staging.Former().entries[task.file]);
    else
      pending.push_back(&task);
  }
  result.warnings = plan.warnings;
  result.written = int(pending.size());
  result.complete = true;
  if (pending.empty() && manifest.entries.size() == staging.Former().entries.size()) return result;
  staging.Begin(files);
  std::vector<ManifestEntry> entries(pending.size());
  result.complete = Builder(staging, pages, skinFolder, italian).Build(pending, entries, progress, writing);
  if (!result.complete) return result;
  for (std::size_t i = 0; i < pending.size(); ++i) manifest.entries.insert(pending[i]->file, entries[i]);
  staging.Swap(manifest);
  progress.Report(int(pending.size()), int(pending.size()), writing);
  return result;
}

}  // namespace vlhtml
