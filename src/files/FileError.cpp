#include "FileError.h"

#include <cerrno>

namespace files {
namespace {

QString ReasonFor(int cause, const QString& reason) {
  return reason.isEmpty() && cause != 0 ? qt_error_string(cause) : reason;
}

}  // namespace

FileError::FileError(Fault fault, const QString& path, int cause, const QString& reason)
    : std::runtime_error(QString(path + QStringLiteral(": ") + ReasonFor(cause, reason)).toStdString()),
      fault_(fault),
      path_(path),
      cause_(cause),
      reason_(ReasonFor(cause, reason)) {}

// A disk that fills up takes a part of what is written, without an error.
bool FileError::IsFullDisk() const {
  return MeansFullDisk(cause_) || (fault_ == Fault::NotWritten && reason_.isEmpty());
}

bool MeansFullDisk(int cause) {
#ifdef EDQUOT
  if (cause == EDQUOT) return true;
#endif
  return cause == ENOSPC || cause == EFBIG;
}

}  // namespace files
