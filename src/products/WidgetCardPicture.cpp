#include "products/WidgetCardPicture.h"

#include <QLabel>
#include <QMouseEvent>

#include "base/Helpers.h"
#include "images/WidgetPicture.h"

namespace vorlina {
namespace {

constexpr int Margin = 8;

}  // namespace

WidgetCardPicture::WidgetCardPicture(QWidget* parent)
    : QFrame(parent), picture_(new WidgetPicture(this)), text_(new QLabel(this)) {
  setFrameShape(QFrame::StyledPanel);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  picture_->setObjectName(u"picProduct"_qs);
  // A click is the box's.
  picture_->setAttribute(Qt::WA_TransparentForMouseEvents);
  text_->setObjectName(u"lblNoPicture"_qs);
  text_->setAttribute(Qt::WA_TransparentForMouseEvents);
  text_->setTextFormat(Qt::PlainText);
  text_->setAlignment(Qt::AlignCenter);
  text_->setWordWrap(true);
  text_->setForegroundRole(QPalette::PlaceholderText);
}

void WidgetCardPicture::Show(const QString& mainImage, const QString& otherwise) {
  picture_->SetPicture(ShowThumbnail(mainImage, DevicePixels(*this, contentsRect().size())));
  picture_->setVisible(!picture_->IsEmpty());
  text_->setText(otherwise);
  text_->setVisible(picture_->IsEmpty());
  setCursor(picture_->IsEmpty() ? Qt::ArrowCursor : Qt::PointingHandCursor);
  Fit();
}

void WidgetCardPicture::Fit() {
  const QRect room = contentsRect().adjusted(Margin, Margin, -Margin, -Margin);
  picture_->FitInto(room);
  text_->setGeometry(room);
}

void WidgetCardPicture::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  Fit();
}

void WidgetCardPicture::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->pos()) && !picture_->IsEmpty())
    Q_EMIT Clicked();
}

}  // namespace vorlina
