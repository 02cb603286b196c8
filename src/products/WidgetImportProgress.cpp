#include "products/WidgetImportProgress.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "images/WidgetPicture.h"

namespace vorlina {
namespace {

// Logical pixels.
constexpr QSize PictureRoom{200, 200};
constexpr int FrameWidth = 360;

// Milliseconds between two pictures: nobody sees more of them, and each is decoded.
constexpr int PictureInterval = 100;

}  // namespace

WidgetImportProgress::WidgetImportProgress(QWidget& window)
    : QFrame(&window),
      window_(window),
      picMade_(new WidgetPicture(this)),
      lblFile_(new QLabel(this)),
      lblCount_(new QLabel(this)),
      prgElaborazione_(new QProgressBar(this)),
      cmdCancelBatch_(new QPushButton(this)) {
  setObjectName(u"fmeProgress"_qs);
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setAutoFillBackground(true);
  MakeControls();
  connect(cmdCancelBatch_, &QPushButton::clicked, this, [this] {
    AnnullaElaborazione = true;
    lblCount_->setText(Texts::tr("Annullamento..."));
  });
  window.installEventFilter(this);
  hide();
}

void WidgetImportProgress::MakeControls() {
  picMade_->setObjectName(u"picMade"_qs);
  lblFile_->setObjectName(u"lblFile"_qs);
  lblCount_->setObjectName(u"lblCount"_qs);
  prgElaborazione_->setObjectName(u"prgElaborazione"_qs);
  cmdCancelBatch_->setObjectName(u"cmdCancelBatch"_qs);
  lblFile_->setTextFormat(Qt::PlainText);
  lblCount_->setTextFormat(Qt::PlainText);
  prgElaborazione_->setTextVisible(false);
  prgElaborazione_->setValue(0);
  // The frame goes, and the focus of who presses stays where it is.
  cmdCancelBatch_->setFocusPolicy(Qt::TabFocus);
  setFixedWidth(FrameWidth);
  auto* room = new QWidget(this);
  room->setFixedHeight(PictureRoom.height());
  picMade_->setParent(room);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(room);
  for (QLabel* label : {lblFile_, lblCount_}) {
    label->setAlignment(Qt::AlignHCenter);
    layout->addWidget(label);
  }
  layout->addWidget(prgElaborazione_);
  layout->addWidget(cmdCancelBatch_, 0, Qt::AlignHCenter);
}

void WidgetImportProgress::Localize() {
  setAccessibleName(Texts::tr("Importazione"));
  prgElaborazione_->setAccessibleName(Texts::tr("Immagini importate"));
  cmdCancelBatch_->setText(Texts::tr("&Annulla"));
}

void WidgetImportProgress::MostraProgresso(int min, int max, bool show) {
  Localize();
  adjustSize();
  Centre();
  setVisible(show);
  if (min != max) {
    prgElaborazione_->setRange(min, max);
    prgElaborazione_->setValue(min);
  }
  AnnullaElaborazione = false;
  picMade_->SetPicture({});
  lblFile_->clear();
  made_.invalidate();
}

void WidgetImportProgress::Centre() {
  raise();
  move(std::max(0, (window_.width() - width()) / 2), std::max(0, (window_.height() - height()) / 2));
}

void WidgetImportProgress::Advance() {
  if (prgElaborazione_->value() < prgElaborazione_->maximum())
    prgElaborazione_->setValue(prgElaborazione_->value() + 1);
}

void WidgetImportProgress::ShowCount(int done, int total) {
  const QLocale locale;
  lblCount_->setText(Texts::tr("%1 di %2").arg(locale.toString(done), locale.toString(total)));
}

void WidgetImportProgress::ShowMade(const QString& file, const QString& mainImage) {
  if (made_.isValid() && made_.elapsed() < PictureInterval) return;
  made_.start();
  lblFile_->setText(lblFile_->fontMetrics().elidedText(OneLine(file), Qt::ElideMiddle, lblFile_->width()));
  picMade_->SetPicture(ShowThumbnail(mainImage, DevicePixels(*this, PictureRoom)));
  picMade_->FitInto(picMade_->parentWidget()->rect());
}

// Escape comes to the window where nothing in it has a use for it. Held, it may have closed another one.
bool WidgetImportProgress::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &window_ || !isVisible()) return QFrame::eventFilter(watched, event);
  if (event->type() == QEvent::Resize) Centre();
  if (event->type() != QEvent::KeyPress) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.key() != Qt::Key_Escape) return false;
  if (!key.isAutoRepeat()) cmdCancelBatch_->click();
  return true;
}

}  // namespace vorlina
