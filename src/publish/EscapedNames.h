// The escaped form in which the names of value and filter fields are stored, since they serve as column
// aliases and as keys of grid columns.
#pragma once

#include <QString>
#include <QVariant>

namespace vorlina {

// "Cod. art" gives "Cod\046 art"; a backslash is doubled; Null gives "".
QString EscapeName(const QVariant& name);

// The plain form, for showing. "\128" gives the euro sign, which is character 128 of the code page that the
// names were first written in. An escape behind a backslash is text of the user's and stays.
QString UnescapeName(const QVariant& name);

// The text with pad characters in front, up to the length; a text that is as long or longer stays as it is.
QString PadLeft(const QString& text, int length, QChar pad);

}  // namespace vorlina
