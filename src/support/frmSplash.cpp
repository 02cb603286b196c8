#include "support/frmSplash.h"

#include <QCoreApplication>
#include <QScreen>
#include <QSysInfo>
#include <QVersionNumber>

#include "base/Texts.h"
#include "support/Language.h"
#include "ui_frmSplash.h"

// The pictures lie in a static library, from which they come when they are asked for.
static void InitPictures() { Q_INIT_RESOURCE(support); }

namespace vorlina {
namespace {

QString VersionNumbers() {
  const QVersionNumber version = QVersionNumber::fromString(QCoreApplication::applicationVersion());
  return u"%1.%2.%3"_qs.arg(version.majorVersion()).arg(version.minorVersion()).arg(version.microVersion());
}

// The platform that the program really runs on, such as "Debian GNU/Linux 12 (bookworm), x86_64".
QString PlatformText() {
  return QSysInfo::prettyProductName() + u", "_qs + QSysInfo::currentCpuArchitecture();
}

const char16_t LegalLine[] = u"Copyright © 2026 Norsel";

}  // namespace

QString VersionText() { return Texts::tr("Versione ") + VersionNumbers(); }

QIcon ProgramIcon() {
  InitPictures();
  return QIcon(u":/support/vorlina.svg"_qs);
}

frmSplash::frmSplash(QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint),
      ui_(new Ui::frmSplash),
      Timer1(new QTimer(this)) {
  ui_->setupUi(this);
  Timer1->setObjectName(u"Timer1"_qs);
  Timer1->setSingleShot(true);
  Timer1->setInterval(Interval);
  connect(Timer1, &QTimer::timeout, this, &frmSplash::EndByTimer);
}

frmSplash::~frmSplash() = default;

void frmSplash::LoadSplash() {
  ui_->picIcon->setPixmap(ProgramIcon().pixmap(QSize(96, 96), devicePixelRatioF()));
  ui_->lblPlatform->setText(PlatformText());
  ui_->lblCopyright->setText(QString::fromUtf16(LegalLine));
  ui_->lblCompany->setText(QCoreApplication::organizationName());
  ChooseLanguage();
  Localize_Form();
  if (const QScreen* where = screen()) move(where->availableGeometry().center() - rect().center());
  Timer1->start();
}

void frmSplash::Localize_Form() {
  ui_->retranslateUi(this);
  if (Language == u"English") setWindowTitle({});
  ui_->lblVersion->setText(VersionText());
  ui_->lblPlatform->setText(PlatformText());
}

void frmSplash::mousePressEvent(QMouseEvent*) { EndByUser(); }

void frmSplash::keyPressEvent(QKeyEvent*) { EndByUser(); }

void frmSplash::EndByTimer() {
  if (std::exchange(ended_, true)) return;
  Q_EMIT Ended();
  close();
}

void frmSplash::EndByUser() {
  if (std::exchange(ended_, true)) return;
  Timer1->stop();
  close();
  Q_EMIT Ended();
}

}  // namespace vorlina
