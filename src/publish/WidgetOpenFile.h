// Opening what was published, by the program that the desktop has for it.
#pragma once

#include <QString>

class QWidget;

namespace vorlina {

// Where there is none the user is told where the file lies.
void OpenFile(QWidget& owner, const QString& path);

}  // namespace vorlina
