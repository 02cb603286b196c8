#include "shell/WidgetCatalogMenu.h"

#include <QListWidget>
#include <QShortcut>

#include "base/Texts.h"
#include "shell/CatalogCommands.h"
#include "shell/CatalogList.h"

namespace vorlina {

WidgetCatalogMenu::WidgetCatalogMenu(QListWidget& list, const CatalogList& catalogs,
                                     const std::function<void(const QString&)>& run, const QMenu& others,
                                     const QStringList& keys)
    : QMenu(&list), list_(list), catalogs_(catalogs) {
  setObjectName(u"mnuCataloghi"_qs);
  for (const CatalogEntry& entry : CatalogEntries) {
    QAction* action = addAction(QString());
    action->setObjectName(Text(entry.entry.key));
    if (const QString command = Text(entry.command); !command.isEmpty())
      connect(action, &QAction::triggered, this, [run, command] { run(command); });
    else
      connect(action, &QAction::triggered, this, [this] { list_.editItem(catalogs_.Selected()); });
  }
  addSeparator();
  for (const QString& key : keys) addAction(others.findChild<QAction*>(key));
  list.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&list, &QListWidget::customContextMenuRequested, this, &WidgetCatalogMenu::PopUp);
  // Not every keyboard has the key for it.
  auto* key = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F10), &list);
  key->setContext(Qt::WidgetShortcut);
  connect(key, &QShortcut::activated, this,
          [this] { PopUp(list_.visualItemRect(list_.currentItem()).center()); });
  Localize();
}

void WidgetCatalogMenu::Localize() {
  for (const CatalogEntry& entry : CatalogEntries) {
    const QString keys = QKeySequence(Text(entry.entry.shortcut)).toString(QKeySequence::NativeText);
    findChild<QAction*>(Text(entry.entry.key))->setText(Texts::tr(entry.entry.caption) + u'\t' + keys);
  }
}

// A press beside the catalogs leaves the selection, for which the entries then stand.
void WidgetCatalogMenu::PopUp(const QPoint& position) {
  for (const CatalogEntry& entry : CatalogEntries)
    findChild<QAction*>(Text(entry.entry.key))->setEnabled(catalogs_.Selected() != nullptr);
  popup(list_.viewport()->mapToGlobal(position));
}

}  // namespace vorlina
