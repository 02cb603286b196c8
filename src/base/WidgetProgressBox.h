// A box that shows how far long work has come, and lets the user stop it. The window stays painted while the
// work goes on, and no other window of the program takes commands.
#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

#include "base/Progress.h"

class QLabel;

namespace vorlina {

class WidgetProgressBox : public QProgressDialog {
 public:
  // The text is shown as plain text.
  WidgetProgressBox(QWidget* owner, const QString& text);

  // The same.
  void SetText(const QString& text);

  // What the work reports to while the box lives.
  Progress Reporter();

 private:
  bool Show(qint64 done, qint64 total);

  QLabel* label_;
  QElapsedTimer painted_;
};

}  // namespace vorlina
