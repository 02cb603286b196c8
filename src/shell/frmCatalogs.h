// The main window. It lives for the whole run, owns the application's connection and the recordset of all
// catalogs, lists the catalogs and the publishing plug-ins, and ends the program when it closes.
#pragma once

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "publish/PluginHost.h"
#include "publish/plugin/IVorlinaPlugin.h"
#include "store/Connection.h"
#include "store/Recordset.h"

namespace vorlina {

class BackupCommands;
class CatalogList;
class DatabaseRetry;
class PublishPane;
class WidgetCatalogMenu;
class frmNewCatalog;

namespace Ui {
class frmCatalogs;
}

class frmCatalogs : public QMainWindow {
  Q_OBJECT

 public:
  explicit frmCatalogs(QWidget* parent = nullptr);
  ~frmCatalogs() override;

  // Opens the database, settles what a first start needs, lists the plug-ins and lays the language over the
  // window. Each step that fails shows its message, and the next one is taken. To be called once, before the
  // window is shown.
  void LoadForm();

  // Reloads the list of catalogs. Runs at every activation; while a name is being typed, when that ends.
  // Throws Error without a database.
  void ListCatalog();

  // Writes "Cataloghi.txt" in the application folder: three lines a catalog. Throws Error.
  void CreaListaCataloghi();

  // What a first start shows before the window, such as the tour.
  std::function<void()> OnFirstRun;
  // The main connection; other windows open their own with its connection text.
  Connection cnnCatalog;
  // All rows of Cataloghi.
  Recordset rsCataloghi;
  // The plug-in in hand; null except while one publishes or installs a skin.
  std::unique_ptr<IVorlinaPlugin> objPlugin;

 Q_SIGNALS:
  // The window was closed: the program ends.
  void Closed();

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  using Handler = std::function<void()>;

  void MakeToolbar();
  void MakeHelpMenu();
  void MakePluginMenu();
  void MakeParts();
  void ConnectControls();
  void Localize_Form();
  void FillPlugins();
  void OfferNew();
  bool IsBusy() const;
  void Run(const QString& key);

  void NewCatalogWizard();
  void EditSelected();
  void EditCatalog(int id, const QString& caption);
  bool CloseGridWindows(const Handler& again);
  bool CloseDatabaseWindows();
  void GridWindowClosedLate(bool closed);
  void ComeToFront();
  void ShowNewest();
  void ShowPublishPane(bool show);
  void ShowKeys();
  void InstallSkinFor(const QString& identifier);
  void PopUpPlugins();

  std::unique_ptr<Ui::frmCatalogs> ui_;
  // What a key of the toolbar or of the help drop-down does. A command that is not here is disabled.
  std::map<QString, Handler> handlers_;
  Handler whenClosedLate_;
  std::vector<QAction*> toolbar_;  // by index - 1
  std::vector<PluginEntry> plugins_;
  QMenu* mnuHelp_;
  QMenu* mnuPlugins_;
  QMenu* mnuInstallaSkin_;
  QAction* mnuInstallPlugin_;
  QPointer<frmNewCatalog> wizard_;
  std::unique_ptr<CatalogList> catalogs_;
  std::unique_ptr<PublishPane> pane_;
  DatabaseRetry* database_;
  BackupCommands* backups_;
  WidgetCatalogMenu* mnuCataloghi_;
  bool activationFailed_ = false;
  bool closed_ = false;
};

}  // namespace vorlina
