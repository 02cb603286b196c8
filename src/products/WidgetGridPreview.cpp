#include "products/WidgetGridPreview.h"

#include <QEvent>
#include <QFile>
#include <QFrame>

#include "images/FitPicture.h"
#include "images/PictureFolder.h"
#include "images/WidgetPicture.h"

namespace vorlina {
namespace {

// In logical pixels: 2000 and 30 of the twips in which the window was designed, 15 to a pixel.
constexpr QSize UsualBox{133, 133};
constexpr int ShadowStep = 2;

QFrame* MakeBox(QWidget* parent, const QString& name) {
  auto* box = new QFrame(parent);
  box->setObjectName(name);
  box->setAutoFillBackground(true);
  box->hide();
  return box;
}

}  // namespace

WidgetGridPreview::WidgetGridPreview(QWidget& grid)
    : QObject(&grid),
      grid_(grid),
      picShadow(MakeBox(grid.parentWidget(), u"picShadow"_qs)),
      picExt(MakeBox(grid.parentWidget(), u"picExt"_qs)),
      picInt(new WidgetPicture(picExt)) {
  QPalette dark = picShadow->palette();
  dark.setColor(QPalette::Window, QColor(0, 0, 0, 110));
  picShadow->setPalette(dark);
  picShadow->setAttribute(Qt::WA_TransparentForMouseEvents);
  picExt->setFrameShape(QFrame::Box);
  picExt->setMouseTracking(true);
  picExt->resize(UsualBox);
  picInt->setObjectName(u"picInt"_qs);
  picInt->setMouseTracking(true);
  picExt->installEventFilter(this);
  picInt->installEventFilter(this);
}

void WidgetGridPreview::Show(const QString& mainImage, QPoint point) {
  if (mainImage.isEmpty()) return Hide();
  const QString thumbnail = ThumbnailPath(mainImage);
  const QString path = QFile::exists(thumbnail) ? thumbnail : mainImage;
  if (path == Tag) return;
  const ShownPicture picture = ShowThumbnail(mainImage, DevicePixels(grid_, UsualBox));
  if (picture.image.isNull()) return Hide();
  const int frame = 2 * picExt->frameWidth();
  const QSize inner = UsualBox - QSize(frame, frame);
  const QSize size = FitPicture(picture.size, inner, false).size().toSize().expandedTo({1, 1});
  picExt->resize(size + QSize(frame, frame));
  picInt->SetPicture(picture);
  picInt->FitInto(picExt->contentsRect());
  Place(point);
  picShadow->raise();
  picExt->raise();
  picShadow->show();
  picExt->show();
  Tag = path;
}

// Where there is no room below the point, the box opens upward.
void WidgetGridPreview::Place(QPoint point) {
  const bool below = picExt->height() + point.y() < grid_.height();
  picExt->move(grid_.pos() + point - QPoint(0, below ? 0 : picExt->height()));
  picShadow->setGeometry(picExt->geometry().translated(ShadowStep, ShadowStep));
}

void WidgetGridPreview::HideBox() {
  picExt->hide();
  Tag.clear();
  picExt->resize(UsualBox);
}

void WidgetGridPreview::Hide() {
  picShadow->hide();
  HideBox();
}

// What it has gone to is known behind the event that tells of its leaving.
void WidgetGridPreview::PointerLeft() {
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (!picExt->underMouse()) Hide();
      },
      Qt::QueuedConnection);
}

// The shadow waits for the next move over the grid.
bool WidgetGridPreview::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseMove) HideBox();
  return QObject::eventFilter(watched, event);
}

}  // namespace vorlina
