#include "publish/WidgetPluginUi.h"

#include <QApplication>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/LastFolder.h"
#include "base/Texts.h"
#include "publish/PublishedProducts.h"
#include "publish/frmPublish.h"
#include "publish/frmPublished.h"
#include "store/Connection.h"

namespace vorlina {
namespace {

// What is published is told of without names where these cannot be read.
QHash<QString, QString> NamesIn(Connection& connection, int IDCatalogo, const VorlinaReport& report) {
  if (report.notes.isEmpty()) return {};
  try {
    return NamesByCode(ReadPublishedProducts(connection, IDCatalogo));
  } catch (const Error&) {
    return {};
  }
}

}  // namespace

WidgetPluginUi::WidgetPluginUi(QWidget& owner, Connection& connection, QString plugin)
    : owner_(&owner), connection_(connection), plugin_(std::move(plugin)) {}

// Over whatever window of the plug-in's call is up.
QWidget* WidgetPluginUi::Owner() const {
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : owner_.data();
}

// No window shows while a transaction is open: other programs would wait as long as it stands.
void WidgetPluginUi::RequireNoTransaction() const {
  if (connection_.InTransaction())
    throw Error(
        Texts::tr("Il plug-in ha lasciato aperta una transazione. Chiedere una versione corretta a chi ha "
                  "fatto il plug-in."));
}

void WidgetPluginUi::Tell(const QString& text) {
  RequireNoTransaction();
  TheDialogs().Message(Owner(), text, BoxStyle::Information);
}

bool WidgetPluginUi::Ask(const QString& question, const QString& details) {
  RequireNoTransaction();
  const QString text = details.isEmpty() ? question : question + u"\r\n\r\n"_qs + details;
  return TheDialogs().Ask(Owner(), text, BoxStyle::QuestionNoFirst);
}

int WidgetPluginUi::Choose(const QString& title, const QString& question, const QStringList& choices,
                           int current, const QString& other) {
  RequireNoTransaction();
  return TheDialogs().Choose(Owner(), title, question, choices, current, other);
}

// The purposes of a plug-in are its own.
QString WidgetPluginUi::ChooseFile(const QString& title, const QString& filter, const QString& purpose) {
  RequireNoTransaction();
  return OpenFileFor(QString(plugin_ + u'.' + purpose), Owner(), title, FilterFrom(filter));
}

// The publisher gets a connection of its own for each job.
void WidgetPluginUi::Publish(IVorlinaPublisher& publisher, IVorlinaConnection&, int IDCatalogo) {
  RequireNoTransaction();
  frmPublish window(Owner());
  window.Plugin = plugin_;
  window.Connessione = &connection_;
  window.IDCatalogo = IDCatalogo;
  window.Publisher = &publisher;
  if (!window.LoadForm() || window.exec() != frmPublish::Accepted) return;
  frmPublished published(Owner());
  published.LoadForm(window.Report(), window.What(), window.Target(),
                     NamesIn(connection_, IDCatalogo, window.Report()));
  published.exec();
}

}  // namespace vorlina
