#include "update/UpdateLauncher.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/Settings.h"
#include "base/Texts.h"
#include "support/Language.h"

namespace vorlina {
namespace {

#ifdef Q_OS_WIN
const QString ProgramSuffix = QStringLiteral(".exe");
#else
const QString ProgramSuffix;
#endif

}  // namespace

QString UpdaterPath() {
  const bool english = Language == u"English";
  if (!english && Language != u"Italian") return {};
  const QString name = (english ? u"/VorlinaUpdaterEN"_qs : u"/VorlinaUpdater"_qs) + ProgramSuffix;
  for (const QString& folder : {AppPath(), DeliveredPath()})
    if (QFileInfo(folder + name).isFile()) return QDir::toNativeSeparators(folder + name);
  return {};
}

UpdateStart AvviaAggiornamento(const std::function<bool()>& closeWindows) {
  SaveSetting(u"Vorlina"_qs, u"Generali"_qs, u"DownloadPath"_qs, AppFile(u"Download/"_qs));
  const QString updater = UpdaterPath();
  if (updater.isEmpty()) return UpdateStart::NoUpdater;
  if (!closeWindows()) return UpdateStart::Refused;
  if (!QProcess::startDetached(updater, {}))
    throw Error(Texts::tr("Impossibile avviare il programma di aggiornamento %1").arg(updater));
  return UpdateStart::Started;
}

}  // namespace vorlina
