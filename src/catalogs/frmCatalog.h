// The properties of a catalog: its names, the company, the logo and what its publication says. There is
// nothing to press: what was changed is stored when the window closes, after a question.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "catalogs/CatalogProperties.h"
#include "store/Recordset.h"

namespace vorlina {

namespace Ui {
class frmCatalog;
}

class frmCatalog : public QWidget {
  Q_OBJECT

 public:
  explicit frmCatalog(QWidget* parent = nullptr);
  ~frmCatalog() override;

  // Set by the opener before LoadForm: a recordset of Cataloghi that stands on the catalog, and its
  // connection, which stays open as long as the window.
  Recordset CatalogRs;
  Connection* Connessione = nullptr;
  // Whether something is at work whose transaction the statements would become a part of.
  std::function<bool()> IsBusy;
  // Asked before anything is written, with whether values or filters get other names: whether what works on
  // the catalog elsewhere lets that happen.
  std::function<bool(bool names)> MayWrite;

  // Whether nothing needs saving.
  bool Saved = true;

  // Fills the window. To be called once, before it is shown. Throws Error where the catalog cannot be read.
  void LoadForm();

 Q_SIGNALS:
  // The catalog was stored; the caption is for windows on it.
  void CatalogStored(const QString& caption);
  // It was to be stored, and was not.
  void CatalogRefused();
  // The window has closed.
  void Closed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void ConnectControls();
  void Localize_Form();
  void LoadFields();
  void CheckChanged();
  void SaveCatalog();
  bool Settle();
  bool MayWriteOver();
  void GoTo(const QString& column);
  void cmdBrowse_Click();
  void SetLogo(const QString& path, QSize size);
  void ShowLogo();
  QWidget* BoxOf(const QString& column) const;
  QString CaptionOf(const QString& column) const;
  PropertyTexts Typed() const;

  std::unique_ptr<Ui::frmCatalog> ui_;
  std::unique_ptr<CatalogProperties> properties_;
  bool closing_ = false;
};

}  // namespace vorlina
