// What was typed into a box, of one line or of several, to the letter.
#pragma once

#include <QString>

class QWidget;

namespace vorlina {

// Of one line without the line breaks that were pasted into it, which are not seen there. A box that is only
// read gives what it was given.
QString TextIn(const QWidget& box);
void SetText(QWidget& box, const QString& text);

}  // namespace vorlina
