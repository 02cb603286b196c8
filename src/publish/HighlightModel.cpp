#include "publish/HighlightModel.h"

#include <algorithm>

#include "base/Helpers.h"
#include "base/TextFolding.h"
#include "base/Texts.h"

namespace vorlina {

void HighlightModel::SetProducts(std::vector<PublishedProduct> products, const QStringList& chosen) {
  products_ = std::move(products);
  const QSet<QString> wanted(chosen.begin(), chosen.end());
  chosen_.clear();
  for (const PublishedProduct& product : products_)
    if (wanted.contains(product.code)) chosen_.insert(product.code);
  Filter({}, false);
}

void HighlightModel::Filter(const QString& text, bool chosenOnly) {
  const TextNeedle needle(text.trimmed());
  beginResetModel();
  shown_.clear();
  for (std::size_t i = 0; i < products_.size(); ++i) {
    const PublishedProduct& product = products_[i];
    if ((needle.IsEmpty() || needle.IsIn(product.code) || needle.IsIn(product.description)) &&
        (!chosenOnly || chosen_.contains(product.code)))
      shown_.push_back(i);
  }
  endResetModel();
}

void HighlightModel::Toggle(const QModelIndex& index) {
  const QModelIndex box = index.siblingAtColumn(CodeColumn);
  const bool checked = data(box, Qt::CheckStateRole).toInt() == Qt::Checked;
  setData(box, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

QStringList HighlightModel::Chosen() const {
  QStringList codes;
  for (const PublishedProduct& product : products_)
    if (chosen_.contains(product.code)) codes += product.code;
  return codes;
}

qsizetype HighlightModel::WithoutPicture() const {
  return std::count_if(products_.begin(), products_.end(), [this](const PublishedProduct& product) {
    return !product.hasPicture && chosen_.contains(product.code);
  });
}

QString HighlightModel::WithoutPictureNote() { return Texts::tr("senza immagine"); }

int HighlightModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int(shown_.size());
}

int HighlightModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Columns; }

QString HighlightModel::TextOf(const PublishedProduct& product, int column) const {
  if (column == CodeColumn) return product.code;
  if (column == NameColumn) return product.name;
  return product.hasPicture ? QString() : WithoutPictureNote();
}

QVariant HighlightModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const PublishedProduct& product = At(index);
  if (role == Qt::DisplayRole) return TextOf(product, index.column());
  if (role == Qt::ToolTipRole) return PlainToolTip(TextOf(product, index.column()));
  if (role == Qt::CheckStateRole && index.column() == CodeColumn)
    return chosen_.contains(product.code) ? Qt::Checked : Qt::Unchecked;
  return {};
}

bool HighlightModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !checkIndex(index, CheckIndexOption::IndexIsValid)) return false;
  const QString& code = At(index).code;
  if (value.toInt() == Qt::Checked)
    chosen_.insert(code);
  else
    chosen_.remove(code);
  Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
  Q_EMIT ChosenChanged();
  return true;
}

Qt::ItemFlags HighlightModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags all = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
  return index.column() == CodeColumn ? all | Qt::ItemIsUserCheckable : all;
}

QVariant HighlightModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  const QString titles[Columns] = {Texts::tr("Codice"), Texts::tr("Descrizione"), Texts::tr("Immagine")};
  return titles[section];
}

}  // namespace vorlina
