// The files of a folder that were not imported, each with the reason.
#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "products/PictureImport.h"

namespace vorlina {

namespace Ui {
class frmLeftOut;
}

class frmLeftOut : public QDialog {
  Q_OBJECT

 public:
  // Goes when it is closed.
  explicit frmLeftOut(QWidget* parent = nullptr);
  ~frmLeftOut() override;

  // To be called once, before it is shown.
  void LoadForm(const std::vector<LeftOutFile>& files);

 private:
  void Copy();

  std::unique_ptr<Ui::frmLeftOut> ui_;
};

}  // namespace vorlina
