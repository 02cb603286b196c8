#include "base/SafeFile.h"

#include <QDir>
#include <cerrno>
#include <csignal>

#include "base/Texts.h"

namespace vorlina {
namespace {

using Fault = files::FileError::Fault;

QString FullDiskText(int cause) {
  // A limit on the size of files, the user's own or that of an old file system, looks like a full disk too.
  if (cause == EFBIG)
    return Texts::tr(
        "Impossibile scrivere %1: il disco è pieno, o non accetta file così grandi. Liberare spazio o "
        "scegliere un altro disco, e riprovare.");
  return Texts::tr("Impossibile scrivere %1: il disco è pieno. Liberare spazio e riprovare.");
}

[[noreturn]] void Tell(const files::FileError& error) {
  const QString path = QDir::toNativeSeparators(error.Path());
  switch (error.What()) {
    case Fault::NotRead:
      throw Error(Texts::tr("Impossibile leggere il file %1: %2").arg(path, error.Reason()));
    case Fault::NoFile:
      throw Error(Texts::tr("Impossibile leggere il file %1: %2").arg(path, Texts::tr("non è un file")));
    case Fault::NoFolder:
      if (MeansFullDisk(error.Cause())) throw DiskFullError(error.Path(), error.Cause());
      throw Error(Texts::tr("Impossibile creare la cartella %1").arg(path));
    case Fault::NotWritten:
      break;
  }
  FailWriting(error.Path(), error.Cause(), error.Reason());
}

template <typename Work>
auto Told(const Work& work) {
  try {
    return work();
  } catch (const files::FileError& error) {
    Tell(error);
  }
}

}  // namespace

DiskFullError::DiskFullError(const QString& path, int cause)
    : Error(FullDiskText(cause).arg(QDir::toNativeSeparators(path))), cause_(cause) {}

void FailWriting(const QString& path, int cause, const QString& reason) {
  if (MeansFullDisk(cause)) throw DiskFullError(path, cause);
  QString why = reason;
  if (why.isEmpty())
    why = cause != 0 ? qt_error_string(cause) : Texts::tr("ne è stata scritta solo una parte");
  throw Error(Texts::tr("Impossibile scrivere il file %1: %2").arg(QDir::toNativeSeparators(path), why));
}

void TellFileLimitsAsErrors() {
#ifdef SIGXFSZ
  std::signal(SIGXFSZ, SIG_IGN);
#endif
}

void MakeFolder(const QString& folder) {
  Told([&] { files::MakeFolder(folder); });
}

void WriteFileSafely(const QString& path, const QByteArray& bytes) {
  Told([&] { files::WriteFileSafely(path, bytes); });
}

void WriteFileSafely(const QString& path, const std::function<bool(QIODevice&)>& writer) {
  Told([&] { files::WriteFileSafely(path, writer); });
}

void CopyFileSafely(const QString& source, const QString& target) {
  Told([&] { files::CopyFileSafely(source, target); });
}

void MoveFileSafely(const QString& source, const QString& target) {
  Told([&] { files::MoveFileSafely(source, target); });
}

void WriteStagedFile(const QString& path, const std::function<bool(QIODevice&)>& writer) {
  Told([&] { files::WriteStagedFile(path, writer); });
}

StagedCopy CopyStagedFile(const QString& source, const QString& target) {
  return Told([&] { return files::CopyStagedFile(source, target); });
}

void SyncVolume(const QString& folder) {
  Told([&] { files::SyncVolume(folder); });
}

void SyncFiles(const QStringList& paths) {
  Told([&] { files::SyncFiles(paths); });
}

}  // namespace vorlina
