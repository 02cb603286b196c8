// One publication, for the window that asks how and for vorlina-batch alike.
#pragma once

#include <QVariantMap>

#include "publish/plugin/IVorlinaPlugin.h"

namespace vorlina {

class Connection;

// What a publisher says of itself, bounded and without what makes no sense. Throws Error for what the plug-in
// throws.
VorlinaTarget TargetOf(IVorlinaPublisher& publisher);
QList<VorlinaOption> OptionsOf(IVorlinaPublisher& publisher);

// To be asked before anything is stored or made for a publication. Throws Error for a target that is a folder
// where a file is made, or the other way round, and for one that there is no way to.
void RequireTarget(const VorlinaTarget& kind, const QString& target);

// The job of a profile as ReadProfiles gives it. Options that the publisher does not have are left out, and
// those that are missing have its own values. Throws Error.
VorlinaJob MakeJob(IVorlinaPublisher& publisher, int IDCatalogo, const VorlinaProfile& profile,
                   const QString& target, const QVariantMap& options = {});

// Has the publisher do the job: with a connection of its own, which ends with the call as one of a plug-in
// does. Whatever it throws is an Error. What comes back is bounded, as a plug-in's report must not harm who
// shows it, and tells of pictures that were made in a temporary folder.
VorlinaReport RunJob(IVorlinaPublisher& publisher, Connection& connection, const VorlinaJob& job,
                     IVorlinaProgress& progress);

}  // namespace vorlina
