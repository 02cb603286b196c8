#include "support/frmKeys.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>

#include "base/Texts.h"
#include "base/WidgetPlace.h"
#include "ui_frmKeys.h"

namespace vorlina {

frmKeys::frmKeys(QWidget& owner, std::vector<KeyGroup> groups)
    : QDialog(&owner), ui_(new Ui::frmKeys), groups_(std::move(groups)) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_DeleteOnClose);
  connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
  connect(ui_->cmdCopy, &QPushButton::clicked, this, &frmKeys::Copy);
  // The list's own answer to the key is the current cell alone.
  auto* copy = new QAction(ui_->lstKeys);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this, &frmKeys::Copy);
  ui_->lstKeys->addAction(copy);
  Fill();
  FitIntoScreen(*this);
}

frmKeys::~frmKeys() = default;

void frmKeys::Open(QWidget& owner, std::vector<KeyGroup> groups) {
  auto* window = owner.findChild<frmKeys*>(QString(), Qt::FindDirectChildrenOnly);
  if (window == nullptr) window = new frmKeys(owner, std::move(groups));
  window->show();
  window->raise();
  window->activateWindow();
}

void frmKeys::Fill() {
  QTreeWidget& list = *ui_->lstKeys;
  QFont bold = list.font();
  bold.setBold(true);
  for (const KeyGroup& group : groups_) {
    auto* title = new QTreeWidgetItem(&list, {group.title});
    title->setFont(0, bold);
    title->setFirstColumnSpanned(true);
    for (const KeyLine& line : group.lines) new QTreeWidgetItem(title, {line.keys, line.use});
  }
  list.expandAll();
  list.resizeColumnToContents(0);
  list.setCurrentItem(list.topLevelItem(0));
}

// What is selected beyond the line that the list stands on, else all.
void frmKeys::Copy() const {
  const QList<QTreeWidgetItem*> selected = ui_->lstKeys->selectedItems();
  QString text;
  for (const QTreeWidgetItem* item : selected)
    text += item->text(0) + (item->text(1).isEmpty() ? QString() : u'\t' + item->text(1)) + u'\n';
  QApplication::clipboard()->setText(selected.size() > 1 ? text : AsText(groups_));
}

}  // namespace vorlina
