#include "ui/tuner_theme.h"

namespace corvane {

const QColor TunerTheme::bg = QColor::fromRgbF(0.06F, 0.07F, 0.09F);
const QColor TunerTheme::card = QColor::fromRgbF(0.12F, 0.13F, 0.16F);
const QColor TunerTheme::muted = QColor::fromRgbF(1.0F, 1.0F, 1.0F, 0.55F);
const QColor TunerTheme::flat = QColor::fromRgbF(0.98F, 0.62F, 0.24F);
const QColor TunerTheme::gold = QColor::fromRgbF(0.93F, 0.74F, 0.32F);
const QColor TunerTheme::green = QColor::fromRgbF(0.29F, 0.86F, 0.56F);
const QColor TunerTheme::sharp = QColor::fromRgbF(0.45F, 0.70F, 1.0F);

QColor needleColor(bool heard, bool inTune, double cents) {
  if (!heard) return TunerTheme::muted;
  if (inTune) return TunerTheme::green;
  return cents < 0.0 ? TunerTheme::flat : TunerTheme::sharp;
}

}  // namespace corvane
