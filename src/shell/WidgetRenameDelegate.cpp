#include "shell/WidgetRenameDelegate.h"

#include <QMetaProperty>
#include <QWidget>

namespace vorlina {

void WidgetRenameDelegate::setModelData(QWidget* editor, QAbstractItemModel*,
                                        const QModelIndex& index) const {
  if (index.isValid())
    Q_EMIT Renamed(index, editor->property(editor->metaObject()->userProperty().name()).toString());
}

}  // namespace vorlina
