#include "base/WidgetProgressBox.h"

#include <QCoreApplication>
#include <QLabel>
#include <limits>

#include "base/Texts.h"

namespace vorlina {
namespace {

// Milliseconds between two paintings.
constexpr int PaintInterval = 40;

}  // namespace

WidgetProgressBox::WidgetProgressBox(QWidget* owner, const QString& text) : QProgressDialog(owner) {
  setObjectName(u"WidgetProgressBox"_qs);
  auto* label = new QLabel;
  label->setObjectName(u"lblProgress"_qs);
  label->setTextFormat(Qt::PlainText);
  label->setText(fontMetrics().elidedText(text, Qt::ElideRight, 600));
  setLabel(label);
  setCancelButtonText(Texts::tr("&Annulla"));
  setWindowTitle(u"Vorlina"_qs);
  setWindowModality(Qt::ApplicationModal);
  setMinimumWidth(fontMetrics().averageCharWidth() * 50);
  setMinimumDuration(0);
  setAutoClose(false);
  setAutoReset(false);
}

Progress WidgetProgressBox::Reporter() {
  return [this](qint64 done, qint64 total, const QString&) { return Show(done, total); };
}

bool WidgetProgressBox::Show(qint64 done, qint64 total) {
  if (painted_.isValid() && painted_.elapsed() < PaintInterval) return !wasCanceled();
  painted_.start();
  forceShow();
  const qint64 unit = total / std::numeric_limits<int>::max() + 1;  // bytes may be more
  setMaximum(int(total / unit));
  setValue(int(done / unit));  // paints, and takes what the user does
  return !wasCanceled();
}

}  // namespace vorlina
