#include "base/Dialogs.h"

#include <stdexcept>

#include "base/Texts.h"

namespace vorlina {
namespace {
Dialogs* installed = nullptr;
}

void Dialogs::Message(QWidget* owner, const QString& text, BoxStyle style, const QString& title) {
  if (!text.isEmpty()) ShowMessage(owner, text, style, title);
}

bool Dialogs::Ask(QWidget* owner, const QString& text, BoxStyle style, const QString& title) {
  return !text.isEmpty() && ShowQuestion(owner, text, style, title);
}

Dialogs::Answer Dialogs::AskToSave(QWidget* owner, const QString& text) {
  return Ask(owner, text) ? Answer::Yes : Answer::No;
}

Dialogs& TheDialogs() {
  if (installed == nullptr) throw std::logic_error("no dialogs installed");
  return *installed;
}

void InstallDialogs(Dialogs* dialogs) { installed = dialogs; }

QString BrowseForFolder(const QString& title, QWidget* owner) {
  return TheDialogs().Folder(owner, title, {});
}

void ShowError(QWidget* owner, const QString& description) {
  TheDialogs().Message(owner,
                       Texts::tr("Errore: ").isEmpty() ? QString() : Texts::tr("Errore: ") + description,
                       BoxStyle::Stop);
}

}  // namespace vorlina
