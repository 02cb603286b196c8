// Packages of plug-ins: zip archives named after the plug-in's identifier, with the ending ".vpk", that hold
// a manifest and the files that it lists. All of it throws Error.
#pragma once

#include <QString>

#include "publish/PackageManifest.h"

namespace vorlina {

// Reads the whole package and tells what it is. Throws for one that is damaged, is not called as its plug-in,
// holds anything but what its manifest lists, or cannot run in this program.
PackageManifest VerifyPackage(const QString& package);

// Unpacks a package into an empty folder, verified as it is read. What was unpacked stays when it throws.
PackageManifest UnpackPackage(const QString& package, const QString& folder);

// Makes the package of a library, which is named after the plug-in's identifier, and of what lies in a folder
// of files ("": of none), in the target folder. Gives its path.
QString WritePackage(const QString& library, const QString& version, const QString& files,
                     const QString& target);

// The digest of a file as it stands in a manifest; empty where it cannot be read.
QByteArray HashOf(const QString& file);

}  // namespace vorlina
