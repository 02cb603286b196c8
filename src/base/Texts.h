// The program's own texts. In the sources they are Italian; every other language is a file in translations/.
//
//   Texts::tr("Impossibile leggere il file %1").arg(path)
//
// A text that is kept as data, to be translated when it is shown, is marked by QT_TRANSLATE_NOOP("Texts",
// ...).
#pragma once

#include <QCoreApplication>
#include <QString>

namespace vorlina {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(Texts)
};

// Has texts come in a language from now on, by its English name, such as "English": the program's own, and
// those of Qt's boxes and menus. Italian for a language that nobody has translated into. To be called by the
// thread of the windows, once the application object is there.
void UseTexts(const QString& language);

// Whether the program's texts are there in the language.
bool HasTexts(const QString& language);

}  // namespace vorlina
