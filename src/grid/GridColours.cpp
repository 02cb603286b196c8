#include "grid/GridColours.h"

#include <QPalette>

namespace vorlina {

GridColours ColoursFor(const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  if (base.lightness() >= 128) return {{0x80, 0x80, 0x80}, {0xFF, 0xFF, 0xBF}, Qt::white, {0x91, 0xC8, 0xFF}};
  return {base.darker(130), base.lighter(140), base, {0x1F, 0x4E, 0x79}};
}

}  // namespace vorlina
