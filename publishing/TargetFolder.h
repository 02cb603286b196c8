// Which folders a site may not be published into.
#pragma once

#include <QString>

namespace publishing {

// Throws std::runtime_error for the application folder and what the program keeps in it, for the user's home,
// and for a folder that holds one of these.
void RequireSiteFolder(const QString& target, const QString& applicationFolder, bool italian);

// The same for a folder with somebody else's pages; to be asked where nothing in it is ours.
void RequireNoOtherSite(const QString& target, bool italian);

// Whether there is anything in it that is not hidden.
bool HasShownFiles(const QString& target);

}  // namespace publishing
