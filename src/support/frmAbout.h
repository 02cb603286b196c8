// What the program is, and the way to the system information.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>

#include "support/SystemInformation.h"

namespace vorlina {

namespace Ui {
class frmAbout;
}

class frmAbout : public QDialog {
  Q_OBJECT

 public:
  using Gather = std::function<std::vector<InformationGroup>()>;

  // The information is gathered when it is asked for; what that throws is told.
  frmAbout(QWidget& owner, Gather information);
  ~frmAbout() override;

  // Shows it beside its owner; one that is open comes to the front.
  static void Open(QWidget& owner, Gather information);

 private:
  void StartSysInfo();
  void Localize_Form();

  std::unique_ptr<Ui::frmAbout> ui_;
  Gather information_;
};

}  // namespace vorlina
