// Films the tour: plays its scenes in the program's own windows, in both languages, over a copy of the
// delivered catalogs. It shows nothing on the screen.
//
// usage: vorlina-tour DELIVERED PLUGINS FILM
#include <QApplication>
#include <QFile>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <cstdio>

#include "Scenes.h"
#include "base/AppPath.h"
#include "base/Error.h"
#include "base/Settings.h"
#include "base/WidgetDialogs.h"
#include "support/Language.h"

using namespace vorlina;

namespace {

constexpr qint64 LargestFilm = 3 * 1024 * 1024;

// The platform tells at each window what it has no use for.
void Tell(QtMsgType, const QMessageLogContext&, const QString& text) {
  if (!text.startsWith(u"This plugin does not support")) std::fprintf(stderr, "%s\n", qPrintable(text));
}

void Prepare(const QTemporaryDir& place, const QString& delivered, const QString& plugins) {
  SetSettingsFolder(place.filePath(u"settings"_qs));
  SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, u"VLHTML.HTML"_qs);
  if (!QFile::copy(delivered + u"/Catalog.db"_qs, place.filePath(u"Catalog.db"_qs)))
    throw Error(u"there is no Catalog.db in "_qs + delivered);
  QFile::link(plugins, place.filePath(u"PubWiz"_qs));
  QFile::link(delivered + u"/Images"_qs, place.filePath(u"Images"_qs));
  SetAppPath(place.path());
}

void Film(const QString& path) {
  std::map<QString, TourFilm> films;
  for (const QString& language : {u"Italian"_qs, u"English"_qs}) {
    SetLanguage(language);
    films[language] = FilmTour();
    for (const TourScene& scene : films[language].scenes)
      if (TourCaption(scene.name).isEmpty()) throw Error(u"the scene %1 has no caption"_qs.arg(scene.name));
  }
  WriteTour(path, films);
  if (QFile(path).size() > LargestFilm) throw Error(u"the film is too large"_qs);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_SCALE_FACTOR", "2");  // for dense screens
  qInstallMessageHandler(Tell);
  QApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 4) {
    std::fprintf(stderr, "usage: vorlina-tour DELIVERED PLUGINS FILM\n");
    return 2;
  }
  QApplication::setStyle(u"Fusion"_qs);
  QApplication::setPalette(QStyleFactory::create(u"Fusion"_qs)->standardPalette());
  QApplication::setApplicationName(u"Vorlina"_qs);
  QApplication::setOrganizationName(u"Norsel"_qs);
  QApplication::setApplicationVersion(QStringLiteral(VORLINA_VERSION));
  QCursor::setPos(-100, -100);  // else what lies under it shows as such
  WidgetDialogs dialogs;
  InstallDialogs(&dialogs);
  const QTemporaryDir place;
  try {
    Prepare(place, arguments[1], arguments[2]);
    Film(arguments[3]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "the tour was not filmed: %s\n", qPrintable(DescriptionOf(error)));
    return 1;
  }
  return 0;
}
