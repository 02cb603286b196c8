// The program-wide language: chosen once, when the splash window loads, and read by every message and
// caption.
#pragma once

#include <QString>

namespace vorlina {

// "Italian" or "English". Any other text silences the messages and leaves the designer's Italian captions.
extern QString Language;
// Base of the numbered error messages: 200 (Italian) or 500 (English); 0 for any other language.
extern int BaseErrore;
// Base of the numbered confirmations: 300 (Italian) or 600 (English); 0 for any other language.
extern int BaseConferma;
// Scratch text in which a long question is put together before it is shown.
extern QString Messaggio;

// Settles the language and the two bases. The comparison is exact.
void SetLanguage(const QString& language);

// Brings Qt's own boxes, choosers and menus into the language of the captions, whatever the desktop speaks.
// English is what they are written in. Where Qt's texts are not installed they stay English, with a line in
// the log.
void LoadQtTexts();

// The Italian or the English text by Language; empty for any other language, which means that nothing is
// shown.
QString ByLanguage(const QString& italian, const QString& english);

// The Italian text when Language is "Italian", the English one for any other: for descriptions of errors,
// which are never empty.
QString EitherLanguage(const QString& italian, const QString& english);

// English name of the language of the user's locale, such as "Italian" (type 4097). "" for any other type.
QString LocaleText(int type);
inline constexpr int LocaleEnglishLanguageName = 4097;

}  // namespace vorlina
