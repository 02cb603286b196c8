// One picture of the samples, from its description to the image.
#pragma once

#include <QImage>
#include <QJsonObject>

namespace vorlina::studio {

// Raised whenever the same description gives another picture, so that all are taken anew.
inline constexpr int RendererVersion = 2;

// Composes and takes the picture. What the view leaves open is chosen by the description's "seed". Throws
// Error for a description that cannot be read.
QImage TakeSamplePicture(const QJsonObject& composition, const QJsonObject& presets);

// Draws a company's logo: {"name", "line", "ink", "mark"} on white.
QImage DrawLogo(const QJsonObject& logo);

}  // namespace vorlina::studio
