#include "base/WidgetWaiting.h"

#include <QApplication>
#include <QBackingStore>
#include <QWidget>
#include <QWindow>
#include <optional>

#include "base/WaitCursor.h"

namespace vorlina {

// Painting anew would ask the rows of a grid in the middle of the statement that waits.
void ShowWaiting(bool waits) {
  static std::optional<WaitCursor> cursor;
  if (!waits) return cursor.reset();
  if (!cursor) cursor.emplace();
  for (const QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && window->windowHandle() != nullptr &&
        window->windowHandle()->handle() != nullptr && window->backingStore() != nullptr)
      window->backingStore()->flush(window->rect(), window->windowHandle());
}

}  // namespace vorlina
