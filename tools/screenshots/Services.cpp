#include "Services.h"

#include <QAction>
#include <QPushButton>
#include <QTabWidget>

#include "Photographer.h"
#include "shell/frmCatalogs.h"
#include "support/WidgetTour.h"
#include "support/frmAbout.h"
#include "support/frmSystemInfo.h"
#include "support/frmTour.h"
#include "update/frmOptions.h"

namespace vorlina {
namespace {

void TakeAbout(const Photographer& photographer, const frmCatalogs& catalogs) {
  catalogs.findChild<QAction*>(u"subAbout"_qs)->trigger();
  auto* about = catalogs.findChild<frmAbout*>();
  photographer.Take(*about, u"frmAbout"_qs);
  about->findChild<QPushButton*>(u"cmdSysInfo"_qs)->click();
  auto* information = about->findChild<frmSystemInfo*>();
  photographer.Take(*information, u"frmSystemInfo"_qs);
  information->findChild<QTabWidget*>(u"tbsInfo"_qs)->setCurrentIndex(1);
  photographer.Take(*information, u"frmSystemInfo-libraries"_qs);
  about->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TakeTour(const Photographer& photographer) {
  frmTour tour;
  tour.LoadForm(QStringLiteral(VORLINA_APP_DIR "/Tour.film"));
  auto* player = tour.findChild<WidgetTour*>(u"Tour"_qs);
  player->SetPlaying(false);
  player->GoTo(3);
  tour.show();
  // Until the pointer has come to rest.
  QEventLoop loop;
  QTimer::singleShot(1000, &loop, &QEventLoop::quit);
  loop.exec();
  photographer.Take(tour, u"frmTour"_qs);
}

}  // namespace

void TakeServices(const Photographer& photographer, frmCatalogs& catalogs) {
  frmOptions options;
  options.LoadForm();
  photographer.Take(options, u"frmOptions"_qs);
  TakeAbout(photographer, catalogs);
  TakeTour(photographer);
}

}  // namespace vorlina
