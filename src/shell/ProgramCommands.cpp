#include "shell/ProgramCommands.h"

#include <QAction>
#include <QToolBar>
#include <QWhatsThis>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "publish/PluginHost.h"
#include "support/frmAbout.h"
#include "support/frmTour.h"
#include "update/UpdateLauncher.h"
#include "update/frmOptions.h"

namespace vorlina {
namespace {

// Below the button that was pressed, until anything is done: there is no box for what is usual.
void TellNoUpdater(const QWidget& owner) {
  const auto* bar = owner.findChild<QToolBar*>(u"tbr"_qs);
  QWidget* button = bar->widgetForAction(owner.findChild<QAction*>(u"cmdHelp"_qs));
  const QPoint place = button->mapToGlobal(QPoint(0, button->height()));
  QWhatsThis::showText(
      place,
      PlainToolTip(Texts::tr("Non è installato un programma di aggiornamento: una versione nuova "
                             "si installa come questa.")),
      button);
}

void StartUpdate(const ProgramContext& context) {
  try {
    const auto again = [&owner = context.owner] {
      owner.findChild<QAction*>(u"cmdAggiornamenti"_qs)->trigger();
    };
    const UpdateStart start = AvviaAggiornamento([&] { return context.closeWindows(again); });
    if (start == UpdateStart::Started) context.owner.close();
    // Behind the closing of the menu, which would take it along.
    if (start == UpdateStart::NoUpdater)
      QMetaObject::invokeMethod(
          &context.owner, [&owner = context.owner] { TellNoUpdater(owner); }, Qt::QueuedConnection);
  } catch (const std::exception& error) {
    ShowError(&context.owner, DescriptionOf(error));
  }
}

// A modal window that goes when it is closed.
template <class Window>
void ShowModal(QWidget& owner) {
  auto* window = new Window(&owner);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setModal(true);
  window->LoadForm();
  window->show();
}

std::vector<InformationLine> PluginLines() {
  std::vector<InformationLine> lines;
  for (const QString& identifier : InstalledPlugins()) lines.push_back({identifier, InterfaceOf(identifier)});
  return lines;
}

void ShowAbout(const ProgramContext& context) {
  frmAbout::Open(context.owner,
                 [&connection = context.connection] { return SystemInformation(connection, PluginLines()); });
}

}  // namespace

std::map<QString, std::function<void()>> ProgramCommands(const ProgramContext& context) {
  QWidget& owner = context.owner;
  return {
      {u"cmdAggiornamenti"_qs, [context] { StartUpdate(context); }},
      {u"cmdTour"_qs, [&owner] { ShowModal<frmTour>(owner); }},
      {u"cmdOpzioni"_qs, [&owner] { ShowModal<frmOptions>(owner); }},
      {u"subAbout"_qs, [context] { ShowAbout(context); }},
  };
}

}  // namespace vorlina
