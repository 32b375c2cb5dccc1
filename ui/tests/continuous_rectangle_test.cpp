#include "ui/continuous_rectangle.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <numbers>

namespace corvane {
namespace {

constexpr QRectF box(10, 20, 200, 120);

/// Where a circle of radius 1 in a corner cuts the diagonal, from the corner along either side.
constexpr double diagonalInset = 1.0 - std::numbers::sqrt2 / 2.0;

/// As far from the edge as a test must be for the rounding of 64-bit floats not to decide.
constexpr double hair = 1e-6;

void expectSameBounds(const QRectF& actual, const QRectF& expected) {
  EXPECT_NEAR(actual.left(), expected.left(), hair);
  EXPECT_NEAR(actual.top(), expected.top(), hair);
  EXPECT_NEAR(actual.right(), expected.right(), hair);
  EXPECT_NEAR(actual.bottom(), expected.bottom(), hair);
}

void expectCutsTheDiagonalAt(const QPainterPath& path, QPointF corner, double inset) {
  EXPECT_TRUE(path.contains(corner + QPointF(inset + hair, inset + hair)));
  EXPECT_FALSE(path.contains(corner + QPointF(inset - hair, inset - hair)));
}

QImage painted(ContinuousRectangle& item, QSizeF size) {
  item.setSize(size);
  QImage image(size.toSize(), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  item.paint(&painter);
  return image;
}

TEST(ContinuousRectanglePath, FillsItsRectangle) {
  for (const double radius : {0.0, 8.0, 16.0, 60.0, 500.0}) {
    expectSameBounds(continuousRectangle(box, radius).boundingRect(), box);
  }
}

TEST(ContinuousRectanglePath, CutsTheDiagonalWhereACircleWould) {
  for (const double radius : {8.0, 16.0, 30.0, 50.0}) {
    expectCutsTheDiagonalAt(continuousRectangle(box, radius), box.topLeft(),
                            radius * diagonalInset);
  }
}

TEST(ContinuousRectanglePath, LeavesTheSideBeforeACircleWould) {
  // 24 points from the corner a circle of 20 has not begun; the superellipse is 0.06 inside.
  const QPointF point = box.topLeft() + QPointF(24, 0.03);
  QPainterPath circular;
  circular.addRoundedRect(box, 20, 20);
  ASSERT_TRUE(circular.contains(point));
  EXPECT_FALSE(continuousRectangle(box, 20).contains(point));
}

TEST(ContinuousRectanglePath, IsTheSameInAllFourCorners) {
  const QPainterPath path = continuousRectangle(box, 24);
  const QPointF centre = box.center();
  for (double x = 0.3; x < 40.0; x += 1.7) {
    for (double y = 0.4; y < 40.0; y += 1.9) {
      const QPointF from = box.topLeft() + QPointF(x, y) - centre;
      const bool inside = path.contains(centre + from);
      EXPECT_EQ(path.contains(centre + QPointF(-from.x(), from.y())), inside) << x << " " << y;
      EXPECT_EQ(path.contains(centre + QPointF(from.x(), -from.y())), inside) << x << " " << y;
      EXPECT_EQ(path.contains(centre - from), inside) << x << " " << y;
    }
  }
}

TEST(ContinuousRectanglePath, OfRadius0HasSharpCorners) {
  const QPainterPath path = continuousRectangle(box, 0);
  EXPECT_TRUE(path.contains(box.topLeft() + QPointF(hair, hair)));
  EXPECT_TRUE(path.contains(box.bottomRight() - QPointF(hair, hair)));
}

TEST(ContinuousRectanglePath, OfANegativeRadiusHasSharpCornersToo) {
  EXPECT_TRUE(continuousRectangle(box, -1).contains(box.topLeft() + QPointF(hair, hair)));
}

TEST(ContinuousRectanglePath, OfARadiusLargerThanHalfTheHeightEndsInHalfCircles) {
  expectCutsTheDiagonalAt(continuousRectangle(box, 500), box.topLeft(), 60.0 * diagonalInset);
  const QRectF square(0, 0, 100, 100);
  expectCutsTheDiagonalAt(continuousRectangle(square, 51), square.topLeft(), 50.0 * diagonalInset);
}

TEST(ContinuousRectanglePath, OfAnEmptyRectangleIsEmpty) {
  EXPECT_TRUE(continuousRectangle(QRectF(), 16).boundingRect().isEmpty());
}

TEST(ContinuousRectangle, IsFilledToItsEdgeAndNotInItsCorners) {
  ContinuousRectangle item;
  item.setProperty("radius", 16.0);
  item.setProperty("color", QColor(Qt::red));
  const QImage image = painted(item, {80, 60});
  EXPECT_EQ(image.pixelColor(40, 30), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(0, 30), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(79, 30), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
  EXPECT_EQ(image.pixelColor(79, 59).alpha(), 0);
}

/// `item` where it does not begin on a whole pixel, seen through `clip` alone.
QImage paintedThrough(const ContinuousRectangle& item, const QRect& clip, QPointF place) {
  QImage image(80, 60, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipRect(clip);
  painter.translate(place);
  item.paint(&painter);
  return image;
}

TEST(ContinuousRectangle, AStripOfItLooksAsItDoesInTheWhole) {
  ContinuousRectangle item;
  item.setProperty("radius", 10.0);
  item.setProperty("color", QColor(255, 0, 0, 100));
  item.setSize({70, 40.5});
  const QPointF place(4, 5.25);
  const QImage whole = paintedThrough(item, {0, 0, 80, 60}, place);
  for (int left = 0; left < 80; ++left) {
    const QRect strip(left, 0, 3, 60);
    EXPECT_EQ(paintedThrough(item, strip, place).copy(strip), whole.copy(strip)) << left;
  }
}

TEST(ContinuousRectangle, IsPaintedInItsNewSizeWhenItHasOne) {
  ContinuousRectangle item;
  item.setProperty("color", QColor(Qt::red));
  painted(item, {20, 20});
  EXPECT_EQ(painted(item, {40, 20}).pixelColor(39, 19), QColor(Qt::red));
}

TEST(ContinuousRectangle, ItsOutlineLiesInsideItsEdge) {
  ContinuousRectangle item;
  item.setProperty("radius", 16.0);
  item.setProperty("color", QColor(Qt::red));
  item.setProperty("borderColor", QColor(Qt::blue));
  item.setProperty("borderWidth", 2.0);
  const QImage image = painted(item, {80, 60});
  EXPECT_EQ(image.pixelColor(0, 30), QColor(Qt::blue));
  EXPECT_EQ(image.pixelColor(1, 30), QColor(Qt::blue));
  EXPECT_EQ(image.pixelColor(2, 30), QColor(Qt::red));
}

TEST(ContinuousRectangle, HasNoOutlineOfWidth0) {
  ContinuousRectangle item;
  item.setProperty("color", QColor(Qt::red));
  item.setProperty("borderColor", QColor(Qt::blue));
  const QImage image = painted(item, {20, 20});
  EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(19, 10), QColor(Qt::red));
}

TEST(ContinuousRectangle, TellsOfANewShape) {
  ContinuousRectangle item;
  int changes = 0;
  QObject::connect(&item, &ContinuousRectangle::shapeChanged, [&] { ++changes; });
  item.setProperty("radius", 16.0);
  item.setProperty("radius", 16.0);
  EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace corvane
