// The pager: the pictures of a catalog's products, nine a page, to pick a product by its picture. A window
// lives for one call of ShowCatalog.
#pragma once

#include <QDialog>
#include <array>
#include <memory>

#include "images/PicturePage.h"

namespace vorlina {

class WidgetPictureTile;

namespace Ui {
class frmImageViewer;
}

class frmImageViewer : public QDialog {
  Q_OBJECT

 public:
  explicit frmImageViewer(QWidget* parent = nullptr);
  ~frmImageViewer() override;

  // Given by the caller: the catalog and the connection to read it from.
  int IDCatalogo = 0;
  vorlina::Connection* Connection = nullptr;

  // Shows the window until a product is chosen or it is closed, and gives the product's code or "". The SQL
  // text goes behind "SELECT * FROM Prodotti WHERE IDCATALOGO=? " and decides the order, "?" standing for
  // each of the values. A statement that fails gives "" and shows no window.
  QString ShowCatalog(const QString& extra, const QVariantList& values = {});

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void MakeTiles();
  void Localize_Form();
  void OpenCatalog(const QString& extra, const QVariantList& values);
  void GoTo(qint64 page);
  void SetPagerButtons();
  void LoadPage();
  void Select(int tile);
  void MoveSelection(int step);
  void Choose(int tile);
  bool PressButton(int key);

  std::unique_ptr<Ui::frmImageViewer> ui_;
  std::array<WidgetPictureTile*, PictureTiles> extPicture;
  Recordset Rs;
  qint64 Pagina = 0;
  int Selected = -1;
  bool Confirmed = false;
};

}  // namespace vorlina
