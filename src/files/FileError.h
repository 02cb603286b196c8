// What could not be done with a file. It has no words of its own for the user: whoever catches it tells it.
#pragma once

#include <QString>
#include <stdexcept>

namespace files {

class FileError : public std::runtime_error {
 public:
  enum class Fault {
    NotRead,
    NoFile,  // a device, a pipe or a folder has its name
    NotWritten,
    NoFolder,  // it could not be made
  };
  FileError(Fault fault, const QString& path, int cause = 0, const QString& reason = {});

  Fault What() const { return fault_; }
  const QString& Path() const { return path_; }
  // The system's number (errno); 0 where it gave none.
  int Cause() const { return cause_; }
  // The system's words; empty where only a part was written, and no reason told.
  const QString& Reason() const { return reason_; }
  bool IsFullDisk() const;

 private:
  Fault fault_;
  QString path_;
  int cause_;
  QString reason_;
};

// Whether the system's error number says that a disk, or what a user may have of it, is used up.
bool MeansFullDisk(int cause);

}  // namespace files
