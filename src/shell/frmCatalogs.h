// The main window. It lives for the whole run, owns the application's connection and the recordset of all
// catalogs, lists the catalogs and the publishing plug-ins, and ends the program when it closes.
#pragma once

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "publish/PluginHost.h"
#include "publish/plugin/IVorlinaPlugin.h"
#include "store/Connection.h"
#include "store/Recordset.h"

class QListWidgetItem;
class QTreeWidgetItem;

namespace vorlina {

class frmNewCatalog;
class WidgetRenameDelegate;

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

  // Reloads the list of catalogs and arrIDCataloghi. Runs at every activation; while a name is being typed,
  // when that ends. Throws Error without a database.
  void ListCatalog();

  // Writes "Cataloghi.txt" in the application folder: three lines a catalog. Throws Error.
  void CreaListaCataloghi();

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

  // An item's key and tag: what it stands for, and what it says of itself.
  static constexpr int KeyRole = Qt::UserRole;
  static constexpr int TagRole = Qt::UserRole + 1;

  void MakeToolbar();
  void MakeMenus();
  void ConnectControls();
  void Localize_Form();
  void Attempt(const Handler& statement);
  void AttemptOnDatabase(const Handler& statement);
  void OpenDatabase();
  void OpenList();
  void FirstRun();
  void ListUnlessLocked();
  void Retry();
  void FillPlugins(const PluginChoice& plugins);
  void OfferNew();

  QListWidgetItem* SelectedCatalog() const;
  int SelectedCatalogId() const;
  bool EndRename();
  bool ApplyRename();
  void NewCatalogWizard();
  void EditSelected();
  void EditCatalog(int id, const QString& caption);
  bool CloseGridWindows();
  void ComeToFront();
  void ShowCatalogs();
  void AnotherCatalog();
  void SelectNewest();
  void Delete_Click();
  void DuplicaCatalogo();
  QStringList CloneWithProgress(int id, const QString& name);
  void PressPublish();
  void PublishSelected();
  void ShowPublishPane(bool show);
  void cmdIndietro_Click();
  void InstallSkinFor(const QString& identifier);
  void MailSupport();
  void PopUpPlugins();
  bool IsBusy() const;
  void Run(const QString& key);

  std::unique_ptr<Ui::frmCatalogs> ui_;
  // What a key of the toolbar or of the help drop-down does. A command that is not here is disabled.
  std::map<QString, Handler> handlers_;
  std::vector<QAction*> toolbar_;  // by index - 1
  std::vector<PluginEntry> plugins_;
  QMenu* mnuHelp_;
  QMenu* mnuPlugins_;
  QMenu* mnuInstallaSkin_;
  QAction* mnuInstallPlugin_;
  QPointer<frmNewCatalog> wizard_;
  WidgetRenameDelegate* rename_;
  // What was typed over a label and is not stored yet.
  struct NewName {
    int IDCatalogo;
    QString name;
  };
  std::optional<NewName> newName_;
  bool reloadWaits_ = false;
  bool blnPannelloPubblica = false;
  // True after New, Delete and Clone; nothing reads it.
  bool blnListaModificata = false;
  bool activationFailed_ = false;
  bool locked_ = false;  // another program's lock kept something from being read, which Retry reads
  bool retrying_ = false;
  QTimer retry_{this};
  bool closed_ = false;
  std::vector<int> arrIDCataloghi;
};

}  // namespace vorlina
