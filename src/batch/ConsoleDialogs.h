// What the program would show in a box, on the standard error output. Nothing is ever asked.
#pragma once

#include "base/Dialogs.h"

namespace vorlina {

// A question is an Error: a command must not come to one.
class ConsoleDialogs : public Dialogs {
 public:
  Answer AskWithCancel(QWidget* owner, const QString& text, const QString& title) override;
  QString Input(QWidget* owner, const QString& text, const QString& title, const QString& initial) override;
  QString OpenFile(QWidget* owner, const QString& title, const QString& filter,
                   const QString& folder) override;
  QStringList OpenFiles(QWidget* owner, const QString& title, const QString& filter,
                        const QString& folder) override;
  QString SaveFile(QWidget* owner, const QString& title, const QString& filter,
                   const QString& initial) override;
  QString Folder(QWidget* owner, const QString& title, const QString& initial) override;

 protected:
  void ShowMessage(QWidget* owner, const QString& text, BoxStyle style, const QString& title) override;
  bool ShowQuestion(QWidget* owner, const QString& text, BoxStyle style, const QString& title) override;
};

}  // namespace vorlina
