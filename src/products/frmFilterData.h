// The window in which the values of one filter are maintained, and the filter gets its name. A row is written
// when it is left; the name is stored when the window closes.
#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "products/FilterData.h"
#include "products/GridRefusals.h"
#include "store/Recordset.h"

namespace vorlina {

struct RowRefusal;

namespace Ui {
class frmFilterData;
}

class frmFilterData : public QWidget {
  Q_OBJECT

 public:
  explicit frmFilterData(QWidget* parent = nullptr);
  ~frmFilterData() override;

  // Set by the opener before LoadForm: the catalog, the filter, "1" to "5", its name as it is shown, and a
  // connection that stays open as long as the window.
  int IDCatalogo = 0;
  QString NumeroFiltro;
  QString NomeFiltro;
  Connection* Connessione = nullptr;

  // Fills the window. To be called once, before it is shown. Throws Error where the values cannot be read.
  void LoadForm();

 Q_SIGNALS:
  // Values were added, changed or deleted.
  void ValuesChanged(int filter);
  // The filter has another name, as it is shown.
  void FilterRenamed(int filter, const QString& name);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void Localize_Form();
  void LayRules();
  std::optional<RowRefusal> CheckRow(int row);
  QString TypedName() const;
  void CheckName();
  void StoreName();
  void Release();

  std::unique_ptr<Ui::frmFilterData> ui_;
  std::unique_ptr<GridRefusals> refusals_;
  std::optional<FilterData> values_;
  Recordset rsValori;
};

}  // namespace vorlina
