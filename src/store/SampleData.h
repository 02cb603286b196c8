// Where the paths of the delivered sample rows begin. At first start they are made to point into the
// application folder.
#pragma once

#include <QString>

namespace vorlina {

inline const QString SampleDataRoot = QStringLiteral("/vorlina-sample-data");

}  // namespace vorlina
