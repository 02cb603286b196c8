#include "publish/WidgetPictureChoice.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "base/Helpers.h"
#include "base/LastFolder.h"
#include "base/Texts.h"
#include "images/ShownPicture.h"

namespace vorlina {
namespace {

constexpr QSize SampleSize(96, 40);

QPixmap SampleOf(const QString& path, qreal ratio) {
  const QSize box = SampleSize * ratio;
  const QImage image = ShowPicture(path, box).image;
  if (image.isNull()) return {};
  QPixmap sample = QPixmap::fromImage(image.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation));
  sample.setDevicePixelRatio(ratio);
  return sample;
}

}  // namespace

WidgetPictureChoice::WidgetPictureChoice(QWidget* parent)
    : QWidget(parent),
      sample_(new QLabel(this)),
      text_(new QLabel(this)),
      choose_(new QPushButton(this)),
      clear_(new QPushButton(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(sample_);
  row->addWidget(text_, 1);
  row->addWidget(choose_);
  row->addWidget(clear_);
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  for (QPushButton* button : {choose_, clear_}) button->setAutoDefault(false);
  // Without a policy of its own no label's key and no tab order leads to it.
  setFocusPolicy(Qt::StrongFocus);
  setFocusProxy(choose_);
  connect(choose_, &QPushButton::clicked, this, &WidgetPictureChoice::ChooseFile);
  connect(clear_, &QPushButton::clicked, this, [this] {
    SetPath({});
    choose_->setFocus();
  });
}

void WidgetPictureChoice::Localize(const QString& what, const QString& none) {
  what_ = what;
  none_ = none;
  const QString name = objectName().mid(3);
  choose_->setObjectName(u"cmd"_qs + name);
  clear_->setObjectName(u"cmdNo"_qs + name);
  text_->setObjectName(u"txt"_qs + name);
  sample_->setObjectName(u"img"_qs + name);
  choose_->setText(Texts::tr("Scegli..."));
  choose_->setAccessibleName(Texts::tr("Scegli: %1").arg(what));
  clear_->setText(Texts::tr("Togli"));
  clear_->setAccessibleName(Texts::tr("Togli: %1").arg(what));
  SetPath(path_);
}

void WidgetPictureChoice::SetPath(const QString& path) {
  path_ = path;
  const QPixmap sample = path.isEmpty() ? QPixmap() : SampleOf(path, devicePixelRatioF());
  sample_->setPixmap(sample);
  sample_->setVisible(!sample.isNull());
  const QString name = QFileInfo(path).fileName();
  text_->setText(path.isEmpty()                                ? none_
                 : sample.isNull() && !QFileInfo::exists(path) ? Texts::tr("%1 non c'è più").arg(name)
                                                               : name);
  text_->setToolTip(PlainToolTip(path));
  clear_->setEnabled(!path.isEmpty());
}

void WidgetPictureChoice::ChooseFile() {
  const QString file =
      OpenFileFor(purpose::Pictures, window(), what_, Texts::tr("Immagini JPEG|*.jpg;*.jpeg"));
  if (!file.isEmpty()) SetPath(file);
}

}  // namespace vorlina
