// What came of a publication: how much there is, what changed, and what the user should look at.
#pragma once

#include <QDialog>
#include <memory>

#include "publish/ReportText.h"

namespace vorlina {

namespace Ui {
class frmPublished;
}

class frmPublished : public QDialog {
  Q_OBJECT

 public:
  explicit frmPublished(QWidget* parent = nullptr);
  ~frmPublished() override;

  // What was published in words, and where; the names are those of the products, by their codes. To be called
  // once, before the window is shown.
  void LoadForm(const VorlinaReport& report, const QString& what, const QString& target,
                const QHash<QString, QString>& names);

 private:
  void ListNotes(const std::vector<ReportGroup>& groups);
  void FitColumns(bool hasNotes);
  void Copy();

  std::unique_ptr<Ui::frmPublished> ui_;
  QString copied_;  // the whole report
  QString open_;    // what Open opens; "" for nothing
};

}  // namespace vorlina
