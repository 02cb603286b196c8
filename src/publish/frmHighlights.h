// The window in which the products are chosen that a profile brings to the fore.
#pragma once

#include <QDialog>
#include <memory>

#include "publish/HighlightModel.h"

namespace vorlina {

namespace Ui {
class frmHighlights;
}

class frmHighlights : public QDialog {
  Q_OBJECT

 public:
  explicit frmHighlights(QWidget* parent = nullptr);
  ~frmHighlights() override;

  // To be called once, before the window is shown.
  void LoadForm(std::vector<PublishedProduct> products, const QStringList& chosen);

  QStringList Chosen() const { return products_.Chosen(); }

  void reject() override;

 private:
  void FitColumns();
  void Filter();
  void ShowCount();
  void GoToList();

  std::unique_ptr<Ui::frmHighlights> ui_;
  HighlightModel products_;
  QStringList before_;  // those that were chosen when it was opened
};

}  // namespace vorlina
