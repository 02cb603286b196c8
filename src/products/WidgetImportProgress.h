// How far the import of a folder has come: a frame in the middle of its window, which goes on working behind
// it.
#pragma once

#include <QElapsedTimer>
#include <QFrame>

class QLabel;
class QProgressBar;
class QPushButton;

namespace vorlina {

class WidgetPicture;

class WidgetImportProgress : public QFrame {
 public:
  // Hidden at first.
  explicit WidgetImportProgress(QWidget& window);

  // The button was pressed, or Escape in the window.
  bool AnnullaElaborazione = false;

  // Shows the frame in the middle of the window, or hides it, and begins anew. Where the ends are the same
  // the bar stays as it is.
  void MostraProgresso(int min, int max, bool show);
  // One step on, as long as there is one.
  void Advance();
  // So many of all are done.
  void ShowCount(int done, int total);
  // The file that was imported last, and the main picture of its product; not all of very many that follow
  // each other.
  void ShowMade(const QString& file, const QString& mainImage);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeControls();
  void Localize();
  void Centre();

  QWidget& window_;
  WidgetPicture* picMade_;
  QLabel* lblFile_;
  QLabel* lblCount_;
  QProgressBar* prgElaborazione_;
  QPushButton* cmdCancelBatch_;
  QElapsedTimer made_;  // since a picture was shown
};

}  // namespace vorlina
