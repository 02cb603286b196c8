#include "Theme.h"

#include <QColor>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace vlhtml {
namespace {

constexpr double LeastContrast = 4.5;
// The darkest surface of the light page that has text, and the lightest one of the dark page.
constexpr QRgb LightSurface = 0xFFEFEDE8;
constexpr QRgb DarkSurface = 0xFF2A2E33;

double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
  const double first = Luminance(a), second = Luminance(b);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

// The colour, lighter or darker by as many small steps as it takes.
QColor Readable(const QColor& colour, const QColor& surface, double step) {
  const double hue = std::max(0.0, double(colour.hslHueF()));
  double lightness = colour.lightnessF();
  QColor fitted = colour;
  while (Contrast(QColor(fitted.name()), surface) < LeastContrast && lightness >= 0 && lightness <= 1) {
    lightness += step;
    fitted.setHslF(float(hue), colour.hslSaturationF(), float(std::clamp(lightness, 0.0, 1.0)));
  }
  return fitted;
}

QByteArray FontOf(const QString& font) {
  if (font == u"serif") return "Georgia, Cambria, \"Noto Serif\", \"DejaVu Serif\", serif";
  if (font == u"mono") return "ui-monospace, Consolas, \"Liberation Mono\", \"DejaVu Sans Mono\", monospace";
  if (font == u"sans")
    return "system-ui, -apple-system, \"Segoe UI\", Roboto, \"Helvetica Neue\", \"DejaVu Sans\", sans-serif";
  return {};
}

}  // namespace

QByteArray ThemeOf(const VorlinaProfile& profile) {
  static const QRegularExpression plain(QStringLiteral("\\A#[0-9A-Fa-f]{6}\\z"));
  QByteArray theme;
  if (plain.match(profile.accent).hasMatch()) {
    const QColor accent(profile.accent);
    const auto rule = [](const QColor& colour, const QByteArray& ink) -> QByteArray {
      return ":root { --accent: " + colour.name().toLatin1() + "; --accent-ink: " + ink + "; }";
    };
    theme += "@media screen { " + rule(Readable(accent, QColor(LightSurface), -0.005), "#ffffff") + " }\n";
    theme += "@media screen and (prefers-color-scheme: dark) { " +
             rule(Readable(accent, QColor(DarkSurface), 0.005), "#14171a") + " }\n";
  }
  if (const QByteArray font = FontOf(profile.font); !font.isEmpty())
    theme += ":root { --font: " + font + "; }\n";
  return theme;
}

}  // namespace vlhtml
