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

// The job of a profile as ReadProfiles gives it. Options that the publisher does not have are left out, and
// those that are missing have its own values. Throws Error.
VorlinaJob MakeJob(IVorlinaPublisher& publisher, int IDCatalogo, const VorlinaProfile& profile,
                   const QString& target, const QVariantMap& options = {});

// Has the publisher do the job: with a connection of its own, which ends with the call as one of a plug-in
// does. Whatever it throws is an Error. What comes back is bounded: a plug-in's report cannot harm who shows
// it.
VorlinaReport RunJob(IVorlinaPublisher& publisher, Connection& connection, const VorlinaJob& job,
                     IVorlinaProgress& progress);

}  // namespace vorlina
