// One archive with all that is the user's: the database, "Images", "Layouts" and "CardLayout.lyt".
//
// A backup gets its name once it was read again and found whole. A restore verifies the whole backup first
// and then changes places with what is there; a kill at any moment leaves either the old or the new state, or
// one from which FinishInterruptedRestore makes one of the two.
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

#include "base/Progress.h"
#include "catalogs/BackupManifest.h"

namespace vorlina {

class Connection;

// Writes the backup of the application folder whose database this is. A former backup of that name is
// replaced, any other file is not. The progress counts bytes, and may stop it. Throws Error; nothing then has
// the name that had not before.
BackupManifest WriteBackup(Connection& connection, const QString& file, const Progress& progress = {});

// Takes the files of a backup, each with a source that gives its content piece by piece.
using BackupVisitor = std::function<void(const QString& name, const std::function<QByteArray()>& nextPiece)>;

// Reads a backup from beginning to end and compares every file with the manifest. Throws Error for one that
// is damaged, incomplete, or holds something else.
BackupManifest ReadBackup(const QString& file, qint64 mostBytes, const BackupVisitor& visitor);

// Replaces database, pictures and layouts of AppPath() by those of the backup, and makes the paths in the
// database point there. Nobody may have the database open. Throws Error, with everything as it was.
BackupManifest RestoreBackup(const QString& file, const Progress& progress = {});

}  // namespace vorlina
