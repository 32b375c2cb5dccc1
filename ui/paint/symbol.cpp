// SPDX-License-Identifier: MIT
#include "ui/paint/symbol.h"

#include <QPainter>
#include <QPainterPath>

namespace corvane {
namespace {

// Every picture is drawn in a square of 16 by 16.
constexpr double side = 16.0;

QPainterPath chevronUpDown() {
  QPainterPath path;
  path.moveTo(4.5, 6.2);
  path.lineTo(8.0, 2.7);
  path.lineTo(11.5, 6.2);
  path.moveTo(4.5, 9.8);
  path.lineTo(8.0, 13.3);
  path.lineTo(11.5, 9.8);
  return path;
}

QPainterPath checkmark() {
  QPainterPath path;
  path.moveTo(3.0, 8.6);
  path.lineTo(6.4, 12.0);
  path.lineTo(13.0, 4.2);
  return path;
}

QPainterPath speakerBody() {
  QPainterPath path;
  path.moveTo(1.0, 6.2);
  path.lineTo(3.6, 6.2);
  path.lineTo(7.4, 2.8);
  path.lineTo(7.4, 13.2);
  path.lineTo(3.6, 9.8);
  path.lineTo(1.0, 9.8);
  path.closeSubpath();
  return path;
}

/// Two arcs around the speaker's mouth.
QPainterPath waves() {
  QPainterPath path;
  for (const double radius : {3.4, 6.4}) {
    const QRectF circle(7.4 - radius, 8.0 - radius, 2.0 * radius, 2.0 * radius);
    path.arcMoveTo(circle, 42.0);
    path.arcTo(circle, 42.0, -84.0);
  }
  return path;
}

QPainterPath plusOrMinus(bool plus) {
  QPainterPath path;
  path.moveTo(3.5, 8.0);
  path.lineTo(12.5, 8.0);
  if (plus) {
    path.moveTo(8.0, 3.5);
    path.lineTo(8.0, 12.5);
  }
  return path;
}

QPainterPath flat() {
  QPainterPath path;
  path.moveTo(5.0, 8.0);
  path.cubicTo(7.6, 5.4, 11.2, 5.6, 11.2, 8.0);
  path.cubicTo(11.2, 10.2, 8.2, 12.0, 5.0, 13.6);
  path.lineTo(5.0, 2.2);
  return path;
}

QPainterPath sharp() {
  QPainterPath path;
  for (const double x : {5.9, 10.1}) {
    path.moveTo(x, 2.6);
    path.lineTo(x, 13.4);
  }
  for (const double y : {6.1, 10.5}) {
    path.moveTo(3.3, y + 0.3);
    path.lineTo(12.7, y - 0.9);
  }
  return path;
}

QPainterPath strokes(Symbol::Kind kind) {
  switch (kind) {
    case Symbol::ChevronUpDown:
      return chevronUpDown();
    case Symbol::Checkmark:
      return checkmark();
    case Symbol::SpeakerWave:
      return waves();
    case Symbol::Plus:
      return plusOrMinus(true);
    case Symbol::Minus:
      return plusOrMinus(false);
    case Symbol::Flat:
      return flat();
    case Symbol::Sharp:
      return sharp();
  }
  return {};
}

}  // namespace

void Symbol::setKind(Kind kind) {
  if (kind == picture) return;
  picture = kind;
  update();
  emit pictureChanged();
}

void Symbol::setColor(const QColor& color) {
  if (color == ink) return;
  ink = color;
  update();
  emit pictureChanged();
}

void Symbol::paint(QPainter* painter) const {
  painter->scale(width() / side, width() / side);
  painter->strokePath(strokes(picture), QPen(ink, 1.9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  if (picture != SpeakerWave) return;
  painter->setPen(QPen(ink, 1.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter->setBrush(ink);
  painter->drawPath(speakerBody());
}

}  // namespace corvane
