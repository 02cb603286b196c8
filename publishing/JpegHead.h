// The head of a JPEG file, read without what an application may have put before the picture, which can be a
// hundred megabytes.
#pragma once

#include <QSize>
#include <QString>

namespace publishing {

enum class JpegFile { Good, Missing, Unreadable, OtherKind };

// Whether a file can be opened and begins as a JPEG does.
JpegFile LookAtJpeg(const QString& path);

// The size of a JPEG file in pixels; empty when it has none.
QSize JpegSize(const QString& path);

}  // namespace publishing
