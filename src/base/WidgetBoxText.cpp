#include "base/WidgetBoxText.h"

#include <QLineEdit>
#include <QMetaProperty>
#include <QPlainTextEdit>
#include <QTextDocument>

#include "base/Helpers.h"

namespace vorlina {

// What the box of several lines calls plain text has other blanks.
QString TextIn(const QWidget& box) {
  if (const auto* lines = qobject_cast<const QPlainTextEdit*>(&box)) {
    QString text = lines->document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
  }
  const auto* line = qobject_cast<const QLineEdit*>(&box);
  if (line == nullptr) return {};
  return line->isReadOnly() ? line->text() : OneLine(line->text());
}

void SetText(QWidget& box, const QString& text) { box.metaObject()->userProperty().write(&box, text); }

}  // namespace vorlina
