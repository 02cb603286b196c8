// The writing of src/files/SafeWriting as the program has it: failures are told in the user's language. It
// writes no file otherwise.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>

#include "base/Error.h"
#include "files/SafeWriting.h"

namespace vorlina {

// The disk took no more. Who works towards another file or folder than the one that was being written throws
// it anew with the name that the user knows.
class DiskFullError : public Error {
 public:
  // The number is the system's own (errno).
  explicit DiskFullError(const QString& path, int cause = 0);
  int Cause() const { return cause_; }

 private:
  int cause_;
};

using files::MeansFullDisk;

// Tells that a file or folder cannot be written: DiskFullError where that is the cause, else Error with the
// reason, for which the text of the cause stands where it is empty.
[[noreturn]] void FailWriting(const QString& path, int cause, const QString& reason = {});

// Lets a limit on the size of files show as an error of the write, where the system would end the program. To
// be called once, at its start.
void TellFileLimitsAsErrors();

// They throw Error; what each does stands in SafeWriting.
void MakeFolder(const QString& folder);
void WriteFileSafely(const QString& path, const QByteArray& bytes);
void WriteFileSafely(const QString& path, const std::function<bool(QIODevice&)>& writer);
void CopyFileSafely(const QString& source, const QString& target);
void MoveFileSafely(const QString& source, const QString& target);
void WriteStagedFile(const QString& path, const std::function<bool(QIODevice&)>& writer);
using files::StagedCopy;
StagedCopy CopyStagedFile(const QString& source, const QString& target);
void SyncVolume(const QString& folder);
void SyncFiles(const QStringList& paths);
using files::SyncFolder;

}  // namespace vorlina
