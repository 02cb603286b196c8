#include "shell/WidgetApplication.h"

#include <QLoggingCategory>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Language.h"

namespace vorlina {
namespace {
Q_LOGGING_CATEGORY(shell, "vorlina.shell", QtInfoMsg)
}

bool WidgetApplication::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    ShowUnhandled();
  }
  return false;
}

void ShowUnhandled() {
  QString description = EitherLanguage(u"Errore sconosciuto"_qs, u"Unknown error"_qs);
  try {
    throw;
  } catch (const std::exception& error) {
    description = DescriptionOf(error);
  } catch (...) {
  }
  qCCritical(shell) << description;
  // Here the box comes in any language, so that no failure passes unseen.
  TheDialogs().Message(QApplication::activeWindow(), description, BoxStyle::Stop);
}

}  // namespace vorlina
