// The system information, and the libraries in use with their licences.
#pragma once

#include <QDialog>
#include <memory>

#include "support/SystemInformation.h"

namespace vorlina {

namespace Ui {
class frmSystemInfo;
}

class frmSystemInfo : public QDialog {
  Q_OBJECT

 public:
  frmSystemInfo(QWidget& owner, std::vector<InformationGroup> groups);
  ~frmSystemInfo() override;

 private:
  void Fill();
  void Copy() const;

  std::unique_ptr<Ui::frmSystemInfo> ui_;
  std::vector<InformationGroup> groups_;
  std::vector<UsedLibrary> libraries_ = UsedLibraries();
};

}  // namespace vorlina
