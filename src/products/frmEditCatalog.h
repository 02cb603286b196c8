// The window in which the products of one catalog are listed and edited. Nearly all of it is one grid over a
// live recordset: a row is written as soon as it is left, and there is nothing to save. Several can be open
// at once, also on the same catalog.
#pragma once

#include <QMainWindow>
#include <memory>
#include <vector>

#include "publish/PluginHost.h"
#include "store/Connection.h"
#include "store/Recordset.h"

class QLabel;
class QMenu;

namespace vorlina {

class CardCommands;
class DropPictures;
class GridRefusals;
class ImportPictures;
class Properties;
class WidgetColumnMenu;
class WidgetFindBar;
class WidgetProductGrid;
struct GridContext;

namespace Ui {
class frmEditCatalog;
}

class frmEditCatalog : public QMainWindow {
  Q_OBJECT

 public:
  explicit frmEditCatalog(QWidget* parent = nullptr);
  ~frmEditCatalog() override;

  // Set by the opener before LoadForm: the window's own connection, a recordset of Cataloghi on it that
  // stands on the catalog, and what the catalog can be published with.
  std::unique_ptr<Connection> Connessione;
  Recordset rsCatalogo;
  std::vector<PluginEntry> Plugins;

  // Fills the window. To be called once, before it is shown. Throws Error where the catalog cannot be read.
  void LoadForm();
  // Reads the catalog's names anew and fills the grid. Throws Error.
  void LoadCatalog();
  // Whether it was to close while it imports, and will do so once that has stopped.
  bool ClosesLate() const;

 Q_SIGNALS:
  // The window was closed.
  void Closed();
  // Behind ClosesLate: it has closed, or stays after all.
  void ClosedLate(bool closed);

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void MakeToolbar();
  void MakeMenus();
  void MakeFindBar();
  void MakeStatusBar();
  void ConnectGrid();
  void FillPublishMenu();
  void Localize_Form();
  void ShowCatalog(bool first);
  void Run(const QString& key);
  void PopUpGridMenu(const QPoint& position);
  void PopUpColumnMenu(const QString& key, const QPoint& position);
  void CountProducts();
  void ShowCounts();
  void CloseLate();
  void ReleaseAll();

  std::unique_ptr<Ui::frmEditCatalog> ui_;
  WidgetProductGrid* grdProducts;
  QMenu* mnuGriglia;
  WidgetColumnMenu* mnuColonna;
  WidgetFindBar* findBar_;
  QMenu* mnuPubblica;
  QMenu* mnuAiuto;
  QLabel* lblProdotti;
  QLabel* lblSelezionati;
  std::unique_ptr<GridContext> context_;
  std::unique_ptr<DropPictures> drops_;
  std::unique_ptr<GridRefusals> refusals_;
  std::unique_ptr<CardCommands> card_;
  std::unique_ptr<ImportPictures> import_;
  std::unique_ptr<Properties> properties_;
  qint64 allProducts_ = 0;  // of the catalog, while a search is on
};

}  // namespace vorlina
