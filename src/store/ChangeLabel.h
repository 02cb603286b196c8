// What a change does, for people.
#pragma once

#include <QString>
#include <QStringList>

namespace vorlina {

// An Italian source text, marked for translation, with "%1" and so on for the values. It is kept as it is and
// translated when it is shown, whatever language that is in by then.
struct ChangeLabel {
  const char* text = nullptr;
  QStringList values = {};

  bool IsEmpty() const { return text == nullptr; }
  // In the language in use.
  QString Shown() const;
};

}  // namespace vorlina
