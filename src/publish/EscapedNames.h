// The form in which the names of values and filters are stored, so that they can serve as SQL aliases and
// column keys. The way back, UnescapeName, is shared with the plug-ins.
#pragma once

#include <QString>
#include <QVariant>

#include "publish/plugin/VorlinaNames.h"

namespace vorlina {

// The text padded in front up to the length; a longer text as it is.
QString PadLeft(const QString& text, int length, QChar pad);

// A name as it is stored: backslashes doubled, each of . / * : # & - % $ as a backslash and three digits. ""
// for Null.
QString EscapeName(const QVariant& name);

// Most characters that the stored form of a value or filter name takes, and the name cut at its end until it
// fits.
inline constexpr int LongestEscapedName = 50;
QString FitEscapedName(QString name);

}  // namespace vorlina
