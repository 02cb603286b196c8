#include "base/WidgetDialogs.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>

#include "base/Settings.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "base/WidgetChoice.h"
#include "base/WidgetHeldKeys.h"

namespace vorlina {
namespace {

QMessageBox::Icon IconOf(BoxStyle style) {
  switch (style) {
    case BoxStyle::Stop:
      return QMessageBox::Critical;
    case BoxStyle::Question:
    case BoxStyle::QuestionNoFirst:
      return QMessageBox::Question;
    case BoxStyle::Information:
      return QMessageBox::Information;
    case BoxStyle::Plain:
      break;
  }
  return QMessageBox::NoIcon;
}

// The buttons' words follow the program's language, which need not be the desktop's.
QMessageBox::StandardButton Show(QWidget* owner, const QString& text, BoxStyle style, const QString& title,
                                 QMessageBox::StandardButtons buttons, QMessageBox::StandardButton initial,
                                 QMessageBox::StandardButton hidden = QMessageBox::NoButton) {
  QMessageBox box(IconOf(style), title.isEmpty() ? ApplicationTitle() : title, text, buttons, owner);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(initial);
  const std::pair<QMessageBox::StandardButton, QString> words[] = {
      {QMessageBox::Yes, Texts::tr("&Sì")},
      {QMessageBox::No, Texts::tr("&No")},
      {QMessageBox::Cancel, Texts::tr("Annulla")},
  };
  for (const auto& [button, word] : words)
    if (QAbstractButton* found = box.button(button); found != nullptr && !word.isEmpty())
      found->setText(word);
  // Escape and the box's own end push it all the same.
  if (QAbstractButton* unseen = box.button(hidden)) unseen->hide();
  IgnoreHeldKeys(box);
  const PlainCursor plain;
  box.exec();
  return box.standardButton(box.clickedButton());
}

constexpr auto YesNoCancel = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;

Dialogs::Answer AnswerOf(QMessageBox::StandardButton button) {
  return button == QMessageBox::Yes  ? Dialogs::Answer::Yes
         : button == QMessageBox::No ? Dialogs::Answer::No
                                     : Dialogs::Answer::Cancel;
}

// A text of one line, without its middle where it is too long: the path of a file could be wider than the
// screen.
QString Elided(const QString& text, const QWidget& box) {
  constexpr int MostCharacters = 80;
  const QFontMetrics metrics = box.fontMetrics();
  const int width = std::min(MostCharacters * metrics.averageCharWidth(),
                             box.screen()->availableGeometry().width() * 3 / 4);
  return metrics.elidedText(text, Qt::ElideMiddle, width);
}

// "Pictures|*.jpg;*.jpeg|All|*.*" in Qt's form "Pictures (*.jpg *.jpeg)" and "All (*)".
QStringList QtFilters(const QString& filter) {
  const QStringList parts = filter.split(u'|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString masks = parts[i + 1];
    masks.replace(u';', u' ').replace(u"*.*"_qs, u"*"_qs);
    const QString named = u" ("_qs + masks + u')';
    // A description that names its masks itself, with commas even, is not to name them twice.
    QString description = parts[i];
    if (QString(description).replace(u',', u' ').endsWith(named)) description.chop(named.size());
    filters += description + named;
  }
  return filters;
}

}  // namespace

void WidgetDialogs::ShowMessage(QWidget* owner, const QString& text, BoxStyle style, const QString& title) {
  Show(owner, text, style, title, QMessageBox::Ok, QMessageBox::Ok);
}

bool WidgetDialogs::ShowQuestion(QWidget* owner, const QString& text, BoxStyle style, const QString& title) {
  const auto initial = style == BoxStyle::QuestionNoFirst ? QMessageBox::No : QMessageBox::Yes;
  return Show(owner, text, style, title, QMessageBox::Yes | QMessageBox::No, initial) == QMessageBox::Yes;
}

Dialogs::Answer WidgetDialogs::AskWithCancel(QWidget* owner, const QString& text, const QString& title) {
  return AnswerOf(Show(owner, text, BoxStyle::Question, title, YesNoCancel, QMessageBox::Yes));
}

Dialogs::Answer WidgetDialogs::AskToSave(QWidget* owner, const QString& text) {
  return AnswerOf(
      Show(owner, text, BoxStyle::Question, {}, YesNoCancel, QMessageBox::Yes, QMessageBox::Cancel));
}

std::unique_ptr<QInputDialog> WidgetDialogs::InputBox(QWidget* owner, const QString& text,
                                                      const QString& title, const QString& initial) {
  auto box = std::make_unique<QInputDialog>(owner);
  box->setWindowTitle(title);
  box->setLabelText(Elided(text, *box));
  for (QLabel* label : box->findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
  box->setTextValue(initial);
  return box;
}

QString WidgetDialogs::Input(QWidget* owner, const QString& text, const QString& title,
                             const QString& initial) {
  const std::unique_ptr<QInputDialog> box = InputBox(owner, text, title, initial);
  const PlainCursor plain;
  if (box->exec() != QDialog::Accepted) return {};
  const QString answer = box->textValue();
  return answer.isNull() ? u""_qs : answer;
}

QStringList WidgetDialogs::ChooseFiles(QWidget* owner, Chooser kind, FileChoice& choice) {
  QFileDialog chooser(owner, choice.title, choice.initial);
  chooser.setAcceptMode(kind == Chooser::Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  chooser.setFileMode(kind == Chooser::Save   ? QFileDialog::AnyFile
                      : kind == Chooser::Open ? QFileDialog::ExistingFile
                                              : QFileDialog::ExistingFiles);
  if (const QStringList filters = QtFilters(choice.filter); !filters.isEmpty()) {
    chooser.setNameFilters(filters);
    chooser.selectNameFilter(filters.value(choice.filterIndex - 1, filters.first()));
  }
  chooser.setDefaultSuffix(choice.defaultExt);
  if (chooser.exec() != QDialog::Accepted) return {};
  choice.filterIndex = int(chooser.nameFilters().indexOf(chooser.selectedNameFilter())) + 1;
  QStringList files = chooser.selectedFiles();
  for (QString& file : files) file = QDir::toNativeSeparators(file);
  return files;
}

QString WidgetDialogs::OpenFile(QWidget* owner, const QString& title, const QString& filter,
                                const QString& folder) {
  FileChoice choice{title, filter, folder};
  return ChooseFiles(owner, Chooser::Open, choice).value(0);
}

QStringList WidgetDialogs::OpenFiles(QWidget* owner, const QString& title, const QString& filter,
                                     const QString& folder) {
  FileChoice choice{title, filter, folder};
  return ChooseFiles(owner, Chooser::OpenSeveral, choice);
}

QString WidgetDialogs::SaveFile(QWidget* owner, const QString& title, const QString& filter,
                                const QString& initial) {
  FileChoice choice{title, filter, initial};
  return ChooseFiles(owner, Chooser::Save, choice).value(0);
}

QString WidgetDialogs::Folder(QWidget* owner, const QString& title, const QString& initial) {
  return QDir::toNativeSeparators(QFileDialog::getExistingDirectory(owner, title, initial));
}

int WidgetDialogs::Choose(QWidget* owner, const QString& title, const QString& question,
                          const QStringList& choices, int current, const QString& other) {
  WidgetChoice window(owner, title, question, choices, current, other);
  const PlainCursor plain;
  window.exec();
  return window.Chosen();
}

QString WidgetDialogs::Colour(QWidget* owner, const QString& title, const QString& initial) {
  QColorDialog box(QColor(initial), owner);
  box.setWindowTitle(title);
  const PlainCursor plain;
  return box.exec() == QDialog::Accepted ? box.selectedColor().name() : QString();
}

}  // namespace vorlina
