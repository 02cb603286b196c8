// The profiles of a catalog: how its owner wants it published. They are kept with the catalog, among the
// named values of the database, and follow it into a clone, a backup and another folder; the products that a
// profile brings to the fore are marked by values of their own, which follow a changed code and go with the
// product.
#pragma once

#include <QString>
#include <QStringList>

#include "publish/ProfileForm.h"

namespace vorlina {

class Connection;

// The profiles by name. There is one at least: a catalog that has none kept gets a first one, which shows
// everything and is not stored by that. Each comes with a language (its own, else the catalog's, else the one
// that the texts look like), with full paths of its pictures, and with those of its highlights that are
// published, in the order of publication. Throws Error, DamagedProfiles where they cannot be read: what a
// catalog is to hide must not show for that.
QList<VorlinaProfile> ReadProfiles(Connection& connection, int IDCatalogo);

// The profile of that name, in any letter case, or of that identifier. Throws Error with the names that there
// are.
VorlinaProfile ReadProfile(Connection& connection, int IDCatalogo, const QString& nameOrIdentifier);

// Stores a profile in place of the one with its identifier, or as a new one, and gives its identifier, which
// is drawn where it has none. A logo or wide picture that is no profile's yet is copied into "Images"; the
// former one goes where nothing else names it. Of the published products those that the profile names as
// highlights are marked, and no others; products that are not published keep their marks. Throws Error,
// ProfileRefusal for what is no good: a name that is empty or another one's, a colour that is not "#rrggbb",
// an address without http or https, a size outside of 100 to 2000 pixels, a text that is too long, a picture
// that is no whole JPEG.
QString StoreProfile(Connection& connection, int IDCatalogo, const VorlinaProfile& profile);

// Deletes a profile with its marks and its pictures. Nothing happens where there is none. Throws Error, also
// for the last one.
void DeleteProfile(Connection& connection, int IDCatalogo, const QString& identifier);

// Begins anew with a first profile where the kept ones cannot be read; these are put aside in the database
// under another name. It has an identifier of its own, so that no former one's target is offered for what now
// shows everything. Throws Error.
void RenewProfiles(Connection& connection, int IDCatalogo);

}  // namespace vorlina
