// SPDX-License-Identifier: MIT
#include "ui/paint/needle.h"

#include <algorithm>
#include <cmath>

#include "ui/paint/frame_pace.h"

namespace corvane {
namespace {

constexpr double moveMs = 80.0;
constexpr double firstStep = 5.0 / 9.0;  // of a move in three frames
constexpr double visibleMove = 0.1;      // points

}  // namespace

double needleCentre(double width, double height, double span, double value) {
  const double shown = std::clamp(value, -span, span);
  const double centre = width * (span + shown) / (2.0 * span);
  return std::min(std::max(centre, height / 2.0), width - height / 2.0);
}

bool needleMoves(double width, double height, double span, double from, double to) {
  if (width <= height) return from != to;
  const double move =
      needleCentre(width, height, span, to) - needleCentre(width, height, span, from);
  return std::abs(move) >= visibleMove;
}

Needle::Needle(QQuickItem* parent) : ContinuousRectangle(parent) {
  move.setEasingCurve(QEasingCurve::OutQuad);
  connect(&move, &QVariantAnimation::valueChanged, this,
          [this](const QVariant& now) { show(now.toDouble()); });
}

void Needle::setTrack(double points) {
  track = points;
  show(value);
}

void Needle::componentComplete() {
  ContinuousRectangle::componentComplete();
  goal = std::clamp(cents, -span, span);
  show(goal);
}

void Needle::geometryChange(const QRectF& now, const QRectF& before) {
  ContinuousRectangle::geometryChange(now, before);
  if (now.size() != before.size()) show(value);
}

/// Follows a visible move only: each is drawn several times.
void Needle::setCents(double reading) {
  cents = reading;
  if (!isComponentComplete()) return;
  const double place = std::clamp(cents, -span, span);
  if (!needleMoves(track, height(), span, goal, place)) return;
  goal = place;
  // Steps longer than the needle are visible as jumps: more frames.
  const bool isFar = firstStep * std::abs(centre(goal) - centre(value)) > width();
  if (isFar) FramePace::quicken(*this);
  // What remains of the parabola after the first step is a parabola too.
  const double rest = isFar ? 4.0 / 5.0 : 2.0 / 3.0;
  const double first = value + (goal - value) * (1.0 - rest * rest);
  move.stop();
  // Each of these setters emits a value of the last move.
  move.setDuration(static_cast<int>(moveMs * rest));
  move.setStartValue(first);
  move.setEndValue(goal);
  move.start();
  show(first);
}

double Needle::centre(double shown) const {
  return needleCentre(track, height(), span, shown);
}

void Needle::show(double now) {
  value = now;
  if (isComponentComplete()) setX(centre(value) - width() / 2.0);
}

}  // namespace corvane
