// SPDX-License-Identifier: MIT
#include "ui/paint/vector_item.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QQuickWindow>

#include "tests/support/eventually.h"
#include "ui/paint/continuous_rectangle.h"

namespace corvane {
namespace {

class VectorItemTest : public testing::Test {
 protected:
  VectorItemTest() {
    window.setColor(Qt::black);
    window.resize(200, 200);
    area.setPosition({50, 50});
    area.setSize({100, 100});
    area.setClip(true);
    item.setProperty("color", QColor(Qt::white));
    item.setSize({60, 40});
    window.show();
  }

  /// The number of non-black pixels inside and outside of the area, with the item at this y.
  std::pair<int, int> inkInsideAndOutside(double y) {
    item.setY(y);
    const QImage image = window.grabWindow();
    std::pair<int, int> ink = {0, 0};
    for (int row = 0; row < image.height(); ++row) {
      for (int x = 0; x < image.width(); ++x) {
        if (qGray(image.pixel(x, row)) == 0) continue;
        ++(QRect(50, 50, 100, 100).contains(x, row) ? ink.first : ink.second);
      }
    }
    return ink;
  }

  QQuickWindow window;
  QQuickItem area{window.contentItem()};
  ContinuousRectangle item{&area};
};

TEST_F(VectorItemTest, IsPaintedAtItsPlaceAndClipped) {
  for (const auto& [y, height] : {std::pair(30, 40), {80, 20}, {-30, 10}, {-45, 0}, {105, 0}}) {
    EXPECT_EQ(inkInsideAndOutside(y), std::pair(60 * height, 0)) << y;
  }
  area.setClip(false);
  EXPECT_EQ(inkInsideAndOutside(105), std::pair(0, 60 * 40));
}

TEST_F(VectorItemTest, InheritsOpacity) {
  area.setOpacity(0.5);
  EXPECT_NEAR(qGray(window.grabWindow().pixel(80, 70)), 127.5, 0.5);
}

/// Counts its paint calls.
class Probe : public VectorItem {
 public:
  Probe(QQuickItem* parent, QPointF place) : VectorItem(parent) {
    setPosition(place);
    setSize({20, 20});
  }

  void paint(QPainter*) const override { ++paintings; }

  mutable int paintings = 0;
};

TEST_F(VectorItemTest, IsRepaintedOnlyWhereSomethingMoves) {
  const Probe far(window.contentItem(), {0, 0});
  const Probe near(window.contentItem(), {150, 180});
  Probe moving(window.contentItem(), {155, 175});
  window.grabWindow();
  const int painted = far.paintings;
  ASSERT_GT(painted, 0);
  const int paintedNear = near.paintings;
  moving.setX(158);
  EXPECT_TRUE(eventually([&] { return near.paintings > paintedNear; }));
  EXPECT_EQ(far.paintings, painted);
}

}  // namespace
}  // namespace corvane
