// Dialogs for tests: a queue of expected boxes with their answers. A box that nobody scripted, a wrong text
// or an answer left over fails the test.
#pragma once

#include <QObject>
#include <deque>

#include "base/Dialogs.h"

namespace vorlina {

class ScriptedDialogs : public Dialogs {
 public:
  ScriptedDialogs();
  ~ScriptedDialogs() override;

  void ExpectMessage(const QString& text, BoxStyle style = BoxStyle::Plain) {
    script_.push_back({u"message %1: "_qs.arg(int(style)) + text, {}});
  }
  void ExpectQuestion(const QString& text, bool answer) {
    script_.push_back({u"question: "_qs + text, answer ? u"yes"_qs : QString()});
  }
  // The box of a question is closed without an answer.
  void ExpectDismissed(const QString& text) { script_.push_back({u"question: "_qs + text, u"none"_qs}); }
  void ExpectInput(const QString& text, const QString& answer) {
    script_.push_back({u"input: "_qs + text, answer});
  }
  // The next open or save chooser gives this path.
  void ExpectFile(const QString& answer) { script_.push_back({u"file"_qs, answer}); }
  // The next chooser of several files gives these.
  void ExpectFiles(const QStringList& answer) { script_.push_back({u"files"_qs, answer.join(u'|')}); }
  void ExpectFolder(const QString& answer) { script_.push_back({u"folder"_qs, answer}); }
  // The number of one of the choices.
  void ExpectChoice(const QString& text, int answer) {
    script_.push_back({u"choice: "_qs + text, QString::number(answer)});
  }
  void ExpectColour(const QString& answer) { script_.push_back({u"colour"_qs, answer}); }
  // How many scripted boxes have not been shown yet.
  qsizetype Left() const { return qsizetype(script_.size()); }

  Answer AskWithCancel(QWidget* owner, const QString& text, const QString& title) override;
  Answer AskToSave(QWidget* owner, const QString& text) override;
  QString Input(QWidget* owner, const QString& text, const QString& title, const QString& initial) override;
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

 protected:
  void ShowMessage(QWidget* owner, const QString& text, BoxStyle style, const QString& title) override;
  bool ShowQuestion(QWidget* owner, const QString& text, BoxStyle style, const QString& title) override;

 private:
  // A box as a line, such as "message 16: text"; a chooser's is without text. "" answers No and Cancel.
  struct Step {
    QString box;
    QString answer;
  };
  QString Take(const QString& box);

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
