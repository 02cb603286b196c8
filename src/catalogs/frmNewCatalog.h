// The wizard that makes a catalog in four steps: names, filters, company, what to do next. Nothing reaches
// the database before its Finish button.
#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "catalogs/NewCatalog.h"

class QLineEdit;
class QPushButton;

namespace vorlina {

namespace Ui {
class frmNewCatalog;
}

class frmNewCatalog : public QDialog {
  Q_OBJECT

 public:
  explicit frmNewCatalog(QWidget* parent = nullptr);
  ~frmNewCatalog() override;

  // Set by the opener before LoadForm: how the main window reached the database.
  QString ConnectionText;

  // Lays the language over the window and shows the first step. To be called once, before the window is
  // shown.
  void LoadForm();

  void done(int result) override;
  void reject() override;

 Q_SIGNALS:
  // What was chosen for a catalog that is stored. The wizard has closed.
  void EditWanted(int IDCatalogo, const QString& caption);
  void AnotherWanted();
  void MainMenuWanted();
  // The wizard was left by Cancel, Escape or its close button.
  void Cancelled();

 private:
  void ConnectControls();
  void Localize_Form();
  void CaptionButtons();
  void cmdNav_Click(int index);
  void ShowStep(int step);
  QWidget* FirstControl(int step) const;
  void SetNavButtons(int step);
  bool CheckStep(int step);
  void OfferCompany();
  void cmdBrowse_Click();
  void SetLogo(const QString& path, QSize size);
  NewCatalog Collected() const;
  void CreateCatalog();
  void EndAsChosen(const NewCatalog& catalog);

  std::unique_ptr<Ui::frmNewCatalog> ui_;
  // The controls of an array in the order of their index.
  std::vector<QPushButton*> cmdNav;
  std::vector<QLineEdit*> txtValue;
  std::vector<QLineEdit*> txtFilter;
  int StepCorrente = 1;
  int BaseTesti = 106;
  int BasePulsanti = 101;
  static constexpr int BaseImmagini = 101;
  QString TitoloForm;
  QString LogoPath;
  int LogoHeight = 0;
  int LogoWidth = 0;
  // The row of an attempt whose logo failed; the next one goes on with it.
  int IDCatalogo = 0;
  QMap<QString, QString> offered_;
};

}  // namespace vorlina
