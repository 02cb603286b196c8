// Unpacking of a skin archive from an unknown hand.
#pragma once

#include <QString>

namespace vlhtml {

// Unpacks a zip archive into a new folder. A single folder at its top is left out of the names. Refused with
// std::runtime_error: what is no zip; links and other special files; names with anything but letters, digits,
// " ._-", names that lead out of the folder, that Windows reserves or that differ in case alone; more than
// 500 files, 50 MB, or a file a hundred times its packed size. What a Mac or Windows adds by itself
// ("__MACOSX", ".DS_Store" and the like) is passed over.
void UnpackSkinArchive(const QString& archive, const QString& folder, bool italian);

}  // namespace vlhtml
