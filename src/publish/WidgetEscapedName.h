// The box in which the name of a value or of a filter is typed.
#pragma once

class QLineEdit;

namespace vorlina {

// Holds the stored form of the name in a box within its limit, as the user types. Where nothing has to be
// cut, the caret and what can be undone stay.
void LimitEscapedLength(QLineEdit& box);

}  // namespace vorlina
