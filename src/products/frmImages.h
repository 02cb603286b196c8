// The list of a product's pictures, the main one and the additional ones, beside the preview, which shows the
// one that is picked. The two windows open and close together.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>

#include "images/frmImage.h"

namespace vorlina {

class Connection;
class ProductImages;

namespace Ui {
class frmImages;
}

class frmImages : public QMainWindow {
  Q_OBJECT

 public:
  explicit frmImages(QWidget* parent = nullptr);
  ~frmImages() override;

  // Set by the opener before LoadForm: the product, a connection that outlives the window, and the preview.
  int IDCatalogo = 0;
  QString CodiceProdotto;
  Connection* Connessione = nullptr;
  QPointer<frmImage> Anteprima;
  // Replaces the main image: gives the path that the preview is to show from then on.
  std::function<QString()> ImageChange;
  // The main image is gone, and both windows are closed.
  std::function<void()> MainImageRemoved;

  // Lists the pictures and docks the window. To be called before it is shown. Throws Error where the product
  // is gone.
  void LoadForm();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeToolbar();
  void Localize_Form();
  void Run(const std::function<void()>& command);
  void Fill();
  void FollowMain(const QString& path);
  void Refresh();
  void ShowSelected();
  void Rename(const QString& key, const QString& text);

  void Add();
  void AddFiles(const QStringList& files);
  void Delete();
  void Change();
  void ChangeMain();
  void ChangeAdditional(qint64 image);
  void Clear();
  QString AskDescription(const QString& prompt, const QString& initial, bool mayGiveUp);

  std::unique_ptr<Ui::frmImages> ui_;
  std::unique_ptr<ProductImages> images_;
  QTimer show_;       // what is picked, once all of its event has come
  qint64 mark_ = -1;  // of the database, when it was listed
  QString main_;      // the main picture's file at that time
  bool busy_ = false;
  bool mainRemoved_ = false;
};

}  // namespace vorlina
