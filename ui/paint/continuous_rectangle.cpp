// SPDX-License-Identifier: MIT
#include "ui/paint/continuous_rectangle.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace corvane {
namespace {

/// How far along the sides a corner reaches, in radii, before a straight line takes over.
constexpr double reachInRadii = 1.53;
constexpr std::size_t pointsInCorner = 24;

struct Corner {
  double reach;
  double exponent;
};

/// The exponent n of |x|^n + |y|^n = 1 whose point at 45 degrees lies where that of the circle
/// lies.
Corner corner(const QRectF& rectangle, double radius) {
  const double most = std::min(rectangle.width(), rectangle.height()) / 2.0;
  const double reach = std::min(radius * reachInRadii, most);
  if (reach <= 0.0) return {0.0, 2.0};
  const double inset = std::min(radius, most) * (1.0 - std::numbers::sqrt2 / 2.0) / reach;
  return {reach, -1.0 / std::log2(1.0 - inset)};
}

/// The points of a corner of reach 1, along its first side and across it.
struct Curve {
  double exponent = 0.0;
  std::array<QPointF, pointsInCorner + 1> points;
};

/// The last one is kept: a level bar changes its length with every reading, not its corners.
const Curve& curveOf(double exponent) {
  static Curve curve;
  if (curve.exponent == exponent) return curve;
  curve.exponent = exponent;
  for (std::size_t i = 0; i <= pointsInCorner; ++i) {
    const double angle = std::numbers::pi / 2.0 * static_cast<double>(i) / pointsInCorner;
    curve.points[i] = {1.0 - std::pow(std::sin(angle), 2.0 / exponent),
                       1.0 - std::pow(std::cos(angle), 2.0 / exponent)};
  }
  return curve;
}

/// One corner, given by its vertex and by the directions from there along its two sides.
void addCorner(QPainterPath& path, QPointF vertex, QPointF from, QPointF to, const Corner& shape) {
  for (const QPointF& place : curveOf(shape.exponent).points) {
    const QPointF point = vertex + shape.reach * (place.x() * from + place.y() * to);
    path.elementCount() == 0 ? path.moveTo(point) : path.lineTo(point);
  }
}

}  // namespace

QPainterPath continuousRectangle(const QRectF& rectangle, double radius) {
  const Corner shape = corner(rectangle, radius);
  const QPointF left(-1, 0), right(1, 0), up(0, -1), down(0, 1);
  QPainterPath path;
  addCorner(path, rectangle.topLeft(), down, right, shape);
  addCorner(path, rectangle.topRight(), left, down, shape);
  addCorner(path, rectangle.bottomRight(), up, left, shape);
  addCorner(path, rectangle.bottomLeft(), right, up, shape);
  path.closeSubpath();
  return path;
}

void ContinuousRectangle::paint(QPainter* painter) const {
  painter->setBrush(fill);
  painter->setPen(outlineWidth > 0.0 ? QPen(outline, outlineWidth) : QPen(Qt::NoPen));
  const QRectF seen = painter->clipBoundingRect();
  if (outlineWidth == 0.0 && isBetweenTheCorners(seen)) {
    // A needle that moves uncovers a strip of what lies under it, many times a second.
    painter->drawRect(QRectF(seen.left(), 0.0, seen.width(), height()));
  } else {
    painter->drawPath(path());
  }
}

/// Whether no corner is to the left or to the right of the ends of `seen`.
bool ContinuousRectangle::isBetweenTheCorners(const QRectF& seen) const {
  const double reach = corner(QRectF(0, 0, width(), height()), cornerRadius).reach;
  return !seen.isEmpty() && seen.left() >= reach && seen.right() <= width() - reach;
}

const QPainterPath& ContinuousRectangle::path() const {
  const Outline now{width(), height(), cornerRadius, outlineWidth};
  if (now == drawn) return drawnPath;
  drawn = now;
  const double inset = outlineWidth / 2.0;
  const QRectF middle = QRectF(0, 0, width(), height()).adjusted(inset, inset, -inset, -inset);
  drawnPath = continuousRectangle(middle, cornerRadius - inset);
  return drawnPath;
}

}  // namespace corvane
