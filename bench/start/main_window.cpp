// The program from its start to the painted main window, with the wait on the splash left out.
// usage: bench_main_window APPLICATION_FOLDER SETTINGS_FOLDER
#include <QIcon>

#include "FirstPaint.h"
#include "base/AppPath.h"
#include "base/Settings.h"
#include "base/WidgetDialogs.h"
#include "shell/WidgetApplication.h"
#include "shell/frmCatalogs.h"
#include "support/frmSplash.h"

using namespace vorlina;

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  WidgetApplication application(argc, argv);
  QApplication::setApplicationName(u"Vorlina"_qs);
  QApplication::setWindowIcon(ProgramIcon());
  WidgetDialogs dialogs;
  InstallDialogs(&dialogs);
  SetSettingsFolder(QString::fromLocal8Bit(argv[2]));
  frmCatalogs catalogs;
  frmSplash splash;
  splash.LoadSplash();
  splash.show();
  SetAppPath(QString::fromLocal8Bit(argv[1]));
  PrepareAppPath();
  catalogs.LoadForm();
  const FirstPaint paint(catalogs);
  catalogs.show();
  splash.close();
  return QApplication::exec();
}
