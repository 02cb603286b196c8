#include "support/HelpFiles.h"

#include <QDir>
#include <QFileInfo>

#include "base/AppPath.h"

namespace vorlina {
namespace {
const QString Italian = QStringLiteral("Vorlina.qch");
const QString English = QStringLiteral("VorlinaEN.qch");
}  // namespace

QString HelpFile(const QString& language) {
  return QDir::toNativeSeparators(DeliveredPath() + u'/' + (language == u"English" ? English : Italian));
}

QString OtherHelpFile(const QString& file) {
  const QString other = QFileInfo(file).dir().filePath(IsEnglishHelp(file) ? Italian : English);
  return QFileInfo::exists(other) ? other : QString();
}

bool IsEnglishHelp(const QString& file) { return QFileInfo(file).fileName() == English; }

}  // namespace vorlina
