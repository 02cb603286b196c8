#include "shell/CatalogList.h"

#include <QListWidget>
#include <algorithm>

#include "base/CommandIcon.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WidgetRenameDelegate.h"
#include "catalogs/CatalogNames.h"
#include "store/Connection.h"
#include "store/Recordset.h"

namespace vorlina {

// A name is only kept while the editor is there; stored, and told where that fails, when it is gone.
CatalogList::CatalogList(QListWidget& list, Recordset& rsCataloghi, const Connection& connection,
                         QWidget& owner)
    : list_(list),
      rsCataloghi_(rsCataloghi),
      connection_(connection),
      owner_(owner),
      rename_(new WidgetRenameDelegate(list)) {
  connect(rename_, &WidgetRenameDelegate::Renamed, this,
          [this](const QModelIndex& index, const QString& name) {
            newName_ = {arrIDCataloghi[std::size_t(index.row())], name};
          });
  connect(
      rename_, &WidgetRenameDelegate::closeEditor, this,
      [this] {
        ApplyRename();
        if (reloadWaits_) Q_EMIT FillWanted();
      },
      Qt::QueuedConnection);
}

void CatalogList::Fill() {
  reloadWaits_ = rename_->IsOpen();
  if (reloadWaits_) return;
  rename_->Finish();
  const int before = SelectedId();
  rsCataloghi_.Requery();
  arrIDCataloghi.assign(std::size_t(rsCataloghi_.RecordCount()) + 1, 0);
  list_.clear();
  const QIcon book = CommandIcon(u"catalog"_qs);
  for (std::size_t i = 0; !rsCataloghi_.IsEOF(); ++i, rsCataloghi_.MoveNext()) {
    arrIDCataloghi[i] = rsCataloghi_.Value(u"IDCatalogo"_qs).toInt();
    auto* item = new QListWidgetItem(book, NullToEmpty(rsCataloghi_.Value(u"NomeCatalogo"_qs)), &list_);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    if (arrIDCataloghi[i] == before) list_.setCurrentItem(item);
  }
  if (list_.currentRow() < 0) list_.setCurrentRow(0);
}

int CatalogList::Count() const { return list_.count(); }

QListWidgetItem* CatalogList::Selected() const {
  QListWidgetItem* item = list_.currentItem();
  return item != nullptr && item->isSelected() ? item : nullptr;
}

int CatalogList::SelectedId() const {
  const QListWidgetItem* item = Selected();
  return item == nullptr ? 0 : arrIDCataloghi[std::size_t(list_.row(item))];
}

void CatalogList::SelectNewest() { list_.setCurrentRow(list_.count() - 1); }

bool CatalogList::IsRenaming() const { return rename_->IsOpen(); }

bool CatalogList::EndRename() {
  rename_->Finish();
  return ApplyRename();
}

bool CatalogList::ApplyRename() {
  if (!newName_) return true;
  const NewName typed = *std::exchange(newName_, std::nullopt);
  if (typed.name.trimmed().isEmpty()) {
    TheDialogs().Message(&owner_, Texts::tr("Inserire un nome valido per il catalogo"), BoxStyle::Information,
                         u"Attenzione"_qs);
    return false;
  }
  try {
    Rename(typed);
    return true;
  } catch (const std::exception& error) {
    TheDialogs().Message(&owner_, DescriptionOf(error), BoxStyle::Plain, Texts::tr("Attenzione"));
    return false;
  }
}

void CatalogList::Rename(const NewName& typed) {
  RenameCatalog(connection_.ConnectionText(), typed.IDCatalogo, typed.name);
  const auto row = std::find(arrIDCataloghi.begin(), arrIDCataloghi.end(), typed.IDCatalogo);
  if (row != arrIDCataloghi.end()) list_.item(int(row - arrIDCataloghi.begin()))->setText(typed.name);
}

}  // namespace vorlina
