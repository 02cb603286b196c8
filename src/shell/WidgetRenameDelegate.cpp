#include "shell/WidgetRenameDelegate.h"

#include <QMetaProperty>
#include <QWidget>

#include "base/Helpers.h"

namespace vorlina {

void WidgetRenameDelegate::setModelData(QWidget* editor, QAbstractItemModel*,
                                        const QModelIndex& index) const {
  if (index.isValid())
    Q_EMIT Renamed(index, OneLine(editor->property(editor->metaObject()->userProperty().name()).toString()));
}

}  // namespace vorlina
