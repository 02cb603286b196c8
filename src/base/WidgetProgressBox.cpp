#include "base/WidgetProgressBox.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <limits>

#include "base/Texts.h"

namespace vorlina {
namespace {

// Milliseconds between two paintings.
constexpr int PaintInterval = 40;

}  // namespace

WidgetProgressBox::WidgetProgressBox(QWidget* owner, const QString& text)
    : QProgressDialog(owner), label_(new QLabel) {
  setObjectName(u"WidgetProgressBox"_qs);
  label_->setObjectName(u"lblProgress"_qs);
  label_->setTextFormat(Qt::PlainText);
  setLabel(label_);
  SetText(text);
  setCancelButtonText(Texts::tr("&Annulla"));
  findChild<QPushButton*>()->setAutoDefault(false);  // an Enter too many is no wish to stop
  setWindowTitle(u"Vorlina"_qs);
  setWindowModality(Qt::ApplicationModal);
  setMinimumWidth(fontMetrics().averageCharWidth() * 50);
  setMinimumDuration(0);
  setAutoClose(false);
  setAutoReset(false);
}

void WidgetProgressBox::SetText(const QString& text) {
  const QString shown = fontMetrics().elidedText(text, Qt::ElideRight, 600);
  if (shown == label_->text()) return;
  label_->setText(shown);
  resize(size().expandedTo(sizeHint()));
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
