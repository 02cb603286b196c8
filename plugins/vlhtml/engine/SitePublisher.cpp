#include "SitePublisher.h"

#include <QDir>
#include <QFileInfo>
#include <future>
#include <memory>

#include "PageParts.h"
#include "SiteFields.h"
#include "SiteFiles.h"
#include "SkinFolders.h"
#include "SkinPages.h"
#include "Theme.h"

namespace vlhtml {
namespace {

struct Planned {
  SitePlan plan;
  std::unique_ptr<PublishedPictures> pictures;
};

// What a site consists of, with the files of its pictures as they lie there.
Planned PlanOf(CatalogSnapshot& catalog, const Words& words, const Skin& skin, const VorlinaJob& job,
               const QString& images, bool italian) {
  Planned planned{SitePlan(catalog, words, job.preview, skin.Has(std::size_t(PageKind::Values))), nullptr};
  if (const auto& featured = planned.plan.featured; catalog.widePicture.source.isEmpty() && !featured.empty())
    catalog.widePicture = catalog.products[std::size_t(featured.front())].pictures.front();
  planned.pictures = std::make_unique<PublishedPictures>(
      PictureRequest{&catalog, planned.plan.PictureNames(), images, job.profile.pictureSizes, italian});
  return planned;
}

VorlinaReport Make(Site site, const Skin& skin, Publication& publication, IVorlinaProgress& progress) {
  site.hasTheme = !ThemeOf(site.profile).isEmpty();
  site.hasMessages = skin.Has(std::size_t(PageKind::Message));
  site.hasSearch = site.plan.previewed < 0 && !site.plan.products.empty() &&
                   QFileInfo(skin.Folder() + QStringLiteral("/search.js")).isFile();
  auto telling = std::async(std::launch::async, [&] { TellOnce(site, skin.Names()); });
  const std::vector<Page> pages = AddFiles(site, skin, publication);
  telling.get();
  const SkinPages made(skin,
                       {[&](Fields& fields) { TellSite(fields, site); },
                        [&](std::size_t page) { return std::size_t(pages[page].kind); },
                        [&](Fields& fields, std::size_t page) { TellPage(fields, site, pages[page]); }});
  return publication.Make(QString::fromStdString(site.Title()), made.Maker(), progress);
}

}  // namespace

// Nothing but a plain yes replaces a site: it goes with all its pages.
bool SitePublisher::MayReplace(FormerSite former, const QString& title, const QString& folder) const {
  const bool italian = host_.language == u"Italian";
  const auto ask = [&](const QString& question, const QString& details) {
    return host_.ui->Ask(question, QDir::toNativeSeparators(folder) + QStringLiteral("\n\n") + details);
  };
  if (former == FormerSite::NoneButFiles)
    return ask(
        italian ? QStringLiteral("La cartella contiene altri file. Pubblicare comunque lì, tra di essi?")
                : QStringLiteral("The folder holds other files. Publish there all the same, among them?"),
        italian
            ? QStringLiteral("Nessuno di essi sarà eliminato o sostituito, ma i file del sito possono essere "
                             "centinaia. Per tenerli a parte, rispondere No e scegliere una cartella vuota.")
            : QStringLiteral("None of them will be deleted or replaced, but the files of a site can be "
                             "hundreds. To keep them apart, answer No and choose an empty folder."));
  if (former == FormerSite::OfAnotherProfile)
    return ask(
        italian ? QStringLiteral(
                      "La cartella contiene il sito di questo catalogo pubblicato con un altro profilo. "
                      "Sostituirlo?")
                : QStringLiteral(
                      "The folder holds this catalog's site as published with another profile. Replace it?"),
        italian
            ? QStringLiteral("Il sito avrà ciò che mostra questo profilo. Per conservare quello dell'altro, "
                             "rispondere No e scegliere un'altra cartella.")
            : QStringLiteral("The site will have what this profile shows. To keep that of the other one, "
                             "answer No and choose another folder."));
  const QString named = title.isEmpty() ? QString() : QStringLiteral(" (\"%1\")").arg(title);
  return ask(
      (italian ? QStringLiteral("La cartella contiene il sito di un altro catalogo%1. Sostituirlo?")
               : QStringLiteral("The folder holds the site of another catalog%1. Replace it?"))
          .arg(named),
      italian ? QStringLiteral("Le pagine di quel sito saranno eliminate. Per conservarle, rispondere No e "
                               "scegliere un'altra cartella.")
              : QStringLiteral("The pages of that site will be deleted. To keep them, answer No and choose "
                               "another folder."));
}

// Those of a plug-in that the user installed come with it.
QString SitePublisher::WordsFolder() const {
  if (!words_.isEmpty()) return words_;
  const QString words = QStringLiteral("/PubWiz/VLHTML.HTML/words");
  const QString own = host_.applicationFolder + words;
  return QFileInfo(own).isDir() ? own : host_.deliveredFolder + words;
}

VorlinaReport SitePublisher::Publish(IVorlinaConnection& connection, const VorlinaJob& job,
                                     IVorlinaProgress& progress) {
  const bool italian = host_.language == u"Italian";
  Publication publication(connection, job, SiteSkin().plugin, italian);
  const QString images = QFileInfo(connection.DataSource()).absolutePath() + QStringLiteral("/Images");
  const QString skinFolder = skin_.isEmpty() ? CurrentSkin(SiteSkin(), host_) : skin_;
  VorlinaReport report;
  if (publication.IsAsBefore(
          {{}, {images, skinFolder, WordsFolder()}, (host_.language + skinFolder).toUtf8()}, report))
    return report;
  const auto ask = [&](FormerSite former, const QString& title) {
    return MayReplace(former, title, job.target);
  };
  if (!publication.MayGoOn(host_.ui != nullptr ? vlhtml::MayReplace(ask) : vlhtml::MayReplace())) return {};
  if (!progress.Report(
          0, 1, italian ? QStringLiteral("Lettura del catalogo") : QStringLiteral("Reading the catalog")))
    return {};
  auto loading =
      std::async(std::launch::async, [&] { return std::make_unique<Skin>(skinFolder, SiteSkin(), italian); });
  const Words words(job.profile.language, WordsFolder(), skinFolder, italian);
  CatalogSnapshot catalog = ReadSnapshot(connection, job, italian);
  const std::unique_ptr<Skin> loaded = loading.get();
  const Skin& skin = *loaded;
  // The longest table is read while that is planned which needs none of it.
  auto planning =
      std::async(std::launch::async, [&] { return PlanOf(catalog, words, skin, job, images, italian); });
  ReadFeatures(connection, job, catalog);
  auto [plan, pictures] = planning.get();
  if (!pictures->Prepare(*host_.pictures, progress)) return {};
  plan.SetPictures(*pictures);
  report = Make({plan, *pictures, words, job.profile, false, false, false, {}}, skin, publication, progress);
  if (!report.complete) return report;
  report.notes = catalog.notes + pictures->Notes() + plan.Notes(italian) + report.notes;
  report.open += job.target + QStringLiteral("/index.html");
  if (plan.previewed >= 0) report.open += job.target + u'/' + plan.products[std::size_t(plan.previewed)].file;
  publication.Remember(report, pictures->AreAllMade());
  return report;
}

}  // namespace vlhtml
