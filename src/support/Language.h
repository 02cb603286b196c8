// The language of the program: chosen once, when the splash window loads.
#pragma once

#include <QString>

namespace vorlina {

// "Italian", "English" or whatever else the settings name. Texts of a language that nobody has translated
// into are Italian.
extern QString Language;
// Base of the numbered error messages: 500 in English, else 200.
extern int BaseErrore;
// Base of the numbered confirmations: 600 in English, else 300.
extern int BaseConferma;
// Scratch text in which a long question is put together before it is shown.
extern QString Messaggio;

// Settles the language, the two bases and the texts. The comparison is exact.
void SetLanguage(const QString& language);

// Settles the language: the setting Generali/Language; where that is empty, the system's where there are
// texts in it, else English, which is not saved.
void ChooseLanguage();

// English name of the language of the user's locale, such as "Italian" (type 4097). "" for any other type.
QString LocaleText(int type);
inline constexpr int LocaleEnglishLanguageName = 4097;

}  // namespace vorlina
