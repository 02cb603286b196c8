// Helpers on names, values and paths. They hold no state and touch no file.
#pragma once

#include <QString>
#include <QVariant>

namespace vorlina {

// A database value that is Null. It is distinct from the empty QVariant(), which is what a failed lookup
// gives.
inline QVariant NullValue() { return QVariant::fromValue(nullptr); }

// True where the text holds none of the nine characters / \ : * ? " < > | that a file name cannot hold.
bool IsValidFileName(const QString& text);

// The value as a number, 0 where it is Null or empty. Throws Error for a text that is no number.
double NullToZero(const QVariant& value);

// The value as text, "" where it is Null or empty.
QString NullToEmpty(const QVariant& value);

// The text as a box of one line shows it: each control character and line break is a blank, and none stands
// at its end.
QString OneLine(QString text);

// A text as a tool tip that shows it as it is: what looks like markup would be taken for it, and a long text
// for one line.
QString PlainToolTip(const QString& text);

// The last segment of a path, where "/" and "\" both separate and a doubled separator counts once. Without
// the extension, its last four characters are cut, whatever they are; a segment shorter than that throws
// Error.
QString FileNameOf(const QString& path, bool keepExtension);

// The path up to its last separator, ending in one. A path that begins with a backslash gets the further one
// back that marks a network share; a path without a separator gives itself and a separator.
QString FolderOf(const QString& path);

}  // namespace vorlina
