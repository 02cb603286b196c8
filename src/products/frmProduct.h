// The product card: one product is seen, changed, added, deleted or searched for. One object belongs to the
// grid's window and is shown again and again, in one of three states.
#pragma once

#include <QMainWindow>
#include <array>
#include <functional>
#include <memory>

#include "products/ProductCard.h"

class QAction;
class QLineEdit;

namespace vorlina {

class CardFilters;
class CardPictures;
class CardWindows;
class Connection;
class ProductCardOwner;

namespace Ui {
class frmProduct;
}

class frmProduct : public QMainWindow {
  Q_OBJECT

 public:
  enum State { Edit = 0, New = 1, Search = 2 };

  explicit frmProduct(QWidget* parent = nullptr);
  ~frmProduct() override;

  // Set by the opener before LoadForm; all outlive the card's being shown.
  vorlina::Connection* Connessione = nullptr;
  int IDCatalogo = 0;
  ProductCardOwner* Griglia = nullptr;

  int Stato = Edit;
  int NumeroFiltri = 0;
  // Whether the card holds nothing unsaved.
  bool Salvato = true;
  // The condition of a search that was made; "" where none was.
  QString FiltroRicerca;

  // Fills the card: in state Edit with a product. What it showed before is given up. Throws Error; it shows
  // what it showed then.
  void LoadForm(int state, qint64 product);
  // Shows it, modal to its owner for a search.
  void Open();
  // The product that it shows, 0 for none.
  qint64 Product() const;
  // Has nothing unsaved on it, so that something else can take its place: asks, and saves. False where the
  // user has to stay.
  bool Leave();

  void SetState(int state);
  // Saves what was typed, and tells why not where it cannot.
  void Salva();

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void MakeToolbar();
  void MakeBoxes();
  void Localize_Form();
  void ShowNames();
  void ShowProduct(const ProductValues& values);
  void ShowValues(const ProductValues& values);
  void ForgetTyping();
  ProductValues Typed();
  void Begin(int state, const QString& code);
  void SetControls(int state);
  void ShowCodePlainly();
  void Changed();
  void Run(const QString& key);
  void Try(const std::function<void()>& step);
  void Save(const ProductValues& typed);
  void SaveOver(const QStringList& columns, const ProductValues& typed);
  void SaveAsNew(const QString& why);
  void Elimina();
  void ApriImmagini();
  void ApriScheda();
  void OpenFilter(int filter);
  void RenewFilter(int filter);
  void RenameFilter(int filter, const QString& name);
  void Cerca();
  void GoToNeighbour(bool next);
  bool CloseOwned();
  bool HasChanged();
  void LookAgain();
  void TakeNames();
  QAction* Command(const QString& key) const;

  std::unique_ptr<Ui::frmProduct> ui_;
  std::array<QLineEdit*, 3> values_{};
  CardFilters* filters_;
  CardPictures* pictures_;
  CardWindows* windows_;
  std::unique_ptr<ProductCard> card_;
  qint64 seen_ = 0;  // the mark of the database
  bool loading_ = false;
};

}  // namespace vorlina
