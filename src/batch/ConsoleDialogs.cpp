#include "batch/ConsoleDialogs.h"

#include "base/Error.h"
#include "base/Texts.h"
#include "batch/Output.h"

namespace vorlina {
namespace {

[[noreturn]] void RefuseToAsk(const QString& text) {
  throw Error(Texts::tr("Qui non si può rispondere: %1").arg(text));
}

}  // namespace

Dialogs::Answer ConsoleDialogs::AskWithCancel(QWidget*, const QString& text, const QString&) {
  RefuseToAsk(text);
}

QString ConsoleDialogs::Input(QWidget*, const QString& text, const QString&, const QString&) {
  RefuseToAsk(text);
}

QString ConsoleDialogs::OpenFile(QWidget*, const QString& title, const QString&, const QString&) {
  RefuseToAsk(title);
}

QStringList ConsoleDialogs::OpenFiles(QWidget*, const QString& title, const QString&, const QString&) {
  RefuseToAsk(title);
}

QString ConsoleDialogs::SaveFile(QWidget*, const QString& title, const QString&, const QString&) {
  RefuseToAsk(title);
}

QString ConsoleDialogs::Folder(QWidget*, const QString& title, const QString&) { RefuseToAsk(title); }

void ConsoleDialogs::ShowMessage(QWidget*, const QString& text, BoxStyle, const QString&) {
  PrintError(text);
}

bool ConsoleDialogs::ShowQuestion(QWidget*, const QString& text, BoxStyle, const QString&) {
  RefuseToAsk(text);
}

}  // namespace vorlina
