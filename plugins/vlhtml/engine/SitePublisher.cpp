#include "SitePublisher.h"

#include <QDir>
#include <QFileInfo>
#include <future>

#include "PageData.h"
#include "Publication.h"
#include "SkinFolders.h"
#include "SkinPages.h"

namespace vlhtml {
namespace {

// Adds the pages, each followed by the files that are published with it. Gives the pages by their numbers.
std::vector<Page> AddFiles(const SitePlan& plan, const Skin& skin, Publication& publication) {
  std::vector<Page> pages;
  const auto addPage = [&](const QString& file, const Page& page) {
    publication.AddPage(file, pages.size());
    pages.push_back(page);
  };
  const auto addPicture = [&](const PlannedPicture& picture) {
    publication.AddPicture(picture.file, picture.source, picture.stamp);
    if (picture.smallFile != picture.file)
      publication.AddCopy(picture.smallFile, picture.smallSource, picture.smallStamp);
  };
  const auto addList = [&](const PlannedList& list) {
    const PageKind kind = list.filter > 0 ? PageKind::Filter : PageKind::Index;
    for (int page = 1; page <= list.Pages(); ++page) addPage(list.PageFile(page), {kind, &list, page});
  };
  addPage(QStringLiteral("index.html"), {PageKind::Home, nullptr, 0});
  for (const PlannedPicture& picture : plan.logo) addPicture(picture);
  for (const Skin::File& file : skin.StaticFiles())
    publication.AddCopy(file.name, skin.Folder() + u'/' + file.name, file.hash);
  addList(plan.all);
  for (const PlannedList& list : plan.filters) addList(list);
  for (std::size_t i = 0; i < plan.products.size(); ++i) {
    const PlannedProduct& product = plan.products[i];
    addPage(product.file, {PageKind::Product, nullptr, int(i)});
    for (const PlannedPicture& picture : product.pictures) addPicture(picture);
  }
  return pages;
}

}  // namespace

// Nothing but a plain yes replaces a site: it goes with all its pages.
bool SitePublisher::MayReplace(const QString& title, const QString& folder) const {
  const bool italian = host_.language == u"Italian";
  const QString named = title.isEmpty() ? QString() : QStringLiteral(" (\"%1\")").arg(title);
  return host_.ui->Ask(
      (italian ? QStringLiteral("La cartella contiene il sito di un altro catalogo%1. Sostituirlo?")
               : QStringLiteral("The folder holds the site of another catalog%1. Replace it?"))
          .arg(named),
      (italian ? QStringLiteral(
                     "%1\n\nLe pagine di quel sito saranno eliminate. Per conservarle, rispondere No e "
                     "scegliere un'altra cartella.")
               : QStringLiteral("%1\n\nThe pages of that site will be deleted. To keep them, answer No and "
                                "choose another folder."))
          .arg(QDir::toNativeSeparators(folder)));
}

VorlinaReport SitePublisher::Publish(IVorlinaConnection& connection, const VorlinaJob& job,
                                     IVorlinaProgress& progress) {
  const bool italian = host_.language == u"Italian";
  const Languages languages{italian, job.profile.language == u"it"};
  Publication publication(connection, job, italian);
  const QString application = QFileInfo(connection.DataSource()).absolutePath();
  const QString skinFolder = skin_.isEmpty() ? CurrentSkin(SiteSkin(), host_) : skin_;
  VorlinaReport report;
  if (publication.IsAsBefore({SiteSkin().plugin,
                              {},
                              {application + QStringLiteral("/Images"), skinFolder},
                              (host_.language + skinFolder).toUtf8()},
                             report))
    return report;
  const auto ask = [&](const QString& title) { return MayReplace(title, job.target); };
  if (!publication.MayGoOn(host_.ui != nullptr ? vlhtml::MayReplace(ask) : vlhtml::MayReplace())) return {};
  if (!progress.Report(
          0, 1, italian ? QStringLiteral("Lettura del catalogo") : QStringLiteral("Reading the catalog")))
    return {};
  CatalogSnapshot catalog = ReadSnapshot(connection, job, italian);
  const QString images = application + QStringLiteral("/Images");
  // The files are looked at while the longest table is read.
  auto planned = std::async([&] { return SitePlan(catalog, images, languages); });
  ReadFeatures(connection, job, catalog);
  const SitePlan plan = planned.get();
  const Skin skin(skinFolder, SiteSkin(), italian);
  const PageData data(plan, skin, languages.siteItalian);
  const std::vector<Page> pages = AddFiles(plan, skin, publication);
  const SkinPages made(skin, {[&](Fields& fields) { data.TellSite(fields); },
                              [&](std::size_t page) { return std::size_t(pages[page].kind); },
                              [&](Fields& fields, std::size_t page) { data.TellPage(fields, pages[page]); }});
  const QString title = QString::fromStdString(catalog.title.empty() ? catalog.name : catalog.title);
  report = publication.Make(title, made.Maker(), progress);
  if (!report.complete) return report;
  report.notes += catalog.notes;
  for (const QString& warning : plan.warnings) report.notes += {VorlinaNote::Kind::Other, {}, warning};
  report.open += job.target + QStringLiteral("/index.html");
  publication.Remember(report);
  return report;
}

}  // namespace vlhtml
