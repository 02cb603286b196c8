#include <QIcon>

#include "base/AppPath.h"
#include "base/SafeFile.h"
#include "base/WidgetDialogs.h"
#include "base/WidgetWaiting.h"
#include "catalogs/RestoreSwap.h"
#include "publish/PluginChange.h"
#include "shell/WidgetApplication.h"
#include "shell/frmCatalogs.h"
#include "store/LockPatience.h"
#include "support/frmSplash.h"

using namespace vorlina;

namespace {

void ShowMainWindow(frmCatalogs& catalogs) {
  // What fails here is shown; the window comes all the same, so that the user sees where it stands.
  try {
    // First of all: what is delivered must not be copied to where a restore is half done.
    if (const QString told = FinishInterruptedRestore(); !told.isEmpty()) qInfo().noquote() << told;
    PrepareAppPath();
    FinishInterruptedInstallations(AppFile(u"PubWiz"_qs));
  } catch (...) {
    ShowUnhandled();
  }
  catalogs.LoadForm();
  catalogs.show();
  // The list fills when the window becomes the active one, which not every desktop makes a new window by
  // itself.
  catalogs.activateWindow();
}

}  // namespace

int main(int, char** argv) {
  // The program reads no command line.
  int argc = 1;
  WidgetApplication application(argc, argv);
  TellFileLimitsAsErrors();
  QApplication::setApplicationName(u"Vorlina"_qs);
  QApplication::setOrganizationName(u"Norsel"_qs);
  QApplication::setApplicationVersion(QStringLiteral(VORLINA_VERSION));
  // By which a desktop finds the entry of the program that a window belongs to.
  QApplication::setDesktopFileName(u"vorlina"_qs);
  QApplication::setWindowIcon(ProgramIcon());
  QApplication::setQuitOnLastWindowClosed(false);
  WidgetDialogs dialogs;
  InstallDialogs(&dialogs);
  LockPatience::WhileWaiting = ShowWaiting;

  frmCatalogs catalogs;
  frmSplash splash;
  QObject::connect(&splash, &frmSplash::Ended, &catalogs, [&] { ShowMainWindow(catalogs); });
  QObject::connect(&catalogs, &frmCatalogs::Closed, &application, [] { QApplication::exit(0); });
  splash.LoadSplash();
  splash.show();
  return QApplication::exec();
}
