// What keeps a folder from being published into, in words for the user.
#pragma once

#include <FileError.h>

#include <QString>
#include <stdexcept>
#include <system_error>

namespace publishing {

// An exception with one of two texts, in which "%1" stands for a file or folder.
std::runtime_error About(const QString& path, bool italian, const QString& italianText,
                         const QString& englishText);

std::runtime_error CannotWrite(const QString& path, const std::error_code& reason, bool italian);
std::runtime_error CannotWrite(const files::FileError& error, bool italian);
// A file that the site needs the place of.
std::runtime_error NotOurs(const QString& path, bool italian);
// A file of ours where the site has a folder now, or the other way round.
std::runtime_error OtherKind(const QString& path, bool italian);
// A swap that can neither be finished nor taken back for now.
std::runtime_error HalfWay(const QString& path, const std::error_code& reason, bool italian);

}  // namespace publishing
