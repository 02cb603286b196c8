#include "support/frmSystemInfo.h"

#include <QApplication>
#include <QClipboard>

#include "base/WidgetPlace.h"
#include "ui_frmSystemInfo.h"

namespace vorlina {

frmSystemInfo::frmSystemInfo(QWidget& owner, std::vector<InformationGroup> groups)
    : QDialog(&owner), ui_(new Ui::frmSystemInfo), groups_(std::move(groups)) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_DeleteOnClose);
  connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
  connect(ui_->cmdCopy, &QPushButton::clicked, this, &frmSystemInfo::Copy);
  FitIntoScreen(*this);
  Fill();
}

frmSystemInfo::~frmSystemInfo() = default;

void frmSystemInfo::Fill() {
  QFont bold = ui_->lstInfo->font();
  bold.setBold(true);
  for (const InformationGroup& group : groups_) {
    auto* title = new QTreeWidgetItem(ui_->lstInfo, {group.title});
    title->setFont(0, bold);
    title->setFirstColumnSpanned(true);
    for (const InformationLine& line : group.lines) new QTreeWidgetItem(title, {line.what, line.value});
  }
  for (const UsedLibrary& library : libraries_)
    new QTreeWidgetItem(ui_->lstLibrerie, {library.name, library.version, library.licence});
  for (QTreeWidget* list : {ui_->lstInfo, ui_->lstLibrerie}) {
    list->expandAll();
    for (int column = 0; column + 1 < list->columnCount(); ++column) list->resizeColumnToContents(column);
    list->setCurrentItem(list->topLevelItem(0));
  }
}

void frmSystemInfo::Copy() const { QApplication::clipboard()->setText(AsText(groups_, libraries_)); }

}  // namespace vorlina
