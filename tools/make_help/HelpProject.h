// The help of one language as a project that qhelpgenerator makes a collection of.
#pragma once

#include "HelpSource.h"

namespace vorlina {

// Lays the pages, their style and their pictures out in a folder, with the project "Vorlina.qhp" beside them.
// Throws std::runtime_error, also for a picture that is missing; a draft goes without.
void LayOutProject(const HelpSource& source, const QString& sourceFolder, const QString& language,
                   const QString& pictures, const QString& target, bool draft);

}  // namespace vorlina
