// The application path: the one place that knows where the user's database, pictures and layouts lie.
#pragma once

#include <QString>

namespace vorlina {

// The application folder, in native separators, with no trailing one: the folder of the running program where
// that is writable and does not hold a file "installed", otherwise a folder of the user's own.
QString AppPath();

// Where the program and the plug-in libraries delivered with it lie: the folder of the running program. It
// differs from AppPath() where that folder is read-only.
QString DeliveredPath();

// Settles AppPath() and, where it is the user's own folder, copies into it what is delivered and is not yet
// there: database, pictures, layouts and skins; where the program brings its samples in a folder "Samples"
// and has beside it no database that it could take, from there. The database comes last, so that a copy cut
// short is taken up again at the next start. Throws Error when the folder cannot be made or filled, or
// another program changes the database meanwhile.
void PrepareAppPath();

// Takes this folder as AppPath(), for the companion program and the tests; with an empty one it is settled
// anew.
void SetAppPath(const QString& folder);

// AppPath() with a name below it, such as AppFile("Images/109-A.jpg"), in native separators.
QString AppFile(const QString& name);

}  // namespace vorlina
