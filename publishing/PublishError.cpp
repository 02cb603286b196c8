#include "PublishError.h"

#include <QDir>

namespace publishing {
namespace {

QString Reason(const std::error_code& reason, bool italian) {
  if (reason == std::errc::no_space_on_device)
    return italian ? QStringLiteral("il disco è pieno") : QStringLiteral("the disk is full");
  if (reason == std::errc::permission_denied || reason == std::errc::operation_not_permitted ||
      reason == std::errc::read_only_file_system)
    return italian ? QStringLiteral("mancano i permessi. Controllarli, o scegliere un'altra cartella")
                   : QStringLiteral("the permissions are missing. Check them, or choose another folder");
  if (reason == std::errc::cross_device_link)
    return italian ? QStringLiteral("si trova su un altro disco. Scegliere un'altra cartella")
                   : QStringLiteral("it lies on another disk. Choose another folder");
  return QString::fromStdString(reason.message());
}

}  // namespace

std::runtime_error About(const QString& path, bool italian, const QString& italianText,
                         const QString& englishText) {
  return std::runtime_error(
      (italian ? italianText : englishText).arg(QDir::toNativeSeparators(path)).toStdString());
}

std::runtime_error CannotWrite(const QString& path, const std::error_code& reason, bool italian) {
  const QString why = Reason(reason, italian);
  return About(path, italian, QStringLiteral("Impossibile scrivere %1: ") + why,
               QStringLiteral("%1 cannot be written: ") + why);
}

std::runtime_error CannotWrite(const files::FileError& error, bool italian) {
  if (error.IsFullDisk())
    return CannotWrite(error.Path(), std::make_error_code(std::errc::no_space_on_device), italian);
  if (error.Cause() != 0)
    return CannotWrite(error.Path(), std::error_code(error.Cause(), std::generic_category()), italian);
  return About(error.Path(), italian, QStringLiteral("Impossibile scrivere %1: ") + error.Reason(),
               QStringLiteral("%1 cannot be written: ") + error.Reason());
}

std::runtime_error NotOurs(const QString& path, bool italian) {
  return About(path, italian,
               QStringLiteral("Nella cartella c'è già %1, che non è stato pubblicato da Vorlina. "
                              "Spostarlo, o scegliere un'altra cartella."),
               QStringLiteral("The folder already has %1, which Vorlina did not publish. Move it, or "
                              "choose another folder."));
}

std::runtime_error OtherKind(const QString& path, bool italian) {
  return About(path, italian,
               QStringLiteral("Il sito pubblicato prima ha %1 come file dove il nuovo ha una cartella, o "
                              "viceversa. Spostarlo o eliminarlo e pubblicare di nuovo, o scegliere "
                              "un'altra cartella."),
               QStringLiteral("The site published before has %1 as a file where the new one has a folder, or "
                              "the other way round. Move or delete it and publish again, or choose another "
                              "folder."));
}

std::runtime_error HalfWay(const QString& path, const std::error_code& reason, bool italian) {
  const QString why = Reason(reason, italian);
  return About(
      path, italian,
      QStringLiteral("Il sito è rimasto a metà tra il vecchio e il nuovo, perché non si può scrivere %1: ") +
          why + QStringLiteral(". Rimediare e pubblicare di nuovo: il sito sarà completato."),
      QStringLiteral("The site is half-way between the old one and the new one, since %1 cannot be "
                     "written: ") +
          why + QStringLiteral(". Mend this and publish again: the site will be completed."));
}

}  // namespace publishing
