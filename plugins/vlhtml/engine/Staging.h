// The folder beside the target in which a site is built, and the swap that puts it in place.
//
// Only files that changed are built. When all are there, the new manifest is written into the staging folder
// as the very last file: from then on the swap can be finished by any later run. It moves the files over one
// by one, deletes what only the former manifest lists, and puts the manifest itself in place at the end.
#pragma once

#include <QString>
#include <QStringList>

#include "Manifest.h"

namespace vlhtml {

class Staging {
 public:
  // For a target folder, which may not exist yet. A swap that an earlier run began is finished first; a
  // staging folder that was never completed is deleted. Throws std::runtime_error.
  Staging(const QString& target, bool italian);
  // Deletes what was staged, unless the swap was begun.
  ~Staging();
  Staging(const Staging&) = delete;
  Staging& operator=(const Staging&) = delete;

  // The files that the target has from earlier runs.
  const Manifest& Former() const { return former_; }
  // Whether the target's file is still the one that was made from this input.
  bool IsCurrent(const QString& file, const QByteArray& input) const;
  // Makes the staging folder. Throws when a file of the site would take the place of one that is not ours.
  void Begin(const QStringList& files);

  // Writes or copies a file into the staging folder and checks its size; may be called on several threads,
  // each file once. The entry for the manifest is returned. Throws std::runtime_error.
  ManifestEntry Write(const QString& file, const std::string& content, const QByteArray& input) const;
  ManifestEntry Copy(const QString& file, const QString& source, const QByteArray& input) const;

  // Puts the site in place.
  void Swap(const Manifest& manifest);

 private:
  void FinishSwap();
  ManifestEntry EntryOf(const QString& file, qint64 meant, const QByteArray& input) const;
  [[noreturn]] void Fail(const QString& italianText, const QString& englishText, const QString& file) const;

  QString target_;
  QString staging_;
  bool italian_;
  bool begun_ = false;
  Manifest former_;
};

}  // namespace vlhtml
