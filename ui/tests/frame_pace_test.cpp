// SPDX-License-Identifier: MIT
#include "ui/paint/frame_pace.h"

#include <gtest/gtest.h>

#include <QQuickWindow>
#include <QScreen>
#include <QVariantAnimation>
#include <chrono>
#include <cmath>
#include <vector>

#include "tests/support/eventually.h"

namespace corvane {
namespace {

class FramePaceTest : public testing::Test {
 protected:
  FramePaceTest() { pace.install(); }
  ~FramePaceTest() override { pace.uninstall(); }

  FramePace pace;
};

TEST_F(FramePaceTest, DrawsAMoveInThreeFrames) {
  for (int time = 0; time < 2; ++time) {
    EXPECT_TRUE(eventually([this] { return !pace.isRunning(); }));
    std::vector<double> seen;
    QVariantAnimation move;
    move.setDuration(80);
    move.setStartValue(0.0);
    move.setEndValue(1.0);
    QObject::connect(&move, &QVariantAnimation::valueChanged, [&](const QVariant& value) {
      if (value.toDouble() > 0.0) seen.push_back(value.toDouble());
    });
    move.start();
    EXPECT_TRUE(eventually(
        [&] { return move.state() == QAbstractAnimation::Stopped && !pace.isRunning(); }));
    // A slow machine takes fewer.
    EXPECT_LE(seen.size(), 3U);
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.back(), 1.0);
  }
}

TEST_F(FramePaceTest, KeepsTheDisplayRateUntilTheMoveEnds) {
  const auto usual = pace.interval();
  QQuickWindow window;
  FramePace::quicken(*window.contentItem());
  const auto quick =
      std::chrono::milliseconds(std::lround(1000.0 / window.screen()->refreshRate()));
  EXPECT_EQ(pace.interval(), quick);
  EXPECT_LT(quick, usual);
  QVariantAnimation move;
  move.setDuration(1);
  move.setEndValue(1.0);
  move.start();
  EXPECT_TRUE(eventually([this] { return pace.isRunning(); }));
  EXPECT_EQ(pace.interval(), quick);
  EXPECT_TRUE(eventually([this] { return !pace.isRunning(); }));
  EXPECT_EQ(pace.interval(), usual);
}

}  // namespace
}  // namespace corvane
