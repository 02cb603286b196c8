#include "products/frmLeftOut.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>

#include "base/Helpers.h"
#include "ui_frmLeftOut.h"

namespace vorlina {

frmLeftOut::frmLeftOut(QWidget* parent) : QDialog(parent), ui_(new Ui::frmLeftOut) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_DeleteOnClose);
  auto* copy = new QAction(ui_->lstEsclusi);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  ui_->lstEsclusi->addAction(copy);
  connect(copy, &QAction::triggered, this, &frmLeftOut::Copy);
  connect(ui_->cmdCopia, &QPushButton::clicked, this, &frmLeftOut::Copy);
  connect(ui_->cmdChiudi, &QPushButton::clicked, this, &QDialog::close);
}

frmLeftOut::~frmLeftOut() = default;

void frmLeftOut::LoadForm(const std::vector<LeftOutFile>& files) {
  ui_->retranslateUi(this);
  QList<QTreeWidgetItem*> items;
  for (const auto& [name, reason] : files) items += new QTreeWidgetItem(QStringList{OneLine(name), reason});
  ui_->lstEsclusi->addTopLevelItems(items);
  ui_->lstEsclusi->setCurrentItem(items.value(0));
  ui_->lstEsclusi->clearSelection();
  ui_->lstEsclusi->setColumnWidth(0, width() / 3);
}

// Those that are selected, or all.
void frmLeftOut::Copy() {
  const QTreeWidget& list = *ui_->lstEsclusi;
  const bool all = list.selectedItems().isEmpty();
  QStringList lines;
  for (int i = 0; i < list.topLevelItemCount(); ++i)
    if (const QTreeWidgetItem* item = list.topLevelItem(i); all || item->isSelected())
      lines += item->text(0) + u'\t' + item->text(1);
  QApplication::clipboard()->setText(lines.join(u"\r\n"_qs));
}

}  // namespace vorlina
