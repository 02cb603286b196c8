// Where a window stood, and how large it was, from one run to the next: four settings of the section
// Riservati that begin with one name.
#pragma once

#include <QString>

class QWidget;

namespace vorlina {

// Brings a window to its stored place and size, where there are any and enough of it would be seen. To be
// called before it is shown.
void RestorePlace(QWidget& window, const QString& name);
// Stores them. Never fails: a window closes all the same.
void StorePlace(const QWidget& window, const QString& name);

// Makes a window smaller that the screen has no room for, at a high scale for instance.
void FitIntoScreen(QWidget& window);

}  // namespace vorlina
