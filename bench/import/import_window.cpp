// Imports a folder in the product grid's window, and tells the longest time, in milliseconds, in which the
// window could take no event.
//
// usage: import_window APPLICATION_FOLDER FOLDER
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <cstdio>

#include "base/AppPath.h"
#include "base/Dialogs.h"
#include "base/WidgetDialogs.h"
#include "products/frmEditCatalog.h"
#include "support/Language.h"

using namespace vorlina;

namespace {

class OneFolder : public WidgetDialogs {
 public:
  explicit OneFolder(QString folder) : folder_(std::move(folder)) {}
  QString Folder(QWidget*, const QString&, const QString&) override { return folder_; }

 protected:
  void ShowMessage(QWidget*, const QString& text, BoxStyle, const QString&) override {
    std::fprintf(stderr, "%s\n", qPrintable(text));
  }

 private:
  QString folder_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: import_window APPLICATION_FOLDER FOLDER\n");
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  SetLanguage(u"English"_qs);
  SetAppPath(QString::fromLocal8Bit(argv[1]));
  OneFolder dialogs(QString::fromLocal8Bit(argv[2]));
  InstallDialogs(&dialogs);
  frmEditCatalog window;
  window.Connessione = std::make_unique<Connection>();
  window.Connessione->Open(ConnectionTextFor(AppFile(u"Catalog.db"_qs)));
  window.rsCatalogo.Open({.table = u"Cataloghi"_qs, .where = u"IDCatalogo=109"_qs}, *window.Connessione);
  window.LoadForm();
  window.show();
  QApplication::processEvents();

  qint64 longest = 0;
  QElapsedTimer since;
  QTimer turn;
  QObject::connect(&turn, &QTimer::timeout, [&] {
    longest = std::max(longest, since.isValid() ? since.restart() : (since.start(), 0));
  });
  turn.start(0);
  window.findChild<QAction*>(u"cmdImporta"_qs)->trigger();
  turn.stop();
  std::printf("%lld\n", static_cast<long long>(longest));
  return 0;
}
