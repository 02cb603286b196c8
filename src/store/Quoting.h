// The one place where names and texts are made fit to stand in an SQL text. Values are bound instead; this
// serves aliases made of user names, and conditions that are composed as text.
#pragma once

#include <QString>

namespace vorlina {

// A table or column name, or an alias, whatever characters it holds: Cod. "art" gives "Cod. ""art""".
QString QuotedName(const QString& name);

// A text literal: l'arte gives 'l''arte'.
QString QuotedText(const QString& text);

// A text in which LIKE ... ESCAPE '\' takes "%", "_" and "\" as they stand.
QString LikeText(const QString& text);

}  // namespace vorlina
