// SPDX-License-Identifier: MIT
#include "ui/app/text_zoom.h"

#include <QFont>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace corvane {
namespace {

constexpr double pointsPerInch = 72.0;
constexpr double usualPixels = 11.0 * 96.0 / pointsPerInch;

/// Does not use the font's metrics, which would load the font.
double pixels(const QFont& font, double dotsPerInch) {
  return font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * dotsPerInch / pointsPerInch;
}

}  // namespace

double textZoom(const QFont& system, double dotsPerInch) {
  return std::clamp(pixels(system, dotsPerInch) / usualPixels, 1.0, 2.0);
}

double takeTextZoom() {
  QFont font = QGuiApplication::font();
  const double zoom = textZoom(font, QGuiApplication::primaryScreen()->logicalDotsPerInch());
  if (zoom > 1.0) {
    font.setHintingPreference(QFont::PreferNoHinting);
    QGuiApplication::setFont(font);
  }
  return zoom;
}

}  // namespace corvane
