// SPDX-License-Identifier: MIT
#include "ui/paint/fixed_digits.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

bool isDigit(QChar character) {
  return character >= u'0' && character <= u'9';
}

}  // namespace

void FixedDigits::setText(const QString& text) {
  if (text == shown) return;
  shown = text;
  layOut();
  emit textChanged();
}

void FixedDigits::setFont(const QFont& font) {
  if (font == drawnIn) return;
  drawnIn = font;
  digits.reset();
  layOut();
  emit textChanged();
}

void FixedDigits::setColor(const QColor& color) {
  if (color == ink) return;
  ink = color;
  update();
  emit colorChanged();
}

void FixedDigits::componentComplete() {
  VectorItem::componentComplete();
  layOut();
}

FixedDigits::Extent FixedDigits::extentOf(const QFontMetricsF& metrics, QChar character) {
  return {metrics.horizontalAdvance(character), metrics.boundingRect(character).top()};
}

/// Not before the font is told in full: every font that is measured is loaded, and stays.
void FixedDigits::layOut() {
  if (!isComponentComplete()) return;
  const QFontMetricsF metrics(drawnIn);
  if (!digits) {
    digits.emplace();
    for (char16_t i = 0; i < 10; ++i) (*digits)[i] = extentOf(metrics, QChar(u'0' + i));
  }
  const double widestDigit = std::ranges::max(*digits, {}, &Extent::advance).advance;
  places.clear();
  top = 0.0;
  double x = 0.0;
  for (const QChar character : shown) {
    const Extent extent = isDigit(character)
                              ? (*digits)[static_cast<std::size_t>(character.digitValue())]
                              : extentOf(metrics, character);
    const double width = isDigit(character) ? widestDigit : extent.advance;
    places.push_back({character, x + (width - extent.advance) / 2.0});
    top = std::min(top, extent.top);
    x += width;
  }
  setImplicitSize(std::ceil(x), std::ceil(metrics.height()));
  setBaselineOffset(metrics.ascent());
  update();
}

QRectF FixedDigits::boundingRect() const {
  constexpr double softEdge = 1.0;
  return VectorItem::boundingRect().adjusted(
      0.0, std::max(0.0, std::floor(baselineOffset() + top) - softEdge), 0.0, 0.0);
}

void FixedDigits::paint(QPainter* painter) const {
  painter->setFont(drawnIn);
  painter->setPen(ink);
  for (const Place& place : places) {
    painter->drawText(QPointF(place.x, baselineOffset()), place.character);
  }
}

}  // namespace corvane
