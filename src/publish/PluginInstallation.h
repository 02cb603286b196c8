// Installing plug-ins from packages into the folder "PubWiz". All of it throws Error for a package that
// cannot be opened or used, with everything as it was.
#pragma once

#include <QString>

#include "publish/PackageManifest.h"

namespace vorlina {

// Takes the package's plug-in away from the application folder's "PubWiz", if it was installed from a
// package. True where it was; what was made in the plug-in's folder since then stays.
bool RimuoviPluginMsi(const QString& package);

// Installs the package into the folder. False, with nothing done, where its plug-in is installed there.
bool InstallaPluginMsi(const QString& package, const QString& folder);

// Takes away what is installed, whether or not there is something, and installs the package; the result is
// that of the installation. A kill or a failure at any moment leaves the former plug-in or the new one.
bool AggiornaPluginMsi(const QString& package, const QString& folder);
// The same for a package that was verified before; throws where it has become another one since then.
bool AggiornaPluginMsi(const QString& package, const PackageManifest& verified, const QString& folder);

}  // namespace vorlina
