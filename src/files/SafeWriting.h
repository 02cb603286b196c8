// Writing files so that a full disk or a kill leaves the former file whole, for the program and for plug-ins.
// All of it throws FileError.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>

#include "FileError.h"

class QIODevice;

namespace files {

// Makes a folder and those that it lies in, where they are missing. Throws.
void MakeFolder(const QString& folder);

// Replaces the file by these bytes: written beside it, checked, renamed, folder synced. Throws; the
// former file then stands as it was.
void WriteFileSafely(const QString& path, const QByteArray& bytes);

// As WriteFileSafely for content that is produced in pieces. The writer gives false when it could not write;
// what it throws passes through, with the former file as it was.
void WriteFileSafely(const QString& path, const std::function<bool(QIODevice&)>& writer);

// Copies a file in the same manner, replacing the target, and checks the number of bytes. Throws, also
// for a source that is a device, a pipe or a folder.
void CopyFileSafely(const QString& source, const QString& target);

// Gives a finished file its name, replacing what had it, once its content is on the disk. Throws; what
// had the name then stays.
void MoveFileSafely(const QString& source, const QString& target);

// Writes a file that does not count yet: its length is checked as ever, but it is written under its own name
// and is not brought to the disk, which SyncVolume then does once for many files. What had the name goes
// first, so that neither a link is followed nor another name of the same file changed. Throws.
void WriteStagedFile(const QString& path, const std::function<bool(QIODevice&)>& writer);

enum class StagedCopy { Made, Missing, NotRead };

// Copies a file that does not count yet, under its own name and not brought to the disk: by reference where
// the file system can, so that a later change of either leaves the other alone. Where the source is not
// there, or is there and cannot be read, nothing is left behind. Throws where the target cannot be
// written, with nothing left behind either.
StagedCopy CopyStagedFile(const QString& source, const QString& target);

// Brings all that was written to the disk on which the folder lies. Throws when it could not be
// written.
void SyncVolume(const QString& folder);

// Brings these files to the disk, with the folders that hold them. Throws when they could not be
// written.
void SyncFiles(const QStringList& paths);

// Asks the system to bring a folder's entries to the disk. A no-op where the system has no such call.
void SyncFolder(const QString& folder);

}  // namespace files
