#include "ui/fixed_digits.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

bool isDigit(QChar character) {
  return character >= u'0' && character <= u'9';
}

class Advances {
 public:
  explicit Advances(const QFont& font) : metrics(font) {
    for (const QChar digit : QStringLiteral("0123456789")) {
      widestDigit = std::max(widestDigit, metrics.horizontalAdvance(digit));
    }
  }

  double of(QChar character) const {
    return isDigit(character) ? widestDigit : metrics.horizontalAdvance(character);
  }

  /// How far a digit is moved to stand in the middle of its place.
  double indent(QChar character) const {
    return (of(character) - metrics.horizontalAdvance(character)) / 2.0;
  }

 private:
  QFontMetricsF metrics;
  double widestDigit = 0.0;
};

/// How wide `text` is when every digit takes the widest digit's place.
double widthOf(const QString& text, const QFont& font) {
  const Advances advances(font);
  double width = 0.0;
  for (const QChar character : text) width += advances.of(character);
  return width;
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
  setImplicitSize(std::ceil(widthOf(shown, drawnIn)), std::ceil(metrics.height()));
  setBaselineOffset(metrics.ascent());
  update();
}

void FixedDigits::paint(QPainter* painter) const {
  const Advances advances(drawnIn);
  painter->setFont(drawnIn);
  painter->setPen(ink);
  double x = 0.0;
  for (const QChar character : shown) {
    painter->drawText(QPointF(x + advances.indent(character), baselineOffset()), character);
    x += advances.of(character);
  }
}

}  // namespace corvane
