#include "shell/InstallPlugin.h"

#include "base/AppPath.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/LastFolder.h"
#include "base/Settings.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "publish/PluginChange.h"
#include "publish/PluginInstallation.h"
#include "publish/PluginPackage.h"
#include "support/FileDialog.h"

namespace vorlina {
namespace {

QString QuestionAbout(const PackageManifest& package, const QString& folder) {
  const std::optional<PackageManifest> former = InstalledPackage(folder, package.identifier);
  QStringList lines{
      Texts::tr("Installare il plug-in %1, versione %2?").arg(package.identifier, package.version)};
  if (former) lines += Texts::tr("La versione %1, che è installata, viene sostituita.").arg(former->version);
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

// What is wrong with a package is told before anything is asked.
bool IsWanted(const QString& file, const QString& folder, QWidget& owner) {
  QString question;
  {
    const WaitCursor wait;
    question = QuestionAbout(VerifyPackage(file), folder);
  }
  return TheDialogs().Ask(&owner, question, BoxStyle::QuestionNoFirst);
}

bool Install(const QString& file, const QString& folder) {
  const WaitCursor wait;
  return AggiornaPluginMsi(file, folder);
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
    if (!IsWanted(dialog.FileName(), folder, owner)) return;
    if (Install(dialog.FileName(), folder)) {
      const QString identifier = dialog.FileTitle.chopped(4);
      TheDialogs().Message(
          &owner,
          Texts::tr("Installazione completata con successo. Il nuovo plugin sarà disponibile "
                    "al prossimo riavvio del programma."),
          BoxStyle::Information);
      return EnterIntoList(identifier);
    }
  } catch (const std::exception& error) {
    reason = u"\r\n"_qs + DescriptionOf(error);
  }
  TheDialogs().Message(&owner, Texts::tr("Impossibile installare il plugin selezionato") + reason,
                       BoxStyle::Stop);
}

}  // namespace vorlina
