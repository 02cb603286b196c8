#include "publish/WidgetOpenFile.h"

#include <QDesktopServices>
#include <QDir>
#include <QUrl>

#include "base/Dialogs.h"
#include "base/Texts.h"

namespace vorlina {

void OpenFile(QWidget& owner, const QString& path) {
  if (QDesktopServices::openUrl(QUrl::fromLocalFile(path))) return;
  TheDialogs().Message(
      &owner, Texts::tr("Non si trova un programma per aprire %1").arg(QDir::toNativeSeparators(path)),
      BoxStyle::Information);
}

}  // namespace vorlina
