// The publishing pane of the main window: the plug-ins, what the one that is pointed to says of itself, and
// publishing with the one that is selected.
#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "publish/PluginHost.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace vorlina {

class CatalogList;
class Connection;

class PublishPane : public QObject {
  Q_OBJECT

 public:
  // The plug-in in hand is null except while one publishes or installs a skin. All of them outlive it.
  PublishPane(QTreeWidget& list, const CatalogList& catalogs, Connection& connection,
              std::unique_ptr<IVorlinaPlugin>& plugin);

  void Fill(const std::vector<PluginEntry>& plugins);
  // Throws Error where no plug-in is listed.
  void SelectFirst();
  // The first press on Publish shows the pane, the second publishes with the plug-in that is selected there.
  // Throws Error without a catalog.
  void Press();
  void GoBack();

 Q_SIGNALS:
  // It is to be shown, or hidden.
  void Shown(bool shown);
  // What the plug-in that is pointed to says of itself.
  void Described(const QString& text);

 private:
  void Describe(const QTreeWidgetItem* item);
  void Turn() { blnPannelloPubblica = !blnPannelloPubblica; }
  bool PublishWithSelected();
  void Publish();

  QTreeWidget& list_;
  const CatalogList& catalogs_;
  Connection& connection_;
  std::unique_ptr<IVorlinaPlugin>& plugin_;
  bool blnPannelloPubblica = false;
};

}  // namespace vorlina
