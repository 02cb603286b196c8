#include "TargetFolder.h"

#include <QDir>
#include <QFileInfo>

#include "PublishError.h"

namespace publishing {
namespace {

// The path with the links of that part of it which exists followed, and a separator at its end.
QString Real(const QString& path) {
  const QFileInfo info(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
  const QString real = info.canonicalFilePath();
  if (!real.isEmpty()) return real.endsWith(u'/') ? real : real + u'/';
  return Real(info.path()) + info.fileName() + u'/';
}

}  // namespace

void RequireSiteFolder(const QString& target, const QString& applicationFolder, bool italian) {
  const QString site = Real(target);
  const QString application = Real(applicationFolder);
  bool refused = application.startsWith(site) || Real(QDir::homePath()).startsWith(site);
  for (const QString& own : {QStringLiteral("Images"), QStringLiteral("PubWiz"), QStringLiteral("Layouts"),
                             QStringLiteral("Web pictures"), QStringLiteral("Backups")})
    refused = refused || site.startsWith(application + own + u'/', Qt::CaseInsensitive) ||
              site.startsWith(Real(application + own));
  refused = refused || site.startsWith(application + QStringLiteral("Before restore "));
  if (refused)
    throw About(
        QFileInfo(target).absoluteFilePath(), italian,
        QStringLiteral("Nella cartella %1 non si può pubblicare: contiene i dati del programma o "
                       "dell'utente. Scegliere, o creare, una cartella per il solo sito."),
        QStringLiteral("The folder %1 cannot be published into: it holds data of the program or of its "
                       "user. Choose, or make, a folder for the site alone."));
}

void RequireNoOtherSite(const QString& target, bool italian) {
  const QStringList pages =
      QDir(target).entryList({QStringLiteral("*.htm"), QStringLiteral("*.html"), QStringLiteral("*.xhtml"),
                              QStringLiteral("*.shtml"), QStringLiteral("*.php"), QStringLiteral("*.asp"),
                              QStringLiteral("*.aspx"), QStringLiteral("*.jsp")},
                             QDir::Files);
  if (!pages.isEmpty())
    throw About(
        QDir(target).filePath(pages[0]), italian,
        QStringLiteral("La cartella contiene già un altro sito: %1 non è stato pubblicato da Vorlina. "
                       "Scegliere una cartella vuota."),
        QStringLiteral("The folder already holds another site: Vorlina did not publish %1. Choose an "
                       "empty folder."));
}

bool HasShownFiles(const QString& target) {
  return !QDir(target).isEmpty(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
}

}  // namespace publishing
