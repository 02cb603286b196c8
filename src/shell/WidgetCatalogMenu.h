// The context menu of the list of catalogs.
#pragma once

#include <QMenu>
#include <functional>

class QListWidget;

namespace vorlina {

class CatalogList;

class WidgetCatalogMenu : public QMenu {
 public:
  // Opens over the list; run works a command of the main window by its key. The entries of the window's other
  // menus that have these keys stand at the end. All of them outlive it.
  WidgetCatalogMenu(QListWidget& list, const CatalogList& catalogs,
                    const std::function<void(const QString&)>& run, const QMenu& others,
                    const QStringList& keys);

  void Localize();

 private:
  void PopUp(const QPoint& position);

  QListWidget& list_;
  const CatalogList& catalogs_;
};

}  // namespace vorlina
