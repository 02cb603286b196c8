// In-place editing of a list's labels: the new text goes to the owner by a signal and is not written into the
// item, so that the owner decides what stands there.
#pragma once

#include <QStyledItemDelegate>

namespace vorlina {

class WidgetRenameDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

 Q_SIGNALS:
  // The edit ended with this text, which may be the former one or empty. An edit left by Escape sends
  // nothing.
  void Renamed(const QModelIndex& index, const QString& text) const;
};

}  // namespace vorlina
