// Texts of the catalog without what matters to a page alone.
#pragma once

#include <QString>

namespace publishing {

// A text for sorting and for names of files: without accents, case folded, and letters such as "Ø" as the
// plain ones that stand for them.
QString PlainLetters(const QString& text);
// A text as one line for what has no markup, such as a title: without the marks that turn the direction of
// all that stands behind them.
QString OneLine(const QString& text);

}  // namespace publishing
