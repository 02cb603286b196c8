// How a catalog was published last: what is offered the next time.
#pragma once

#include <QString>
#include <QVariantMap>

namespace vorlina {

class Connection;

struct PublishMemory {
  QString profile;      // its identifier; "" where the plug-in has not published the catalog
  QString target;       // full path; "" where it is not known
  QVariantMap options;  // the plug-in's own, by their keys
};

// What is remembered of a catalog and a plug-in: of one profile, or of the one that was published last where
// none is given. A profile that was never published has no target, nor has a clone: another one's site would
// be replaced. What a plug-in kept by itself before there were profiles is that of the first profile until
// that is published. Nothing where it cannot be read. Throws Error.
PublishMemory RememberedPublication(Connection& connection, int IDCatalogo, const QString& plugin,
                                    const QString& profile = {});

// To be called after a complete publication alone. Throws Error.
void RememberPublication(Connection& connection, int IDCatalogo, const QString& plugin,
                         const PublishMemory& publication);

}  // namespace vorlina
