#include "shell/PublishPane.h"

#include <QScopeGuard>
#include <QStyledItemDelegate>
#include <QTreeWidget>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "products/CatalogWork.h"
#include "publish/WidgetPluginUi.h"
#include "shell/CatalogList.h"

namespace vorlina {
namespace {

// What an item stands for, and what it says of itself.
constexpr int KeyRole = Qt::UserRole;
constexpr int TagRole = Qt::UserRole + 1;

// Keeps the same room for each picture, also for one that is small or empty: rows are alike and names
// aligned.
class PluginDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    const QSize room = option->decorationSize;
    QStyledItemDelegate::initStyleOption(option, index);
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationSize = room;
    option->decorationAlignment = Qt::AlignCenter;
  }
};

}  // namespace

PublishPane::PublishPane(QTreeWidget& list, const CatalogList& catalogs, Connection& connection,
                         std::unique_ptr<IVorlinaPlugin>& plugin)
    : list_(list), catalogs_(catalogs), connection_(connection), plugin_(plugin) {
  list.setItemDelegate(new PluginDelegate(&list));
  connect(&list, &QTreeWidget::itemClicked, this, &PublishPane::Describe);
  // Who walks the list by keyboard reads the description as well. At the start there is none.
  connect(&list, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
    if (list_.hasFocus()) Describe(item);
  });
}

void PublishPane::Describe(const QTreeWidgetItem* item) {
  if (item != nullptr) Q_EMIT Described(item->data(0, TagRole).toString());
}

void PublishPane::Fill(const std::vector<PluginEntry>& plugins) {
  for (const PluginEntry& entry : plugins) {
    auto* item = new QTreeWidgetItem(&list_, {entry.name});
    item->setIcon(0, entry.icon);
    item->setData(0, KeyRole, entry.identifier);
    item->setData(0, TagRole, entry.description);
  }
}

void PublishPane::SelectFirst() {
  QTreeWidgetItem* first = list_.topLevelItem(0);
  if (first == nullptr) throw Error(Texts::tr("Nessun filtro di pubblicazione è installato"));
  list_.setCurrentItem(first);
}

void PublishPane::Press() {
  if (catalogs_.Count() == 0) throw Error(Texts::tr("Non c'è nessun catalogo da pubblicare"));
  if (catalogs_.Selected() != nullptr) Q_EMIT Shown(true);
  try {
    if (blnPannelloPubblica && PublishWithSelected()) Q_EMIT Shown(false);
    Turn();
  } catch (const std::exception& error) {
    ShowError(list_.window(), DescriptionOf(error));
  }
}

// False where the plug-in has no name: another one is asked for.
bool PublishPane::PublishWithSelected() {
  const QTreeWidgetItem* plugin = list_.currentItem();
  if (plugin == nullptr || !plugin->isSelected())
    throw Error(Texts::tr("Nessun filtro di pubblicazione è selezionato"));
  if (!plugin->text(0).isEmpty()) {
    Publish();
    return true;
  }
  TheDialogs().Message(list_.window(), Texts::tr("Selezionare un filtro di pubblicazione per il catalogo"),
                       BoxStyle::Information);
  return false;
}

void PublishPane::Publish() {
  const int id = catalogs_.SelectedId();
  if (id == 0) throw Error(Texts::tr("Nessun catalogo è selezionato"));
  CatalogWork::RequireNone(id);
  const CatalogWork work(id, CatalogWork::Kind::Publication);
  const QString identifier = list_.currentItem()->data(0, KeyRole).toString();
  WidgetPluginUi ui(*list_.window(), connection_, identifier);
  plugin_ = CreatePlugin(identifier, &ui);
  // The plug-in goes before its windows do.
  const auto end = qScopeGuard([this] { plugin_.reset(); });
  PublishCatalog(*plugin_, connection_, id);
}

void PublishPane::GoBack() {
  blnPannelloPubblica = false;
  Q_EMIT Shown(false);
}

}  // namespace vorlina
