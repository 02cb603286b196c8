// The folder in which a site is built before it takes its place: beside the target where that can be,
// otherwise in the target itself (the target is a disk of its own, or nothing may be written beside it).
//
// Only files that changed are built. When all are there, SiteSwap puts them in place.
#pragma once

#include <FolderLock.h>

#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>
#include <future>
#include <mutex>
#include <optional>
#include <set>
#include <system_error>

#include "Manifest.h"

namespace publishing {

// A folder that is made when it is missing, and goes again when nothing came to be in it.
class MadeFolder {
 public:
  // Throws std::runtime_error where it is no folder and cannot be made.
  MadeFolder(QString path, bool italian);
  ~MadeFolder();
  MadeFolder(const MadeFolder&) = delete;
  MadeFolder& operator=(const MadeFolder&) = delete;
  bool WasMade() const { return made_; }

 private:
  QString path_;
  bool made_;
};

class Staging {
 public:
  // For a target folder, which may not exist yet. One publisher at a time: the second one is told. A swap
  // that an earlier run began is finished first; a staging folder that was never completed, or is another
  // folder's that lay here, counts for nothing and goes. Throws std::runtime_error.
  Staging(const QString& target, bool italian);
  // Deletes what was staged, unless the swap was begun and could neither be finished nor taken back.
  ~Staging();
  Staging(const Staging&) = delete;
  Staging& operator=(const Staging&) = delete;

  // The files that the target has from earlier runs. Read when it is asked for first, or beside other work
  // from when it is known that it will be.
  const Manifest& Former();
  void ReadFormer();
  // Spells the former files as the coming ones where the file system takes one for the other, as those
  // without letter case do with "Logo.svg" and "logo.svg". Throws std::runtime_error.
  void Respell(const QSet<QString>& coming);
  // Whether the target's file of this entry is still what it was.
  bool IsAsIn(const QString& file, const ManifestEntry& entry) const;
  // Makes room in the staging folder for a file of the site that comes anew; may be called on several
  // threads, when the former files were read. Throws when it would take the place of something that is not
  // ours, or could not be put in place later.
  void MakeRoom(const QString& file);

  // Writes or copies a file into the staging folder and checks its size; may be called on several threads,
  // each file once. It is not brought to the disk: a page can be made again at any time. The entry for the
  // manifest is returned. Throws std::runtime_error.
  ManifestEntry Write(const QString& file, std::string_view content, const QByteArray& input) const;
  ManifestEntry Copy(const QString& file, const QString& source, const QByteArray& input) const;

  // Puts the site in place, or leaves the former one and throws std::runtime_error. Gives the files that are
  // no part of the site any more and could not be deleted.
  QStringList Swap(const Manifest& coming);
  // Deletes what the swap put away, or earlier runs left, on several threads, while this one reports how many
  // of how many files are gone: on some disks it takes longer than writing did. What cannot be deleted goes
  // with this object.
  void Clear(const std::function<void(int, int)>& report);

 private:
  void Recover(const QString& place);
  QString FormerSpelling(const QString& file) const;
  void RequireRoom(const QString& file) const;
  void MakeFolder(const QString& name);
  void ChoosePlace();
  std::error_code Probe(const QString& folder) const;
  bool SwapWhole(const Manifest& coming);
  template <typename Writing>
  auto Told(const QString& file, const Writing& write) const;

  QString target_;
  bool italian_;
  files::FolderLock lock_;
  MadeFolder folder_;
  QString beside_, inside_;  // where the staging folder can be
  QString staging_;          // where it is; empty until begun
  QStringList left_;         // what earlier runs left
  std::future<Manifest> reading_;
  std::optional<Manifest> former_;
  std::mutex mutex_;
  std::set<QString> folders_;  // in which there is room
};

}  // namespace publishing
