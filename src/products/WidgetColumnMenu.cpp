#include "products/WidgetColumnMenu.h"

#include <QActionGroup>

#include "base/CommandIcon.h"
#include "base/Texts.h"
#include "grid/DataGrid.h"
#include "products/GridCommands.h"

namespace vorlina {

WidgetColumnMenu::WidgetColumnMenu(DataGrid& grid) : QMenu(&grid), grid_(grid) {
  setObjectName(u"mnuColonna"_qs);
  mnuTestoACapo = addAction(QString());
  mnuTestoACapo->setObjectName(u"mnuTestoACapo"_qs);
  mnuTestoACapo->setCheckable(true);
  mnuAllineamento = addMenu(QString());
  mnuAllineamento->setObjectName(u"mnuAllineamento"_qs);
  auto* alignments = new QActionGroup(this);
  for (std::size_t i = 0; i < AlignmentMenu.size(); ++i) {
    QAction* entry = mnuAllineamento->addAction(QString());
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
  setTitle(Texts::tr("Colonna"));
  mnuTestoACapo->setText(Texts::tr("Testo a capo"));
  mnuAllineamento->setTitle(Texts::tr("Allineamento"));
  for (std::size_t i = 0; i < AlignmentMenu.size(); ++i)
    mnuTipoAllineamento[i]->setText(Texts::tr(AlignmentMenu[i]));
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
