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

std::array<double, 10> measureDigits(const QFontMetricsF& metrics) {
  std::array<double, 10> advances{};
  for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
    advances[digit - u'0'] = metrics.horizontalAdvance(QChar(digit));
  }
  return advances;
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
  digitAdvances.reset();
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

/// Not before the font is told in full: every font that is measured is loaded, and stays.
void FixedDigits::layOut() {
  if (!isComponentComplete()) return;
  const QFontMetricsF metrics(drawnIn);
  if (!digitAdvances) digitAdvances = measureDigits(metrics);
  const double widestDigit = *std::ranges::max_element(*digitAdvances);
  places.clear();
  double x = 0.0;
  for (const QChar character : shown) {
    const double advance = isDigit(character)
                               ? (*digitAdvances)[static_cast<std::size_t>(character.digitValue())]
                               : metrics.horizontalAdvance(character);
    const double width = isDigit(character) ? widestDigit : advance;
    places.push_back({character, x + (width - advance) / 2.0});
    x += width;
  }
  setImplicitSize(std::ceil(x), std::ceil(metrics.height()));
  setBaselineOffset(metrics.ascent());
  update();
}

void FixedDigits::paint(QPainter* painter) const {
  painter->setFont(drawnIn);
  painter->setPen(ink);
  for (const Place& place : places) {
    painter->drawText(QPointF(place.x, baselineOffset()), place.character);
  }
}

}  // namespace corvane
