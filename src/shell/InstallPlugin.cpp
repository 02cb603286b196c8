#include "shell/InstallPlugin.h"

#include <QFileInfo>

#include "base/AppPath.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/LastFolder.h"
#include "base/Settings.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "publish/PluginChange.h"
#include "publish/PluginHost.h"
#include "publish/PluginInstallation.h"
#include "publish/PluginPackage.h"
#include "support/FileDialog.h"

namespace vorlina {
namespace {

QString QuestionAbout(const PackageManifest& package, const QString& folder) {
  const std::optional<PackageManifest> former = InstalledPackage(folder, package.identifier);
  QStringList lines{
      Texts::tr("Installare il plug-in %1, versione %2?").arg(package.identifier, package.version)};
  if (former)
    lines += Texts::tr("La versione %1, che è installata, viene sostituita.").arg(former->version);
  else if (QFileInfo::exists(DeliveredPlugin(LibraryOfPlugin(package.identifier))))
    lines += Texts::tr("Prende il posto di quello che è stato installato insieme al programma.");
  if (const QStringList kept = FilesToKeep(folder, package); !kept.isEmpty())
    lines += Texts::tr(
                 "Questi file sono stati modificati: vengono sostituiti, e come erano restano nella cartella "
                 "\"%1\" del plug-in:\r\n%2")
                 .arg(KeptFolder, FirstLines(kept));
  lines += Texts::tr(
      "Un plug-in è un programma, e può fare tutto ciò che può fare chi lo installa: leggere, cambiare e "
      "cancellare i cataloghi e ogni altro file. Rispondere Sì soltanto se si conosce chi lo ha fatto, e ce "
      "ne si fida.");
  return lines.join(u"\r\n\r\n"_qs);
}

// File systems tell letter case where the lists of plug-ins do not: only one of the two would appear.
void RequireSameSpelling(const QString& identifier) {
  for (const QString& installed : InstalledPlugins())
    if (installed != identifier && installed.compare(identifier, Qt::CaseInsensitive) == 0)
      throw Error(
          Texts::tr("È già installato il plug-in %1, il cui nome differisce da %2 soltanto per maiuscole e "
                    "minuscole. Procurarsi un pacchetto con lo stesso nome.")
              .arg(installed, identifier));
}

// What the user wants to be installed. What is wrong with a package is told before anything is asked.
std::optional<PackageManifest> WantedPackage(const QString& file, const QString& folder, QWidget& owner) {
  PackageManifest package;
  QString question;
  {
    const WaitCursor wait;
    package = VerifyPackage(file);
    RequireSameSpelling(package.identifier);
    question = QuestionAbout(package, folder);
  }
  if (!TheDialogs().Ask(&owner, question, BoxStyle::QuestionNoFirst)) return {};
  return package;
}

bool Install(const QString& file, const PackageManifest& package, const QString& folder) {
  const WaitCursor wait;
  return AggiornaPluginMsi(file, package, folder);
}

// A part of a longer identifier counts as found. Who never had a list gets the one below, where none was
// delivered. An empty list stays without an empty identifier, which would be told at each start.
void EnterIntoList(const QString& identifier) {
  const QString plugins = GetSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs,
                                     u"VLFlash.FlashCD;VLFlash.FlashHTML;VLWord.WordCat"_qs);
  if (!plugins.contains(identifier, Qt::CaseInsensitive))
    SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs,
                plugins.isEmpty() ? identifier : plugins + u';' + identifier);
}

// The plug-in is there, whatever fails here.
void FinishInstallation(const QString& identifier, QWidget& owner) {
  try {
    EnterIntoList(identifier);
  } catch (const std::exception& error) {
    return ShowError(&owner, DescriptionOf(error));
  }
  TheDialogs().Message(&owner,
                       Texts::tr("Installazione completata con successo. Il nuovo plugin sarà disponibile "
                                 "al prossimo riavvio del programma."),
                       BoxStyle::Information);
}

}  // namespace

void InstallPlugin(QWidget& owner) {
  cFileDialog dialog;
  dialog.Filter = u"Vorlina Plugin|*.vpk"_qs;
  dialog.InitDir = LastFolder(purpose::Plugins);
  dialog.hwnd = &owner;
  dialog.ShowOpen();
  if (dialog.FileName().isEmpty()) return;
  RememberFolderOf(purpose::Plugins, dialog.FileName());
  const QString folder = AppFile(u"PubWiz"_qs);
  QString reason;
  try {
    const std::optional<PackageManifest> package = WantedPackage(dialog.FileName(), folder, owner);
    if (!package) return;
    if (Install(dialog.FileName(), *package, folder)) return FinishInstallation(package->identifier, owner);
  } catch (const std::exception& error) {
    reason = u"\r\n"_qs + DescriptionOf(error);
  }
  TheDialogs().Message(&owner, Texts::tr("Impossibile installare il plugin selezionato") + reason,
                       BoxStyle::Stop);
}

}  // namespace vorlina
