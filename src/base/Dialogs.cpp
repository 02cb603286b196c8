#include "base/Dialogs.h"

#include <stdexcept>

#include "base/Texts.h"

namespace vorlina {
namespace {
Dialogs* installed = nullptr;
}

QString FilterFrom(const QString& filter) {
  const qsizetype masks = filter.lastIndexOf(u" ("_qs);
  if (masks < 0 || !filter.endsWith(u')')) return filter;
  const QString named = filter.sliced(masks + 2).chopped(1).simplified().replace(u' ', u';');
  return filter.first(masks) + u'|' + named;
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

QStringList Dialogs::ChooseFiles(QWidget* owner, Chooser kind, FileChoice& choice) {
  if (kind == Chooser::OpenSeveral) return OpenFiles(owner, choice.title, choice.filter, choice.initial);
  const QString file = kind == Chooser::Open ? OpenFile(owner, choice.title, choice.filter, choice.initial)
                                             : SaveFile(owner, choice.title, choice.filter, choice.initial);
  return file.isEmpty() ? QStringList() : QStringList(file);
}

int Dialogs::Choose(QWidget*, const QString&, const QString&, const QStringList&, int, const QString&) {
  return -1;
}

QString Dialogs::Colour(QWidget*, const QString&, const QString&) { return {}; }

Dialogs& TheDialogs() {
  if (installed == nullptr) throw std::logic_error("no dialogs installed");
  return *installed;
}

void InstallDialogs(Dialogs* dialogs) { installed = dialogs; }

QString BrowseForFolder(const QString& title, QWidget* owner, const QString& initial) {
  return TheDialogs().Folder(owner, title, initial);
}

void ShowError(QWidget* owner, const QString& description) {
  TheDialogs().Message(owner,
                       Texts::tr("Errore: ").isEmpty() ? QString() : Texts::tr("Errore: ") + description,
                       BoxStyle::Stop);
}

}  // namespace vorlina
