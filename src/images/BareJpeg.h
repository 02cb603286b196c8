// A JPEG file without what does not show: what a camera or a program wrote beside the picture.
#pragma once

#include <QByteArray>

namespace vorlina {

// The file with the picture as it is stored, its colour profile and how it is to be turned (1 to 8), and
// nothing else. It is the same file where it has nothing else. For files that can be decoded.
QByteArray BareJpeg(const QByteArray& jpeg, int orientation);

}  // namespace vorlina
