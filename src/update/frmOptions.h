// The settings of the update: where updates come from, and by which way. The update programme reads them.
#pragma once

#include <QDialog>
#include <memory>

namespace vorlina {

namespace Ui {
class frmOptions;
}

class frmOptions : public QDialog {
  Q_OBJECT

 public:
  explicit frmOptions(QWidget* parent = nullptr);
  ~frmOptions() override;

  // Fills the window and brings it to the middle of the screen. To be called before it is shown.
  void LoadForm();

 private:
  void Fit();
  void LoadOptions();
  void ReadPassword();
  void SaveOptions();
  void SaveAndClose();
  void Localize_Form();

  std::unique_ptr<Ui::frmOptions> ui_;
  bool passwordKnown_ = false;
};

}  // namespace vorlina
