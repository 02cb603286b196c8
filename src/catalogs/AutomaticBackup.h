// Copies of the database alone that are kept by themselves before something that cannot be taken back: the
// newest ten, in the folder "Backups" of the application folder.
#pragma once

#include <QDateTime>
#include <QString>
#include <vector>

class QWidget;

namespace vorlina {

enum class BackupReason { Deletion, Restore, Import };

struct AutomaticBackup {
  QString file;
  QDateTime made;
  QString reason;  // what it was kept before, in the user's language
  qint64 size = 0;
};

// Copies the database of AppPath() and gives the copy's path; "" where there is none of ours. The oldest
// copies go once the new one is whole, but for the spared one; nothing else in their folder is touched.
// Nobody here needs to have the database open. Throws Error, with all copies as they were.
QString KeepAutomaticBackup(BackupReason reason, const QString& spared = {});

// The same, and where it fails tells why and asks whether to go on without a copy. False where that is not
// wanted.
bool KeepAutomaticBackupOrAsk(BackupReason reason, QWidget* owner);

// The question where a copy could not be kept.
QString WithoutCopyQuestion(const QString& why);

// The copies that there are, the newest first.
std::vector<AutomaticBackup> AutomaticBackups();

}  // namespace vorlina
