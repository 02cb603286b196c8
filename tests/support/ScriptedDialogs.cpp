#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace vorlina {
namespace {

Dialogs* current = nullptr;

}  // namespace

ScriptedDialogs::ScriptedDialogs() : before_(current) {
  current = this;
  InstallDialogs(this);
}

ScriptedDialogs::~ScriptedDialogs() {
  for (const Step& step : script_) ADD_FAILURE() << "never shown: " << step.box.toStdString();
  current = before_;
  InstallDialogs(before_);
}

QString ScriptedDialogs::Take(const QString& box) {
  if (script_.empty()) {
    ADD_FAILURE() << "a box that nobody scripted: " << box.toStdString();
    return {};
  }
  const Step step = script_.front();
  script_.pop_front();
  EXPECT_EQ(step.box.toStdString(), box.toStdString());
  return step.answer;
}

void ScriptedDialogs::ShowMessage(QWidget*, const QString& text, BoxStyle style, const QString&) {
  Take(u"message %1: "_qs.arg(int(style)) + text);
}
bool ScriptedDialogs::ShowQuestion(QWidget*, const QString& text, BoxStyle, const QString&) {
  return !Take(u"question: "_qs + text).isEmpty();
}
Dialogs::Answer ScriptedDialogs::AskWithCancel(QWidget*, const QString& text, const QString&) {
  return Take(u"question: "_qs + text).isEmpty() ? Answer::Cancel : Answer::Yes;
}
Dialogs::Answer ScriptedDialogs::AskToSave(QWidget*, const QString& text) {
  const QString answer = Take(u"question: "_qs + text);
  return answer == u"none" ? Answer::Cancel : answer.isEmpty() ? Answer::No : Answer::Yes;
}
QString ScriptedDialogs::Input(QWidget*, const QString& text, const QString&, const QString&) {
  const bool scripted = !script_.empty();
  const QString answer = Take(u"input: "_qs + text);
  return scripted ? answer : u"unscripted"_qs;  // some ask until they have a text
}
QString ScriptedDialogs::OpenFile(QWidget*, const QString&, const QString&, const QString&) {
  return Take(u"file"_qs);
}
QStringList ScriptedDialogs::OpenFiles(QWidget*, const QString&, const QString&, const QString&) {
  return Take(u"files"_qs).split(u'|', Qt::SkipEmptyParts);
}
QString ScriptedDialogs::SaveFile(QWidget*, const QString&, const QString&, const QString&) {
  return Take(u"file"_qs);
}
QString ScriptedDialogs::Folder(QWidget*, const QString&, const QString&) { return Take(u"folder"_qs); }

int ScriptedDialogs::Choose(QWidget*, const QString&, const QString& question, const QStringList&, int,
                            const QString&) {
  const QString answer = Take(u"choice: "_qs + question);
  return answer.isEmpty() ? -1 : answer.toInt();
}
QString ScriptedDialogs::Colour(QWidget*, const QString&, const QString&) { return Take(u"colour"_qs); }

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
