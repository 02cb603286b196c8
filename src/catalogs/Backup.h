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

// What a restore brings back.
enum class RestoreScope {
  Everything,    // an archive, or the folder that keeps what was there before a restore
  DatabaseAlone  // a database, or a folder without pictures: pictures and layouts stay as they are
};

struct RestoreOffer {
  RestoreScope scope = RestoreScope::Everything;
  BackupManifest manifest;  // which nobody has compared
};

// What there is to restore in a file or folder. Throws Error where there is nothing of ours.
RestoreOffer ReadOffer(const QString& source);

struct RestoreReport {
  RestoreScope scope = RestoreScope::Everything;
  BackupManifest manifest;
  QString former;  // the folder with what was there before; "" when there was nothing
};

// What was restored and where the former state lies now, in sentences without the last stop.
QString RestoredText(const QString& source, const RestoreReport& report);

// Asked where the database that goes cannot be copied to the automatic copies, and told why: false gives the
// restore up.
using CopyWaiver = std::function<bool(const QString& why)>;

// Replaces database, pictures and layouts of AppPath() by those of the source, or the database alone, and
// makes the paths in the database point there. What was there before stays in the folder "Before restore"
// until the next restore, and its database in an automatic copy besides. Nobody may have the database open.
// Throws Error, Stopped where it was given up, with everything as it was.
RestoreReport RestoreBackup(const QString& source, const Progress& progress = {},
                            const CopyWaiver& waive = {});

}  // namespace vorlina
