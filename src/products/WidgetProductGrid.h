// The grid over the products of one catalog: its rows and columns, how they are arranged from one reload and
// one opening to the next, and what it shows of their pictures. It belongs to the window of a catalog; what
// the user does with the rows stands in commands/.
#pragma once

#include <memory>
#include <optional>

#include "grid/DataGrid.h"
#include "products/ProductGridQuery.h"
#include "store/Recordset.h"

namespace vorlina {

class Connection;
class ProductEditing;
class WidgetGridPreview;

class WidgetProductGrid : public DataGrid {
  Q_OBJECT

 public:
  explicit WidgetProductGrid(QWidget* parent = nullptr);
  ~WidgetProductGrid() override;

  // What the grid shows.
  Recordset rsGriglia;
  // Text behind the grid's SELECT; empty unless a search is in force.
  QString CondizioneRicerca;
  // The grid's layout between two reloads.
  QString LayoutGriglia;

  // Shows the catalog on which the recordset of Cataloghi stands. The first time the columns are arranged as
  // they are stored for it. Throws Error where the catalog cannot be read.
  void ShowCatalog(const Recordset& rsCatalogo, Connection& connection, bool first);
  // Reopens the grid's recordset and rebuilds the columns; the grid stays on the product it stood on. What
  // fails ends it and is not told: the grid stays as far as it got. A row in edit that cannot be written
  // keeps the grid as it is.
  void LoadGrid(bool keepLayout);
  // Whether anybody has written to the database since the grid was filled. Never fails.
  bool HasChanged() const;
  // What other windows and programs have written since: rows that came or went, and values of the filters.
  void ReadAnew();
  // The values of the filters alone, as ProductEditing; nothing where nobody has written since they were
  // read. Where values and filters have other names by then, and these are wanted as well, the grid is filled
  // anew, unless a row is being edited.
  void RefreshFilterValues(bool names);
  void SaveLayoutFile();
  // Ends what it has to do with the database.
  void Release();

  // Without a code, or where the product is not among those shown, to the first one; in the code's column
  // where the column is not there any more.
  void GoToProduct(const QString& code, const QString& key);
  // Sorts by a column that is sorted so; the third time its sort is taken away.
  void ToggleSort(const QString& key, vorlina::SortDirection present);

 Q_SIGNALS:
  // The grid was filled anew.
  void Filled();

 private:
  void ConnectSignals();
  void FillGrid(bool keepLayout);
  std::optional<qint64> MarkNow() const;
  bool HasOtherNames() const;
  void KeepSort(int column, vorlina::SortDirection direction);
  void OpenGrid();
  void DecorateColumns(std::vector<GridColumn>& columns) const;
  void PlacePictureColumns();
  void ArrangeGrid(bool keepLayout);
  void LoadLayoutFile();
  QString LayoutFile() const;
  QVariant PictureOf(int row, int column, int role);
  void GoneTo(int row, const QString& key);
  void PressCell(int row, const QString& key, Qt::MouseButton button, const QPoint& position);

  WidgetGridPreview* preview_;
  std::unique_ptr<ProductEditing> editing_;
  Connection* connection_ = nullptr;
  ProductGridFields fields_;
  int IDCatalogo_ = 0;
  bool Caricamento = false;
  // The marks of the database when the grid was filled, and when the filters' values were read.
  qint64 filled_ = 0;
  qint64 valuesRead_ = 0;
};

}  // namespace vorlina
