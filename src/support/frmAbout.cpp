#include "support/frmAbout.h"

#include <QLoggingCategory>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Settings.h"
#include "base/Texts.h"
#include "support/frmSplash.h"
#include "support/frmSystemInfo.h"
#include "ui_frmAbout.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(support, "vorlina.support", QtInfoMsg)

void ComeToFront(QWidget& window) {
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace

frmAbout::frmAbout(QWidget& owner, Gather information)
    : QDialog(&owner), ui_(new Ui::frmAbout), information_(std::move(information)) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_DeleteOnClose);
  connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->cmdSysInfo, &QPushButton::clicked, this, &frmAbout::StartSysInfo);
  ui_->picIcon->setPixmap(ProgramIcon().pixmap(QSize(64, 64), devicePixelRatioF()));
  Localize_Form();
}

frmAbout::~frmAbout() = default;

void frmAbout::Open(QWidget& owner, Gather information) {
  auto* window = owner.findChild<frmAbout*>(QString(), Qt::FindDirectChildrenOnly);
  if (window == nullptr) window = new frmAbout(owner, std::move(information));
  ComeToFront(*window);
}

void frmAbout::StartSysInfo() {
  try {
    auto* window = findChild<frmSystemInfo*>();
    if (window == nullptr) window = new frmSystemInfo(*this, information_());
    ComeToFront(*window);
  } catch (const std::exception& error) {
    qCWarning(support) << DescriptionOf(error);
    TheDialogs().Message(this, Texts::tr("Le informazioni sul sistema non sono attualmente disponibili."));
  }
}

void frmAbout::Localize_Form() {
  ui_->retranslateUi(this);
  setWindowTitle(PlainTitle(Texts::tr("Informazioni su %1").arg(ApplicationTitle())));
  ui_->lblVersion->setText(VersionText());
}

}  // namespace vorlina
