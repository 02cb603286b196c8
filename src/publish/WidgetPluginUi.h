// The windows that the program shows for a plug-in, while it is called: boxes and choosers by Dialogs, and
// the windows of publishing.
#pragma once

#include <QPointer>
#include <QWidget>

#include "publish/plugin/IVorlinaPlugin.h"

namespace vorlina {

class Connection;

class WidgetPluginUi : public IVorlinaUi {
 public:
  // The window that calls the plug-in of that identifier, and the connection that it hands over.
  WidgetPluginUi(QWidget& owner, Connection& connection, QString plugin);

  void Tell(const QString& text) override;
  bool Ask(const QString& question, const QString& details) override;
  int Choose(const QString& title, const QString& question, const QStringList& choices, int current,
             const QString& other) override;
  QString ChooseFile(const QString& title, const QString& filter, const QString& purpose) override;
  void Publish(IVorlinaPublisher& publisher, IVorlinaConnection& connection, int IDCatalogo) override;

 private:
  QWidget* Owner() const;
  void RequireNoTransaction() const;

  QPointer<QWidget> owner_;
  Connection& connection_;
  QString plugin_;
};

}  // namespace vorlina
