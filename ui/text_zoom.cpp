#include "ui/text_zoom.h"

#include <QFont>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace corvane {
namespace {

constexpr double pointsPerInch = 72.0;
constexpr double usualPixels = 11.0 * 96.0 / pointsPerInch;

/// Not from the font's metrics, which would load it.
double pixels(const QFont& font, double dotsPerInch) {
  return font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * dotsPerInch / pointsPerInch;
}

}  // namespace

double textZoom(const QFont& system, double dotsPerInch) {
  return std::clamp(pixels(system, dotsPerInch) / usualPixels, 1.0, 2.0);
}

double textZoom() {
  return textZoom(QGuiApplication::font(), QGuiApplication::primaryScreen()->logicalDotsPerInch());
}

}  // namespace corvane
