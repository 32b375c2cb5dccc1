// SPDX-License-Identifier: MIT
#include "ui/paint/tuner_theme.h"

namespace corvane {
namespace {

QColor white(float opacity) {
  return QColor::fromRgbF(1.0F, 1.0F, 1.0F, opacity);
}

QColor faded(QColor color, float opacity) {
  color.setAlphaF(opacity);
  return color;
}

}  // namespace

const QColor TunerTheme::bg = QColor::fromRgbF(0.06F, 0.07F, 0.09F);
const QColor TunerTheme::card = QColor::fromRgbF(0.12F, 0.13F, 0.16F);
const QColor TunerTheme::muted = white(0.55F);
const QColor TunerTheme::flat = QColor::fromRgbF(0.98F, 0.62F, 0.24F);
const QColor TunerTheme::gold = QColor::fromRgbF(0.93F, 0.74F, 0.32F);
const QColor TunerTheme::green = QColor::fromRgbF(0.29F, 0.86F, 0.56F);
const QColor TunerTheme::sharp = QColor::fromRgbF(0.45F, 0.70F, 1.0F);

const QColor Shades::track = white(0.08F);
const QColor Shades::outline = white(0.08F);
const QColor Shades::capsule = white(0.06F);
const QColor Shades::raised = white(0.2F);
const QColor Shades::chosen = faded(TunerTheme::gold, 0.22F);
const QColor Shades::off = white(0.16F);
const QColor Shades::highlight = white(0.1F);
const QColor Shades::held = white(0.16F);
const QColor Shades::unavailable = white(0.3F);
const QColor Shades::line = white(0.14F);
const QColor Shades::menu = TunerTheme::card.lighter(125);

QColor needleColor(bool heard, bool inTune, double cents) {
  if (!heard) return TunerTheme::muted;
  if (inTune) return TunerTheme::green;
  return cents < 0.0 ? TunerTheme::flat : TunerTheme::sharp;
}

QColor chipFill(bool /*selected*/, bool hearing, bool inTune) {
  if (!hearing) return TunerTheme::card;
  return inTune ? faded(TunerTheme::green, 0.35F) : faded(TunerTheme::gold, 0.16F);
}

}  // namespace corvane
