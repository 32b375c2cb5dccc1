#include "ui/vector_item.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QQuickWindow>

#include "ui/continuous_rectangle.h"

namespace corvane {
namespace {

/// Makes the program draw as the tuner does before there is a window.
class Software {
 public:
  Software() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }
};

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

  /// The window with the item at this height in the area that clips it.
  QImage paintedAt(double y) {
    item.setY(y);
    return window.grabWindow();
  }

  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  Software software;
  QGuiApplication app{argc, argv};
  QQuickWindow window;
  QQuickItem area{window.contentItem()};
  ContinuousRectangle item{&area};
};

/// How many pixels are not as black as the ground, inside and outside of the clipping area.
std::pair<int, int> inkInsideAndOutside(const QImage& image) {
  std::pair<int, int> ink = {0, 0};
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qGray(image.pixel(x, y)) == 0) continue;
      ++(QRect(50, 50, 100, 100).contains(x, y) ? ink.first : ink.second);
    }
  }
  return ink;
}

TEST_F(VectorItemTest, IsPaintedWhereItIs) {
  EXPECT_EQ(inkInsideAndOutside(paintedAt(30)), std::pair(60 * 40, 0));
}

TEST_F(VectorItemTest, IsCutAtTheEdgeOfWhatClipsIt) {
  EXPECT_EQ(inkInsideAndOutside(paintedAt(80)), std::pair(60 * 20, 0));
  EXPECT_EQ(inkInsideAndOutside(paintedAt(-30)), std::pair(60 * 10, 0));
}

TEST_F(VectorItemTest, IsNotPaintedOutsideOfWhatClipsIt) {
  for (const double y : {-45.0, 105.0}) {
    EXPECT_EQ(inkInsideAndOutside(paintedAt(y)), std::pair(0, 0)) << y;
  }
}

/// Counts how often it is painted.
class Probe : public VectorItem {
 public:
  Probe(QQuickItem* parent, QPointF place) : VectorItem(parent) {
    setPosition(place);
    setSize({20, 20});
  }

  void paint(QPainter*) const override { ++paintings; }

  mutable int paintings = 0;
};

TEST_F(VectorItemTest, WhatDoesNotTouchWhatMovesIsNotPaintedAgain) {
  const Probe far(window.contentItem(), {0, 0});
  const Probe near(window.contentItem(), {150, 180});
  Probe moving(window.contentItem(), {155, 175});
  window.grabWindow();
  const int painted = far.paintings;
  ASSERT_GT(painted, 0);
  const int paintedNear = near.paintings;
  moving.setX(158);
  int frames = 0;
  QObject::connect(&window, &QQuickWindow::afterRendering, [&] { ++frames; });
  QElapsedTimer waited;
  waited.start();
  while (frames == 0 && waited.elapsed() < 5000) QCoreApplication::processEvents();
  ASSERT_GT(frames, 0);
  EXPECT_GT(near.paintings, paintedNear);
  EXPECT_EQ(far.paintings, painted);
}

TEST_F(VectorItemTest, WithoutAClipItIsPaintedOutsideOfItsParent) {
  area.setClip(false);
  EXPECT_EQ(inkInsideAndOutside(paintedAt(105)), std::pair(0, 60 * 40));
}

}  // namespace
}  // namespace corvane
