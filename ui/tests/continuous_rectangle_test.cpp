// SPDX-License-Identifier: MIT
#include "ui/paint/continuous_rectangle.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <numbers>

namespace corvane {
namespace {

constexpr QRectF box(10, 20, 200, 120);

/// Where a circle of radius 1 in a corner crosses the diagonal, measured from the corner along a
/// side.
constexpr double diagonalInset = 1.0 - std::numbers::sqrt2 / 2.0;

/// Far enough from the edge that the rounding of 64-bit floats cannot decide.
constexpr double hair = 1e-6;

TEST(ContinuousRectanglePath, CrossesTheDiagonalWhereACircleDoes) {
  // A radius is at most half of the height, and at least 0.
  for (const auto& [radius, effective] :
       {std::pair(8.0, 8.0), {50.0, 50.0}, {61.0, 60.0}, {500.0, 60.0}, {0.0, 0.0}, {-1.0, 0.0}}) {
    const QPainterPath path = continuousRectangle(box, radius);
    const double inset = effective * diagonalInset;
    EXPECT_TRUE(path.contains(box.topLeft() + QPointF(inset + hair, inset + hair))) << radius;
    EXPECT_FALSE(path.contains(box.topLeft() + QPointF(inset - hair, inset - hair))) << radius;
  }
}

TEST(ContinuousRectanglePath, LeavesTheSideBeforeACircleDoes) {
  // 24 points from the corner a circle of 20 has not begun; the superellipse is 0.06 inside.
  EXPECT_FALSE(continuousRectangle(box, 20).contains(box.topLeft() + QPointF(24, 0.03)));
}

/// `item` at `place`, clipped to `clip`.
QImage painted(const ContinuousRectangle& item, QPointF place = {}, QRect clip = {0, 0, 80, 60}) {
  QImage image(80, 60, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipRect(clip);
  painter.translate(place);
  item.paint(&painter);
  return image;
}

TEST(ContinuousRectangle, PaintsAStripLikeTheWhole) {
  ContinuousRectangle item;
  item.setProperty("radius", 10.0);
  item.setProperty("color", QColor(255, 0, 0, 100));
  item.setSize({70, 40.5});
  const QPointF place(4, 5.25);  // between pixels
  const QImage whole = painted(item, place);
  for (int left = 0; left < 80; ++left) {
    const QRect strip(left, 0, 3, 60);
    EXPECT_EQ(painted(item, place, strip).copy(strip), whole.copy(strip)) << left;
  }
}

TEST(ContinuousRectangle, PaintsItsOutlineInsideItsNewSize) {
  ContinuousRectangle item;
  item.setProperty("color", QColor(Qt::red));
  item.setSize({20, 20});
  EXPECT_EQ(painted(item).pixelColor(19, 10), QColor(Qt::red));
  item.setProperty("borderColor", QColor(Qt::blue));
  item.setProperty("borderWidth", 2.0);
  item.setSize({40, 20});
  const QImage image = painted(item);
  EXPECT_EQ(image.pixelColor(37, 10), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(38, 10), QColor(Qt::blue));
  EXPECT_EQ(image.pixelColor(39, 10), QColor(Qt::blue));
  EXPECT_EQ(image.pixelColor(40, 10).alpha(), 0);
}

}  // namespace
}  // namespace corvane
