// The controls in which a profile is shown and changed: what there is of it in the window that asks how to
// publish.
#pragma once

#include <QObject>

#include "publish/PublishedProducts.h"
#include "publish/plugin/VorlinaJob.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace vorlina {

namespace Ui {
class frmPublish;
}

class WidgetPublishFields : public QObject {
 public:
  explicit WidgetPublishFields(Ui::frmPublish& ui);

  // Fills what is chosen from, in the language in use, and hides what the catalog does not have.
  void Localize(const CatalogNames& names);

  void Show(const VorlinaProfile& profile);
  // The profile that is shown, with what was changed.
  VorlinaProfile Read() const;
  void SetHighlights(const QStringList& codes);

  // The control of a member of VorlinaProfile, or of "target"; null for one that has none.
  QWidget* ControlOf(const QString& member) const;

  // The wheel scrolls the tab instead: a closed list would change its value unseen.
  void KeepWheelFrom(const QList<QComboBox*>& lists);
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowFonts();
  void FillPrices();
  void TellPrices();
  void FillSizes();
  void SetAccent(const QString& accent);
  void ChooseAccent();
  void ShowSisters();
  QCheckBox* ValueBox(std::size_t i) const;
  QCheckBox* FilterBox(std::size_t i) const;
  QLineEdit* SisterBox(qsizetype i) const;
  bool HidesNothing() const;

  Ui::frmPublish* ui_;
  CatalogNames names_;
  VorlinaProfile profile_;  // as it was shown
  QString accent_;
  QStringList highlights_;
  QList<QList<int>> sizes_;  // by the entries of their box
};

}  // namespace vorlina
