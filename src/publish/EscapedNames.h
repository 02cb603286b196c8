// The form in which the names of values and filters are stored, so that they can serve as SQL aliases and
// column keys.
#pragma once

#include <QString>
#include <QVariant>

namespace vorlina {

// The text padded in front up to the length; a longer text as it is.
QString PadLeft(const QString& text, int length, QChar pad);

// A name as it is stored: backslashes doubled, each of . / * : # & - % $ as a backslash and three digits. ""
// for Null.
QString EscapeName(const QVariant& name);

// A stored name as it is shown. A code that stands behind a backslash is a literal text and stays. "" for
// Null.
QString UnescapeName(const QVariant& stored);

}  // namespace vorlina
