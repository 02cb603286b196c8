#include "images/frmImage.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLoggingCategory>
#include <QScreen>
#include <algorithm>

#include "base/Error.h"
#include "base/Settings.h"
#include "base/WindowPlace.h"
#include "images/ShownPicture.h"
#include "images/WidgetPicture.h"
#include "ui_frmImage.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(images, "vorlina.images", QtInfoMsg)

constexpr int DockingInterval = 100;

// What window managers put around two windows side by side.
constexpr QSize UsualFrames{16, 40};

// A stored coordinate, or the fallback where there is none or it is no number.
int StoredCoordinate(const QString& key, int fallback) {
  bool isNumber = false;
  const double value =
      GetSetting(ApplicationTitle(), u"Riservati"_qs, key, QString::number(fallback)).toDouble(&isNumber);
  return isNumber && qAbs(value) < 1e6 ? qRound(value) : fallback;
}

QList<QRect> ScreenAreas(const QScreen& first) {
  QList<QRect> areas{first.availableGeometry()};
  for (const QScreen* screen : QGuiApplication::screens()) areas += screen->availableGeometry();
  return areas;
}

// How far a bar at this value would move a picture of this size under a base of the size at load.
double ScrollOffset(const QScrollBar& bar, int base, int size) {
  return bar.value() == bar.maximum() ? base - size : double(base) / bar.maximum() * bar.value();
}

}  // namespace

frmImage::frmImage(QWidget* parent)
    : QWidget(parent, Qt::Window), ui_(new Ui::frmImage), Move(new QTimer(this)) {
  ui_->setupUi(this);
  Move->setObjectName(u"Move"_qs);
  Move->setInterval(DockingInterval);
  connect(Move, &QTimer::timeout, this, &frmImage::Move_Timer);
  connect(ui_->HScroll, &QScrollBar::valueChanged, this, &frmImage::HScroll_Change);
  connect(ui_->VScroll, &QScrollBar::valueChanged, this, &frmImage::VScroll_Change);
}

frmImage::~frmImage() = default;

void frmImage::LoadForm() {
  AltezzaBase = ui_->Picture1->height();
  LarghezzaBase = ui_->Picture1->width();
  MoveToStoredPlace();
  ImageLoad(Percorso);
  Localize_Form();
  Move->start();
}

void frmImage::Localize_Form() { ui_->retranslateUi(this); }

// The first place is the centre of the screen, the window's corner standing there.
void frmImage::MoveToStoredPlace() {
  const QSize screenSize = screen()->geometry().size();
  const int top = StoredCoordinate(u"ImmagineTop"_qs, screenSize.height() / 2);
  const int left = StoredCoordinate(u"ImmagineLeft"_qs, screenSize.width() / 2);
  move(VisibleCorner({left, top}, size(), ScreenAreas(*QGuiApplication::primaryScreen())));
}

// A window that cannot store its place closes all the same.
void frmImage::StorePlace() {
  try {
    SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"ImmagineTop"_qs, QString::number(y()));
    SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"ImmagineLeft"_qs, QString::number(x()));
  } catch (const std::exception& error) {
    qCDebug(images) << "place not stored" << DescriptionOf(error);
  }
}

void frmImage::ImageLoad(const QString& path) {
  ShownPicture picture = ShowPicture(path, DevicePixels(*this, size()));
  const bool bad = picture.image.isNull();
  ui_->Picture1->SetPicture(std::move(picture));
  ui_->Picture1->setVisible(!bad);
  ui_->Picture1->FitInto(rect());
}

void frmImage::restore() {
  InRipristino = true;
  UltimoLeft = 0;
  UltimoTop = 0;
  InRipristino = false;
}

void frmImage::Move_Timer() {
  if (ListaImmagini == nullptr || InRipristino) return;
  const bool docked = UltimoLeft != 0 || UltimoTop != 0;
  const int widths = frameGeometry().width() + ListaImmagini->frameGeometry().width();
  if (docked && x() == UltimoLeft && y() == UltimoTop && widths == widths_) return;
  DockList();
  UltimoLeft = x();
  UltimoTop = y();
  widths_ = widths;
}

// Where it would be out of sight it comes back onto the screen.
void frmImage::DockList() {
  const QPoint edge(x() + frameGeometry().width(), y());
  ListaImmagini->move(VisibleCorner(edge, ListaImmagini->frameGeometry().size(), ScreenAreas(*screen())));
}

void frmImage::MakeRoomForList() {
  if (ListaImmagini == nullptr) return;
  const QSize list = ListaImmagini->size();
  const QSize both = QSize(width() + list.width(), std::max(height(), list.height())) + UsualFrames;
  move(WholeCorner(pos(), both, ScreenAreas(*screen())));
  DockList();
}

void frmImage::HScroll_Change() {
  ScostamentoX = ScrollOffset(*ui_->HScroll, LarghezzaBase, ui_->Picture1->width());
  ui_->Picture1->update();
}

void frmImage::VScroll_Change() {
  ScostamentoY = ScrollOffset(*ui_->VScroll, AltezzaBase, ui_->Picture1->height());
  ui_->Picture1->update();
}

// The list follows the edge, which has moved.
void frmImage::resizeEvent(QResizeEvent*) {
  ui_->Picture1->FitInto(rect());
  restore();
}

void frmImage::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

// The two windows close together or not at all: a box of the list may be up.
void frmImage::closeEvent(QCloseEvent* event) {
  if (ListaImmagini != nullptr && !ListaImmagini->close()) return event->ignore();
  Move->stop();
  StorePlace();
  if (Card != nullptr) Card->activateWindow();
  QWidget::closeEvent(event);
}

}  // namespace vorlina
