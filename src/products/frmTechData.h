// The window in which the technical data of one product are kept: rows of a feature and its value. A row is
// written when it is left.
#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>
#include <optional>

#include "products/GridRefusals.h"
#include "products/TechData.h"
#include "store/Recordset.h"

class QKeyEvent;
class QLineEdit;

namespace vorlina {

class frmAdvancedEdit;
struct RowRefusal;

namespace Ui {
class frmTechData;
}

class frmTechData : public QWidget {
  Q_OBJECT

 public:
  explicit frmTechData(QWidget* parent = nullptr);
  ~frmTechData() override;

  // Set by the opener before LoadForm: the product, and a connection that stays open as long as the window.
  int IDCatalogo = 0;
  QString CodiceProdotto;
  Connection* Connessione = nullptr;

  // Fills the window. To be called once, before it is shown. Throws Error where the data cannot be read.
  void LoadForm();

 Q_SIGNALS:
  // The window was closed.
  void Closed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  // One of a row's texts: as the long editor was opened with it, and what was typed there.
  struct EditedText {
    QString column;
    QString opened;
    std::optional<QString> typed;
  };

  void Fill();
  void LayRules();
  void Localize_Form();
  QString LayoutFile() const;
  void LoadLayoutFile();
  std::optional<RowRefusal> CheckRow(int row) const;
  void EditRow();
  bool TakeEdited(qint64 bookmark, const EditedText& feature, const EditedText& value);
  void KeepUnchanged(const QString& value);
  void CompletaCaratteristica(QLineEdit& line) const;
  void Release();

  std::unique_ptr<Ui::frmTechData> ui_;
  std::unique_ptr<GridRefusals> refusals_;
  std::optional<TechData> data_;
  Recordset rsScheda;
  QPointer<frmAdvancedEdit> editor_;
};

}  // namespace vorlina
