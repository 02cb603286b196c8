// The real dialogs: Qt's message boxes, input box and the desktop's own choosers. All texts are shown as
// plain text.
#pragma once

#include <memory>

#include "base/Dialogs.h"

class QInputDialog;

namespace vorlina {

class WidgetDialogs : public Dialogs {
 public:
  Answer AskWithCancel(QWidget* owner, const QString& text, const QString& title) override;
  Answer AskToSave(QWidget* owner, const QString& text) override;
  QString Input(QWidget* owner, const QString& text, const QString& title, const QString& initial) override;
  QStringList ChooseFiles(QWidget* owner, Chooser kind, FileChoice& choice) override;
  QString OpenFile(QWidget* owner, const QString& title, const QString& filter,
                   const QString& folder) override;
  QStringList OpenFiles(QWidget* owner, const QString& title, const QString& filter,
                        const QString& folder) override;
  QString SaveFile(QWidget* owner, const QString& title, const QString& filter,
                   const QString& initial) override;
  QString Folder(QWidget* owner, const QString& title, const QString& initial) override;

  int Choose(QWidget* owner, const QString& title, const QString& question, const QStringList& choices,
             int current, const QString& other) override;
  QString Colour(QWidget* owner, const QString& title, const QString& initial) override;

  // The box that Input shows: its text is plain, and without its middle where it is long.
  static std::unique_ptr<QInputDialog> InputBox(QWidget* owner, const QString& text, const QString& title,
                                                const QString& initial);

 protected:
  void ShowMessage(QWidget* owner, const QString& text, BoxStyle style, const QString& title) override;
  bool ShowQuestion(QWidget* owner, const QString& text, BoxStyle style, const QString& title) override;
};

}  // namespace vorlina
