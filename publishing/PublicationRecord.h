// What is kept on the user's computer of the last publication of a catalog into a folder: by which the next
// one knows, without reading them, that files are as it left them, and that there is nothing to do at all.
// Where it is missing, files are compared by their content.
#pragma once

#include <VorlinaJob.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "FolderState.h"

namespace publishing {

struct PublicationRecord {
  QByteArray start;         // of the computer
  FileTime looked = 0;      // when the target was looked at
  QStringList folders;      // of the target, below it
  std::uint64_t list = 0;   // state of the manifest
  StateSum proven;          // of the files that were old enough by then
  std::uint64_t young = 0;  // how many were not
  QByteArray inputs;  // digest of all that the publication was made from; empty where some was too young
  VorlinaReport report;

  static std::optional<PublicationRecord> Read(const QString& path);
  // A record that cannot be kept is missed by nobody.
  void Write(const QString& path) const;
};

// The target's files, as they are found.
class TargetState {
 public:
  TargetState() = default;
  // Nothing is known where a folder cannot be read.
  TargetState(const QString& target, const QStringList& folders);

  // The files that were proven by then, when all of them are as they were.
  class Proven {
   public:
    bool Has(const QString& file) const;
    // Whether there is no other file, and was none then.
    bool IsAll() const { return isAll_; }

   private:
    friend class TargetState;
    std::vector<std::uint64_t> names_;  // in order
    bool isAll_ = false;
  };
  Proven ProvenBy(const PublicationRecord& record) const;
  // Enters this state into a record, in which these files came anew or went since. What happened to the
  // others meanwhile is not in it, and so is noticed next time.
  void Enter(PublicationRecord& record, const QString& target, const QStringList& changed) const;
  bool IsKnown() const { return known_; }

 private:
  bool known_ = false;
  FileTime looked_ = 0;
  std::vector<FileState> files_;  // but for the manifest
  std::uint64_t list_ = 0;
};

}  // namespace publishing
