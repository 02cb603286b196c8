// Where the help of each language lies.
#pragma once

#include <QString>

namespace vorlina {

// The help that was delivered for a language, by its English name. There are two: the Italian one is for
// every language but English.
QString HelpFile(const QString& language);

// The help of the other language beside one of them; "" where it is not there.
QString OtherHelpFile(const QString& file);
// Whether a help file is the English one.
bool IsEnglishHelp(const QString& file);

}  // namespace vorlina
