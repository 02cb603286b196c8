#include "publish/frmPublished.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QPushButton>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WidgetHeldKeys.h"
#include "base/WidgetPlace.h"
#include "publish/WidgetOpenFile.h"
#include "ui_frmPublished.h"

namespace vorlina {

frmPublished::frmPublished(QWidget* parent) : QDialog(parent), ui_(new Ui::frmPublished) {
  ui_->setupUi(this);
  QFont bold = ui_->lblDone->font();
  bold.setBold(true);
  ui_->lblDone->setFont(bold);
  connect(ui_->cmdCopy, &QPushButton::clicked, this, &frmPublished::Copy);
  connect(ui_->cmdOpen, &QPushButton::clicked, this, [this] { OpenFile(*this, open_); });
  connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  IgnoreHeldKeys(*this);
}

frmPublished::~frmPublished() = default;

void frmPublished::LoadForm(const VorlinaReport& report, const QString& target,
                            const QHash<QString, QString>& names) {
  ui_->retranslateUi(this);
  const std::vector<ReportGroup> groups = GroupsOf(report, names);
  ui_->txtTarget->setText(QDir::toNativeSeparators(target));
  ui_->txtTarget->setCursorPosition(0);
  ui_->lblNumbers->setText(NumbersOf(report));
  ui_->lblChanges->setText(ChangesOf(report));
  copied_ = PlainReport(report, target, groups);
  open_ = report.open.value(0);
  ui_->cmdOpen->setEnabled(!open_.isEmpty());
  ui_->lblNotes->setVisible(!groups.empty());
  ui_->lstNotes->setVisible(!groups.empty());
  if (groups.empty()) resize(width(), minimumSizeHint().height());
  FitIntoScreen(*this);
  ListNotes(groups);
  ui_->cmdClose->setFocus();
}

void frmPublished::ListNotes(const std::vector<ReportGroup>& groups) {
  QTreeWidget& list = *ui_->lstNotes;
  for (const auto& [title, lines] : groups) {
    auto* group = new QTreeWidgetItem(&list, {u"%1: %2"_qs.arg(title).arg(lines.size())});
    group->setFirstColumnSpanned(true);
    QList<QTreeWidgetItem*> items;
    for (const auto& [code, name, text] : lines) {
      auto* item = new QTreeWidgetItem(QStringList{OneLine(code), name, text});
      for (int column = 0; column < 3; ++column)
        item->setData(column, Qt::ToolTipRole, PlainToolTip(item->text(column)));
      items += item;
    }
    group->addChildren(items);
    group->setExpanded(true);
  }
  list.setColumnWidth(0, width() / 5);
  list.setColumnWidth(1, width() / 3);
}

void frmPublished::Copy() { QApplication::clipboard()->setText(copied_); }

}  // namespace vorlina
