// Saving and restoring all catalogs from the main window.
#pragma once

#include <QObject>
#include <functional>

#include "catalogs/BackupReport.h"

class QWidget;

namespace vorlina {

class DatabaseRetry;

class BackupCommands : public QObject {
 public:
  // Boxes belong to the owner, whose windows work with the database. Both outlive it.
  BackupCommands(DatabaseRetry& database, QWidget& owner);

  // Closes the windows that work with the database; false where one stays, which has told why.
  std::function<bool()> CloseWindows;

  // Whether nothing else may begin, and the database may be closed.
  bool IsAtWork() const { return atWork_; }

  // Both ask first, tell what fails and what came of it, and refuse while a catalog is published or imported
  // into.
  void BackUp();
  void Restore();

 private:
  void Attempt(const std::function<void()>& step);
  bool LeaveRows() const;
  void Save(const QString& file, MissingPictures missing);
  bool AskWithoutPictures(const QString& description) const;
  void RestoreFrom(const QString& source);
  void Replace(const QString& source, bool databaseAlone);

  DatabaseRetry& database_;
  QWidget& owner_;
  bool atWork_ = false;
};

}  // namespace vorlina
