// Dialogs for tests: a queue of expected boxes with their answers. A box that nobody scripted, a wrong text
// or an answer left over fails the test.
#pragma once

#include <QObject>
#include <deque>
#include <variant>

#include "base/Dialogs.h"

namespace vorlina {

class ScriptedDialogs : public Dialogs {
 public:
  ScriptedDialogs();
  ~ScriptedDialogs() override;

  void ExpectMessage(const QString& text, BoxStyle style = BoxStyle::Plain);
  void ExpectQuestion(const QString& text, bool answer);
  void ExpectAskWithCancel(const QString& text, Answer answer);
  void ExpectInput(const QString& text, const QString& answer);
  void ExpectFile(const QString& answer);    // the next open or save chooser gives this path
  void ExpectFolder(const QString& answer);  // the next folder chooser gives this path
  // How many scripted boxes have not been shown yet.
  qsizetype Left() const { return qsizetype(script_.size()); }

  Answer AskWithCancel(QWidget* owner, const QString& text, const QString& title) override;
  QString Input(QWidget* owner, const QString& text, const QString& title, const QString& initial) override;
  QString OpenFile(QWidget* owner, const QString& title, const QString& filter,
                   const QString& folder) override;
  QString SaveFile(QWidget* owner, const QString& title, const QString& filter,
                   const QString& initial) override;
  QString Folder(QWidget* owner, const QString& title, const QString& initial) override;

 protected:
  void ShowMessage(QWidget* owner, const QString& text, BoxStyle style, const QString& title) override;
  bool ShowQuestion(QWidget* owner, const QString& text, BoxStyle style, const QString& title) override;

 private:
  enum class Kind { Message, Question, AskWithCancel, Input, File, Folder };
  struct Step {
    Kind kind;
    QString text;
    BoxStyle style;
    std::variant<std::monostate, bool, Answer, QString> answer;
  };
  Step Take(Kind kind, const QString& text);

  std::deque<Step> script_;
  Dialogs* before_;
};

// Fails the test, and closes the window, when a modal window other than those the test allows is shown.
class UnexpectedModalGuard : public QObject {
 public:
  UnexpectedModalGuard();
  // Object names of the modal windows that the current test shows on purpose.
  static QStringList allowed;
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace vorlina
