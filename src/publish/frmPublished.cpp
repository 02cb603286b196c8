#include "publish/frmPublished.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <algorithm>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WidgetHeldKeys.h"
#include "base/WidgetPlace.h"
#include "publish/WidgetOpenFile.h"
#include "ui_frmPublished.h"

namespace vorlina {
namespace {

// A note often names a file, whose name stands at its end.
class NoteDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->textElideMode = Qt::ElideMiddle;
  }
};

// What is of no product has the whole line.
QTreeWidgetItem* ItemOf(const ReportLine& line, const ReportGroup& group) {
  QStringList columns{OneLine(line.code), line.name, group.text.isEmpty() ? line.text : QString()};
  if (line.code.isEmpty()) columns = {line.text};
  auto* item = new QTreeWidgetItem(columns);
  for (int column = 0; column < int(columns.size()); ++column)
    item->setData(column, Qt::ToolTipRole, PlainToolTip(columns[column]));
  return item;
}

}  // namespace

frmPublished::frmPublished(QWidget* parent) : QDialog(parent), ui_(new Ui::frmPublished) {
  ui_->setupUi(this);
  QFont bold = ui_->lblDone->font();
  bold.setBold(true);
  ui_->lblDone->setFont(bold);
  ui_->lstNotes->setItemDelegateForColumn(2, new NoteDelegate(this));
  connect(ui_->cmdCopy, &QPushButton::clicked, this, &frmPublished::Copy);
  connect(ui_->cmdOpen, &QPushButton::clicked, this, [this] { OpenFile(*this, open_); });
  connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  IgnoreHeldKeys(*this);
}

frmPublished::~frmPublished() = default;

void frmPublished::LoadForm(const VorlinaReport& report, const QString& what, const QString& target,
                            const QHash<QString, QString>& names) {
  ui_->retranslateUi(this);
  ui_->lblWhat->setText(what);
  const std::vector<ReportGroup> groups = GroupsOf(report, names);
  ui_->txtTarget->setText(QDir::toNativeSeparators(target));
  ui_->txtTarget->setCursorPosition(0);
  ui_->lblNumbers->setText(NumbersOf(report));
  ui_->lblChanges->setText(ChangesOf(report));
  copied_ = PlainReport(report, what, target, groups);
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
  for (const ReportGroup& group : groups) {
    auto* head = new QTreeWidgetItem(&list, {HeadOf(group)});
    head->setFirstColumnSpanned(true);
    QList<QTreeWidgetItem*> items;
    for (const ReportLine& line : group.lines) items += ItemOf(line, group);
    head->addChildren(items);
    head->setExpanded(true);
    for (std::size_t i = 0; i < group.lines.size(); ++i)
      items[qsizetype(i)]->setFirstColumnSpanned(group.lines[i].code.isEmpty());
  }
  const auto isOfProduct = [](const ReportLine& line) { return !line.code.isEmpty(); };
  const auto hasNotes = [&](const ReportGroup& group) {
    return group.text.isEmpty() && std::any_of(group.lines.begin(), group.lines.end(), isOfProduct);
  };
  FitColumns(std::any_of(groups.begin(), groups.end(), hasNotes));
}

// The note has what code and name leave; the name has it where no product has a note of its own.
void frmPublished::FitColumns(bool hasNotes) {
  ui_->lstNotes->setColumnHidden(2, !hasNotes);
  for (const auto& [column, most] : {std::pair{0, width() / 4}, {1, width() / 3}}) {
    ui_->lstNotes->resizeColumnToContents(column);
    ui_->lstNotes->setColumnWidth(column, std::min(ui_->lstNotes->columnWidth(column), most));
  }
}

void frmPublished::Copy() {
  QApplication::clipboard()->setText(copied_);
  ui_->cmdCopy->setText(Texts::tr("Resoconto c&opiato"));
}

}  // namespace vorlina
