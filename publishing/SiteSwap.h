// The change from the former site to the new one, file by file, in a way that can be finished or taken back
// at any moment.
//
// The staging folder holds the new files ("new"), the manifest of the site as it was ("former.txt"), and that
// of the site as it will be. The latter is the last file to be written there, and from then on the swap
// counts as begun: a later run finishes it. What a new file takes the place of, and what is no part of the
// site any more, goes to "old" until the target's own manifest is replaced, which is the last step. Nothing
// else in the target is touched.
#pragma once

#include <QString>
#include <QStringList>
#include <filesystem>

#include "Manifest.h"

namespace publishing {

class SiteSwap {
 public:
  SiteSwap(QString target, QString staging, bool italian);

  // Whether one was begun and has not come to its end.
  bool IsBegun() const;
  // Begins one. Throws std::runtime_error, with nothing begun.
  void Begin(const Manifest& former, const Manifest& coming);
  // Brings it to its end, or takes it back and throws std::runtime_error. Gives the files that could not be
  // deleted; they stay in the manifest, so that the next run tries again.
  QStringList Run(const Manifest& former, const Manifest& coming);
  // The same for one that an earlier run began.
  void GoOn();
  // Whether the target is still the one that an earlier run began to change: nothing in another one is ours.
  bool IsOfTarget() const;

  // Where the new files are made.
  static QString NewFiles(const QString& staging) { return staging + QStringLiteral("/new"); }

 private:
  QStringList Forward(const Manifest& former, Manifest coming);
  void Back(const Manifest& former, const Manifest& coming);
  bool KeepList(const Manifest& former) const;
  void Replace(const QString& file, const Manifest& former);
  QStringList PutAway(const QStringList& files);
  void RemoveEmptyFolders(const QStringList& files);

  QString target_, staging_;
  QString new_, old_;
  bool italian_;
};

// A path as the calls of std::filesystem take it.
std::filesystem::path SystemPath(const QString& path);

// A file that counts as soon as it is there: written beside, brought to the disk with its folder, renamed.
// False where it could not be written.
bool WriteSynced(const QString& path, const QByteArray& bytes);

}  // namespace publishing
