// What came of an import, in the status bar: it stays until the next one, with the list of what was left out
// behind a button.
#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "products/PictureImport.h"

class QLabel;
class QPushButton;

namespace vorlina {

class frmLeftOut;

class WidgetImportOutcome : public QWidget {
 public:
  // Hidden at first.
  explicit WidgetImportOutcome(QWidget* parent = nullptr);

  void Clear();
  void Show(const QString& text, const std::vector<LeftOutFile>& leftOut);

 private:
  void OpenList();

  QLabel* lblImportati_;
  QPushButton* cmdEsclusi_;
  std::vector<LeftOutFile> leftOut_;
  QPointer<frmLeftOut> list_;
};

}  // namespace vorlina
