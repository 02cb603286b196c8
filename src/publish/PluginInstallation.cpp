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
  const QString identifier = VerifyPackage(package).identifier;
  PluginChange change(folder, identifier);
  if (InstalledPackage(folder, identifier)) return false;
  change.Stage(package);
  change.PutIn();
  change.Complete();
  return true;
}

// The two halves as one change, with the new files ready before the old ones go.
bool AggiornaPluginMsi(const QString& package, const QString& folder) {
  const QString identifier = VerifyPackage(package).identifier;
  PluginChange change(folder, identifier);
  change.Stage(package);
  change.TakeOut();
  if (InstalledPackage(folder, identifier)) return false;
  change.PutIn();
  change.Complete();
  return true;
}

}  // namespace vorlina
