// The window in which the products of one catalog are listed and edited. Nearly all of it is one grid over a
// live recordset: a row is written as soon as it is left, and there is nothing to save. Several can be open
// at once, also on the same catalog.
#pragma once

#include <QMainWindow>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "grid/RecordsetModel.h"
#include "products/ProductGridQuery.h"
#include "publish/PluginHost.h"
#include "store/Connection.h"
#include "store/Recordset.h"

class QAction;
class QLabel;
class QMenu;

namespace vorlina {

class DataGrid;
class ProductEditing;
class WidgetColumnMenu;
class WidgetGridPreview;

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

  // What the grid shows.
  Recordset rsGriglia;
  // Text behind the grid's SELECT; empty unless a search is in force.
  QString CondizioneRicerca;
  // The grid's layout between two reloads.
  QString LayoutGriglia;

  // Fills the window. To be called once, before it is shown. Throws Error where the catalog cannot be read.
  void LoadForm();
  // Reads the catalog's names anew and fills the grid. Throws Error.
  void LoadCatalog();
  // Reopens the grid's recordset and rebuilds the columns; the grid stays on the product it stood on. What
  // fails ends it and is not told: the grid stays as far as it got. A row in edit that cannot be written
  // keeps the grid as it is.
  void LoadGrid(bool keepLayout);

 Q_SIGNALS:
  // The window was closed.
  void Closed();

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void MakeToolbar();
  void MakeMenus();
  void ConnectGrid();
  void Localize_Form();
  void NumberUnnumbered();
  void FillPublishMenu();
  void Run(const QString& key);
  void Attempt(const std::function<void()>& step);

  void FillGrid(bool keepLayout);
  void OpenGrid();
  void DecorateColumns(std::vector<GridColumn>& columns) const;
  void PlacePictureColumns();
  void ArrangeGrid(bool keepLayout);
  void LoadLayoutFile();
  void SaveLayoutFile();
  QString LayoutFile() const;
  void GoToProduct(const QString& code, const QString& key);
  void ReleaseAll();
  void Refuse(const QString& text);
  bool MayClose();
  void TellWhyOpen(QStringList refusals);

  QVariant PictureOf(int row, int column, int role) const;
  void PressHeader(const QString& key, Qt::MouseButton button, const QPoint& position);
  void PopUpGridMenu(const QPoint& position);
  void PressCell(int row, const QString& key, Qt::MouseButton button, const QPoint& position);
  void DropFilesOn(int row, const QStringList& files);
  void DropHeldFiles();
  void DropFiles(int catalog, const QString& code, const QStringList& files);

  void ToggleSort(const QString& key, SortDirection present);
  // Brings the selected rows to the place of another one in the publication order, and sorts by that. A
  // selection that has holes is given up. False where nothing was moved, or the row in edit cannot be left.
  // Throws Error.
  bool MoveSelectedTo(int row);
  void SortByOrder();
  void MoveRows(bool down);
  void mnuOrdinePubbl_Click();
  void mnuCopia_Click();
  void mnuResizeCol_Click();
  void mnuAggiorna_Click();
  void ShowCounts();
  void cmdDelete_Click();
  void cmdImmagini_Click();
  void PublishWith(const QString& identifier);

  std::unique_ptr<Ui::frmEditCatalog> ui_;
  DataGrid* grdProducts;
  // What a key of the toolbar or of the menu does. A command that is not here is disabled.
  std::map<QString, std::function<void()>> handlers_;
  QMenu* mnuGriglia;
  WidgetColumnMenu* mnuColonna;
  QMenu* mnuPubblica;
  QLabel* lblProdotti;
  QLabel* lblSelezionati;
  WidgetGridPreview* preview_;
  std::unique_ptr<ProductEditing> editing_;
  ProductGridFields fields_;
  int IDCatalogo = 0;
  bool Caricamento = false;
  std::optional<QStringList> refusals_;           // while the window is closing
  std::vector<std::function<void()>> heldDrops_;  // until no box is up
  bool busy_ = false;  // with what must not lose its connection, while events come through
};

}  // namespace vorlina
