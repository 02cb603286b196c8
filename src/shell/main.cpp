#include <QIcon>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/SafeFile.h"
#include "base/WidgetDialogs.h"
#include "base/WidgetWaiting.h"
#include "catalogs/RestoreSwap.h"
#include "publish/PluginChange.h"
#include "shell/WidgetApplication.h"
#include "shell/WidgetHelpKey.h"
#include "shell/frmCatalogs.h"
#include "store/LockPatience.h"
#include "support/HTMLHelp.h"
#include "support/frmSplash.h"
#include "support/frmTour.h"
#include "update/Keyring.h"

using namespace vorlina;

namespace {

void ShowMainWindow(frmCatalogs& catalogs) {
  // What fails here is shown; the window comes all the same, so that the user sees where it stands.
  try {
    // First of all: what is delivered must not be copied to where a restore is half done.
    if (const QString told = FinishInterruptedRestore(); !told.isEmpty()) qInfo().noquote() << told;
    PrepareAppPath();
  } catch (...) {
    ShowUnhandled();
  }
  try {
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

// The splash, which some desktops keep above all windows, goes first.
void ShowTour(frmCatalogs& catalogs, frmSplash& splash) {
  splash.hide();
  frmTour tour(&catalogs);
  tour.LoadForm();
  tour.exec();
}

void KeepPassword(const PasswordStore& passwords) {
  try {
    passwords.Flush();
  } catch (const Error& error) {
    qWarning().noquote() << error.Description();
  }
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
  Keyring keyring;
  PasswordStore passwords(&keyring);
  InstallPasswordStore(&passwords);

  const WidgetHelpKey helpKey;
  frmCatalogs catalogs;
  frmSplash splash;
  QObject::connect(&splash, &frmSplash::Ended, &catalogs, [&] { ShowMainWindow(catalogs); });
  QObject::connect(&catalogs, &frmCatalogs::Closed, &application, [] {
    HTMLHelp::HHClose();
    QApplication::exit(0);
  });
  QObject::connect(&application, &QApplication::aboutToQuit, &catalogs, [&] { KeepPassword(passwords); });
  catalogs.OnFirstRun = [&] { ShowTour(catalogs, splash); };
  splash.LoadSplash();
  splash.show();
  return QApplication::exec();
}
