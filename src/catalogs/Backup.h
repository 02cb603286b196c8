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
#include "catalogs/BackupReport.h"

namespace vorlina {

class Connection;

// Writes the backup of the application folder whose database this is. It holds every picture that a row of
// the database in it names, also while another program changes them. A former backup of that name is
// replaced, any other file is not. The progress counts bytes, and may stop it. Throws Error; nothing then has
// the name that had not before.
BackupReport WriteBackup(Connection& connection, const QString& file, const Progress& progress = {},
                         MissingPictures missing = MissingPictures::Refused);

// Takes the files of a backup, each with a source that gives its content piece by piece.
using BackupVisitor = std::function<void(const QString& name, const std::function<QByteArray()>& nextPiece)>;

// What a backup says of itself, which nobody has compared. Throws Error for a file that is no backup.
BackupManifest ReadManifest(const QString& file);

// Reads a backup from beginning to end and compares every file with the manifest, of which none gives more
// than it says. Throws Error for one that is damaged, incomplete, or holds something else.
BackupManifest ReadBackup(const QString& file, const BackupVisitor& visitor);

struct RestoreReport {
  BackupManifest manifest;
  QString former;  // the folder with what was there before; "" when there was nothing
};

// Replaces database, pictures and layouts of AppPath() by those of the backup, and makes the paths in the
// database point there. What was there before stays in the folder "Before restore" until the next restore.
// Nobody may have the database open. Throws Error, with everything as it was.
RestoreReport RestoreBackup(const QString& file, const Progress& progress = {});

}  // namespace vorlina
