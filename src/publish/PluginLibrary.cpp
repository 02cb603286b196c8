#include "publish/PluginLibrary.h"

#include <QFileInfo>
#include <QJsonObject>
#include <QLibraryInfo>
#include <QPluginLoader>

namespace vorlina {

#ifdef Q_OS_WIN
const QString LibrarySuffix = QStringLiteral(".dll");
#else
const QString LibrarySuffix = QStringLiteral(".so");
#endif

LibraryFacts FactsOf(const QString& library) {
  // A relative path would be sought among Qt's own plug-ins.
  const QJsonObject data = QPluginLoader(QFileInfo(library).absoluteFilePath()).metaData();
  const int qt = data.value(u"version"_qs).toInt();
  return {data.value(u"IID"_qs).toString(), QVersionNumber(qt >> 16, (qt >> 8) & 0xFF)};
}

bool FitsOwnQt(const QVersionNumber& qt) {
  const QVersionNumber own = QLibraryInfo::version();
  return qt.majorVersion() == own.majorVersion() && qt.minorVersion() <= own.minorVersion();
}

}  // namespace vorlina
