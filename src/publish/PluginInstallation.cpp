#include "publish/PluginInstallation.h"

#include "base/AppPath.h"
#include "publish/PluginChange.h"
#include "publish/PluginPackage.h"

namespace vorlina {

bool RimuoviPluginMsi(const QString& package) {
  PluginChange change(AppFile(u"PubWiz"_qs), VerifyPackage(package).identifier);
  const bool removed = change.TakeOut();
  change.Complete();
  return removed;
}

bool InstallaPluginMsi(const QString& package, const QString& folder) {
  const PackageManifest verified = VerifyPackage(package);
  PluginChange change(folder, verified.identifier);
  if (InstalledPackage(folder, verified.identifier)) return false;
  change.Stage(package, verified);
  change.PutIn();
  change.Complete();
  return true;
}

// The two halves as one change, with the new files ready before the old ones go.
bool AggiornaPluginMsi(const QString& package, const QString& folder) {
  return AggiornaPluginMsi(package, VerifyPackage(package), folder);
}

bool AggiornaPluginMsi(const QString& package, const PackageManifest& verified, const QString& folder) {
  PluginChange change(folder, verified.identifier);
  change.Stage(package, verified);
  change.TakeOut();
  if (InstalledPackage(folder, verified.identifier)) return false;
  change.PutIn();
  change.Complete();
  return true;
}

}  // namespace vorlina
