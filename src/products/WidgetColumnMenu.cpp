#include "products/WidgetColumnMenu.h"

#include <QActionGroup>

#include "base/CommandIcon.h"
#include "grid/DataGrid.h"
#include "products/GridCommands.h"

namespace vorlina {

WidgetColumnMenu::WidgetColumnMenu(DataGrid& grid) : QMenu(u"Colonna"_qs, &grid), grid_(grid) {
  setObjectName(u"mnuColonna"_qs);
  mnuTestoACapo = addAction(u"Testo a capo"_qs);
  mnuTestoACapo->setObjectName(u"mnuTestoACapo"_qs);
  mnuTestoACapo->setCheckable(true);
  mnuAllineamento = addMenu(u"Allineamento"_qs);
  mnuAllineamento->setObjectName(u"mnuAllineamento"_qs);
  auto* alignments = new QActionGroup(this);
  for (std::size_t i = 0; i < AlignmentMenu.size(); ++i) {
    QAction* entry = mnuAllineamento->addAction(Text(AlignmentMenu[i].italian));
    entry->setObjectName(u"mnuTipoAllineamento_%1"_qs.arg(i));
    entry->setCheckable(true);
    alignments->addAction(entry);
    mnuTipoAllineamento[i] = entry;
  }
  addSeparator();
  for (const MenuCommand& command : ColumnMenu)
    connect(AddCommand(*this, command, grid), &QAction::triggered, this,
            [this, entry = Text(command.key)] { Run(entry); });
  // The menu hides before the entry that was chosen moves its check.
  connect(this, &QMenu::aboutToHide, this, &WidgetColumnMenu::Apply, Qt::QueuedConnection);
}

void WidgetColumnMenu::Localize() {
  setTitle(u"Columns"_qs);
  mnuTestoACapo->setText(u"Wordwrap"_qs);
  mnuAllineamento->setTitle(u"Alignment"_qs);
  for (std::size_t i = 0; i < AlignmentMenu.size(); ++i)
    mnuTipoAllineamento[i]->setText(Text(AlignmentMenu[i].english));
  LocalizeCommands(*this, ColumnMenu);
}

void WidgetColumnMenu::PopUp(const QString& key, const QPoint& position) {
  const int column = grid_.Rows().ColumnOf(key);
  if (column < 0) return;
  key_ = key;
  up_ = true;
  mnuTestoACapo->setChecked(grid_.Rows().Column(column).wordWrap);
  mnuTipoAllineamento[std::size_t(grid_.AlignmentOf(key))]->setChecked(true);
  popup(position);
}

void WidgetColumnMenu::Run(const QString& entry) {
  const QString key = up_ ? key_ : grid_.CurrentKey();
  if (entry != u"mnuOrdina") return grid_.MoveColumn(key, entry == u"mnuSpostaDestra");
  if (OnSort) OnSort(key);
}

void WidgetColumnMenu::Apply() {
  up_ = false;
  grid_.SetWordWrap(key_, mnuTestoACapo->isChecked());
  for (std::size_t i = 0; i < mnuTipoAllineamento.size(); ++i)
    if (mnuTipoAllineamento[i]->isChecked()) return grid_.SetAlignment(key_, GridAlignment(i));
}

}  // namespace vorlina
