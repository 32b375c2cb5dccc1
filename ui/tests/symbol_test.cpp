#include "ui/symbol.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QMetaEnum>
#include <QPainter>
#include <vector>

namespace corvane {
namespace {

constexpr int side = 32;
constexpr int margin = 16;

class SymbolTest : public testing::TestWithParam<Symbol::Kind> {};

/// The picture in red, with a margin to see what leaves the square.
QImage painted(Symbol::Kind kind) {
  Symbol symbol;
  symbol.setProperty("kind", kind);
  symbol.setProperty("color", QColor(Qt::red));
  symbol.setSize(QSizeF(side, side));
  QImage image(side + 2 * margin, side + 2 * margin, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.translate(margin, margin);
  symbol.paint(&painter);
  return image;
}

std::vector<QPoint> inkOf(const QImage& image) {
  std::vector<QPoint> ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y).alpha() > 0) ink.emplace_back(x, y);
    }
  }
  return ink;
}

TEST_P(SymbolTest, DrawsSomething) {
  // Less than a line as long as a quarter of the square, two pixels thick, would hardly be seen.
  EXPECT_GE(inkOf(painted(GetParam())).size(), 16U);
}

TEST_P(SymbolTest, StaysInsideItsSquare) {
  const QRect square(margin, margin, side, side);
  for (const QPoint& point : inkOf(painted(GetParam()))) {
    EXPECT_TRUE(square.contains(point)) << point.x() << ", " << point.y();
  }
}

TEST_P(SymbolTest, IsDrawnInItsColourOnly) {
  const QImage image = painted(GetParam());
  bool isOpaqueSomewhere = false;
  for (const QPoint& point : inkOf(image)) {
    const QColor color = image.pixelColor(point);
    EXPECT_EQ(color.green(), 0);
    EXPECT_EQ(color.blue(), 0);
    isOpaqueSomewhere = isOpaqueSomewhere || color == QColor(Qt::red);
  }
  EXPECT_TRUE(isOpaqueSomewhere);
}

TEST_P(SymbolTest, LooksLikeNoOther) {
  for (const auto other : {Symbol::ChevronUpDown, Symbol::Checkmark, Symbol::SpeakerWave,
                           Symbol::Plus, Symbol::Minus}) {
    if (other == GetParam()) continue;
    EXPECT_NE(painted(GetParam()), painted(other)) << other;
  }
}

INSTANTIATE_TEST_SUITE_P(EveryKind, SymbolTest,
                         testing::Values(Symbol::ChevronUpDown, Symbol::Checkmark,
                                         Symbol::SpeakerWave, Symbol::Plus, Symbol::Minus),
                         [](const auto& kind) {
                           return QMetaEnum::fromType<Symbol::Kind>().valueToKey(kind.param);
                         });

TEST(Symbol, GrowsWithItsItem) {
  Symbol symbol;
  symbol.setSize(QSizeF(side, side));
  QImage small(2 * side, 2 * side, QImage::Format_ARGB32_Premultiplied);
  small.fill(Qt::transparent);
  QImage large = small;
  {
    QPainter painter(&small);
    symbol.paint(&painter);
  }
  symbol.setSize(QSizeF(2 * side, 2 * side));
  QPainter painter(&large);
  symbol.paint(&painter);
  EXPECT_GT(inkOf(large).size(), inkOf(small).size());
}

}  // namespace
}  // namespace corvane
