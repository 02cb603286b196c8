// Pictures of the help's viewer.
#pragma once

#include <QString>

namespace vorlina {

class Photographer;

// With a help file, which is in the language with this English name.
void TakeHelp(const Photographer& photographer, const QString& file, const QString& language);

}  // namespace vorlina
