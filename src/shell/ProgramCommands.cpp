#include "shell/ProgramCommands.h"

#include <QAction>
#include <QDesktopServices>
#include <QToolBar>
#include <QUrl>
#include <QWhatsThis>

#include "base/Commands.h"
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

const char16_t SupportAddress[] = u"support@vorlina.example";

// Below the button that was pressed, until anything is done: there is no box for what is usual.
void TellBelowHelp(const QWidget& owner, const QString& text) {
  const auto* bar = owner.findChild<QToolBar*>(u"tbr"_qs);
  QWidget* button = bar->widgetForAction(owner.findChild<QAction*>(u"cmdHelp"_qs));
  const QPoint place = button->mapToGlobal(QPoint(0, button->height()));
  QWhatsThis::showText(place, PlainToolTip(text), button);
}

// Behind the closing of the menu, which would take it along.
void TellLater(QWidget& owner, const QString& text) {
  QMetaObject::invokeMethod(
      &owner, [&owner, text] { TellBelowHelp(owner, text); }, Qt::QueuedConnection);
}

void WriteToSupport(QWidget& owner) {
  const QString address = Text(SupportAddress);
  if (!QDesktopServices::openUrl(QUrl(u"mailto:"_qs + address)))
    TellLater(owner,
              Texts::tr("Non si trova un programma di posta elettronica. L'indirizzo è %1").arg(address));
}

void StartUpdate(const ProgramContext& context) {
  try {
    const auto again = [&owner = context.owner] {
      owner.findChild<QAction*>(u"cmdAggiornamenti"_qs)->trigger();
    };
    const UpdateStart start = AvviaAggiornamento([&] { return context.closeWindows(again); });
    if (start == UpdateStart::Started) context.owner.close();
    if (start == UpdateStart::NoUpdater)
      TellLater(context.owner, Texts::tr("Non è installato un programma di aggiornamento: una versione nuova "
                                         "si installa come questa."));
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
  for (const QString& identifier : InstalledPlugins()) {
    try {
      lines.push_back({identifier, InterfaceOf(identifier)});
    } catch (const Error& error) {
      lines.push_back({identifier, error.Description()});
    }
  }
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
      {u"subSupport"_qs, [&owner] { WriteToSupport(owner); }},
      {u"subAbout"_qs, [context] { ShowAbout(context); }},
  };
}

}  // namespace vorlina
