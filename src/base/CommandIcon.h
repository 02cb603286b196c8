// The pictures of the windows' commands.
#pragma once

#include <QIcon>
#include <QString>

namespace vorlina {

// The picture of a name, such as "edit"; an empty one for a name that has none. It looks the same where its
// entry is selected.
QIcon CommandIcon(const QString& name);

}  // namespace vorlina
