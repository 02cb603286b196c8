// The published products of a catalog with a check mark each, of which those show that a text is found in.
#pragma once

#include <QAbstractTableModel>
#include <QSet>
#include <QStringList>
#include <vector>

#include "publish/PublishedProducts.h"

namespace vorlina {

class HighlightModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { CodeColumn, NameColumn, NoteColumn, Columns };

  using QAbstractTableModel::QAbstractTableModel;

  void SetProducts(std::vector<PublishedProduct> products, const QStringList& chosen);
  // Shows the products whose code or description holds the text, in any letter case and without regard to
  // accents, and of these those alone that are chosen where that is wanted.
  void Filter(const QString& text, bool chosenOnly);
  void Toggle(const QModelIndex& index);

  // The codes of those that are chosen, shown or not, in the order of publication.
  QStringList Chosen() const;
  qsizetype ChosenCount() const { return chosen_.size(); }
  // How many of these do not show on the first page, since they have no picture.
  qsizetype WithoutPicture() const;
  // What is noted of each of these.
  static QString WithoutPictureNote();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 Q_SIGNALS:
  void ChosenChanged();

 private:
  const PublishedProduct& At(const QModelIndex& index) const {
    return products_[shown_[std::size_t(index.row())]];
  }
  QString TextOf(const PublishedProduct& product, int column) const;

  std::vector<PublishedProduct> products_;
  std::vector<std::size_t> shown_;
  QSet<QString> chosen_;
};

}  // namespace vorlina
