// The tour through the program.
#pragma once

#include <QDialog>
#include <memory>

#include "support/TourFilm.h"

namespace vorlina {

namespace Ui {
class frmTour;
}

class frmTour : public QDialog {
  Q_OBJECT

 public:
  explicit frmTour(QWidget* parent = nullptr);
  ~frmTour() override;

  // Takes the film in the program's language and plays it, where the desktop wants things to move. Without a
  // film the window is empty. To be called before it is shown.
  void LoadForm(const QString& film = TourPath());

 private:
  void ShowScene();

  std::unique_ptr<Ui::frmTour> ui_;
};

}  // namespace vorlina
