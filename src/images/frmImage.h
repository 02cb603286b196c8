// The preview: one picture, scaled to the window, with the list of a product's pictures at its right edge. It
// reads and writes no database.
#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <memory>

namespace vorlina {

namespace Ui {
class frmImage;
}

class frmImage : public QWidget {
  Q_OBJECT

 public:
  explicit frmImage(QWidget* parent = nullptr);
  ~frmImage() override;

  // Set by the opener before LoadForm: the path of the product's main image; the list beside the window and
  // the card that opened it, either of which may be nothing.
  QString Percorso;
  QPointer<QWidget> ListaImmagini;
  QPointer<QWidget> Card;

  // Moves the window to its stored place, shows Percorso and lays the language over. To be called
  // before the window is shown.
  void LoadForm();

  // Shows a picture file; nothing for one that is missing or no JPEG. Never fails.
  void ImageLoad(const QString& path);

  // Moves the window so that the list shows whole beside it, where a screen has room for both. To be called
  // before it is shown.
  void MakeRoomForList();

  // Makes the next tick of the timer move the list to the window's edge again.
  void restore();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void Localize_Form();
  void MoveToStoredPlace();
  void StorePlace();
  void DockList();
  void Move_Timer();
  void HScroll_Change();
  void VScroll_Change();

  std::unique_ptr<Ui::frmImage> ui_;
  QTimer* Move;
  // Size of Picture1 at load, and what the scroll bars computed from it last. The picture always shows whole,
  // so that nothing else reads them.
  int AltezzaBase = 0;
  int LarghezzaBase = 0;
  double ScostamentoX = 0;
  double ScostamentoY = 0;
  // Where the window stood when the list was last moved, and how wide both were with their frames, which are
  // not known before they are on the screen.
  int UltimoLeft = 0;
  int UltimoTop = 0;
  int widths_ = 0;
  bool InRipristino = false;
};

}  // namespace vorlina
