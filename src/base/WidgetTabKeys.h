// Keys that turn the tabs of a window, wherever in it the focus is.
#pragma once

class QTabWidget;
class QWidget;

namespace vorlina {

// Ctrl+Tab and Ctrl+PgDown lead to the next tab and round, with Shift and Ctrl+PgUp to the one before.
void AddTabKeys(QWidget& window, QTabWidget& tabs);

}  // namespace vorlina
