#include "contrast.h"

#include <algorithm>
#include <cmath>

namespace corvane::sheet {
namespace {

float mixed(float ink, float ground, float alpha) {
  return ink * alpha + ground * (1.0F - alpha);
}

/// WCAG 2.1, "relative luminance".
double linear(float channel) {
  const double value = static_cast<double>(channel);
  return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

}  // namespace

QColor over(const QColor& ink, const QColor& ground) {
  const float alpha = ink.alphaF();
  return QColor::fromRgbF(mixed(ink.redF(), ground.redF(), alpha),
                          mixed(ink.greenF(), ground.greenF(), alpha),
                          mixed(ink.blueF(), ground.blueF(), alpha));
}

QColor flattened(const std::vector<QColor>& layers) {
  QColor seen = layers.front();
  for (const QColor& layer : layers) seen = over(layer, seen);
  return seen;
}

double contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace corvane::sheet
