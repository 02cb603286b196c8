#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace vorlina {
namespace {
Dialogs* current = nullptr;
}

ScriptedDialogs::ScriptedDialogs() : before_(current) {
  current = this;
  InstallDialogs(this);
}

ScriptedDialogs::~ScriptedDialogs() {
  for (const Step& step : script_) ADD_FAILURE() << "never shown: " << step.text.toStdString();
  current = before_;
  InstallDialogs(before_);
}

void ScriptedDialogs::ExpectMessage(const QString& text, BoxStyle style) {
  script_.push_back({Kind::Message, text, style, {}});
}
void ScriptedDialogs::ExpectQuestion(const QString& text, bool answer) {
  script_.push_back({Kind::Question, text, BoxStyle::Question, answer});
}
void ScriptedDialogs::ExpectAskWithCancel(const QString& text, Answer answer) {
  script_.push_back({Kind::AskWithCancel, text, BoxStyle::Question, answer});
}
void ScriptedDialogs::ExpectInput(const QString& text, const QString& answer) {
  script_.push_back({Kind::Input, text, BoxStyle::Plain, answer});
}
void ScriptedDialogs::ExpectFile(const QString& answer) {
  script_.push_back({Kind::File, {}, BoxStyle::Plain, answer});
}
void ScriptedDialogs::ExpectFolder(const QString& answer) {
  script_.push_back({Kind::Folder, {}, BoxStyle::Plain, answer});
}

ScriptedDialogs::Step ScriptedDialogs::Take(Kind kind, const QString& text) {
  Step step{kind, text, BoxStyle::Plain, {}};
  if (script_.empty()) {
    ADD_FAILURE() << "a box that nobody scripted: " << text.toStdString();
    return step;
  }
  step = script_.front();
  script_.pop_front();
  EXPECT_EQ(int(step.kind), int(kind)) << text.toStdString();
  if (kind != Kind::File && kind != Kind::Folder) {
    EXPECT_EQ(step.text.toStdString(), text.toStdString());
  }
  return step;
}

void ScriptedDialogs::ShowMessage(QWidget*, const QString& text, BoxStyle style, const QString&) {
  const Step step = Take(Kind::Message, text);
  EXPECT_EQ(int(step.style), int(style)) << text.toStdString();
}

bool ScriptedDialogs::ShowQuestion(QWidget*, const QString& text, BoxStyle, const QString&) {
  const Step step = Take(Kind::Question, text);
  const bool* answer = std::get_if<bool>(&step.answer);
  return answer != nullptr && *answer;
}

Dialogs::Answer ScriptedDialogs::AskWithCancel(QWidget*, const QString& text, const QString&) {
  const Step step = Take(Kind::AskWithCancel, text);
  const Answer* answer = std::get_if<Answer>(&step.answer);
  return answer != nullptr ? *answer : Answer::Cancel;
}

QString ScriptedDialogs::Input(QWidget*, const QString& text, const QString&, const QString&) {
  const Step step = Take(Kind::Input, text);
  const QString* answer = std::get_if<QString>(&step.answer);
  return answer != nullptr ? *answer : QString();
}

QString ScriptedDialogs::OpenFile(QWidget*, const QString& title, const QString&, const QString&) {
  const Step step = Take(Kind::File, title);
  const QString* answer = std::get_if<QString>(&step.answer);
  return answer != nullptr ? *answer : QString();
}

QString ScriptedDialogs::SaveFile(QWidget* owner, const QString& title, const QString& filter,
                                  const QString&) {
  return OpenFile(owner, title, filter, {});
}

QString ScriptedDialogs::Folder(QWidget*, const QString& title, const QString&) {
  const Step step = Take(Kind::Folder, title);
  const QString* answer = std::get_if<QString>(&step.answer);
  return answer != nullptr ? *answer : QString();
}

QStringList UnexpectedModalGuard::allowed;

UnexpectedModalGuard::UnexpectedModalGuard() { qApp->installEventFilter(this); }

bool UnexpectedModalGuard::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  if (event->type() == QEvent::Show && widget != nullptr && widget->isWindow() && widget->isModal() &&
      !allowed.contains(widget->objectName())) {
    ADD_FAILURE() << "an unexpected modal window: " << widget->metaObject()->className() << " "
                  << widget->windowTitle().toStdString();
    QTimer::singleShot(0, widget, [widget] { widget->close(); });
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace vorlina
