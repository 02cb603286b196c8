#include "publish/WidgetEscapedName.h"

#include <QLineEdit>
#include <QSignalBlocker>

#include "publish/EscapedNames.h"

namespace vorlina {

// Setting the limit anew costs a box its caret and what can be undone, so that is done only where it changes.
void LimitEscapedLength(QLineEdit& box) {
  const QString kept = FitEscapedName(box.text());
  const bool fits = kept == box.text();
  const int limit = fits ? LongestEscapedName : int(kept.size());
  if (fits && box.maxLength() == limit) return;
  const int caret = fits ? box.cursorPosition() : limit;
  const QSignalBlocker blocker(box);
  box.setMaxLength(limit);
  box.setCursorPosition(caret);
}

}  // namespace vorlina
