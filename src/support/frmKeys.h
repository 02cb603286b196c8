// The overview of keys.
#pragma once

#include <QDialog>
#include <memory>

#include "support/KeyOverview.h"

namespace vorlina {

namespace Ui {
class frmKeys;
}

class frmKeys : public QDialog {
  Q_OBJECT

 public:
  frmKeys(QWidget& owner, std::vector<KeyGroup> groups);
  ~frmKeys() override;

  // Shows the overview beside its owner; one that is open comes to the front.
  static void Open(QWidget& owner, std::vector<KeyGroup> groups);

 private:
  void Fill();
  void Copy() const;

  std::unique_ptr<Ui::frmKeys> ui_;
  std::vector<KeyGroup> groups_;
};

}  // namespace vorlina
