#include "ui/frame_pace.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <QVariantAnimation>
#include <vector>

namespace corvane {
namespace {

class FramePaceTest : public testing::Test {
 protected:
  FramePaceTest() { pace.install(); }
  ~FramePaceTest() override { pace.uninstall(); }

  /// The values that a move from 0 to 1 goes through once it has begun.
  std::vector<double> steps() {
    std::vector<double> seen;
    QVariantAnimation move;
    move.setDuration(80);
    move.setStartValue(0.0);
    move.setEndValue(1.0);
    QEventLoop loop;
    QObject::connect(&move, &QVariantAnimation::valueChanged, [&](const QVariant& value) {
      if (value.toDouble() > 0.0) seen.push_back(value.toDouble());
    });
    QObject::connect(&move, &QVariantAnimation::finished, &loop, &QEventLoop::quit);
    move.start();
    loop.exec();
    return seen;
  }

  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  QCoreApplication app{argc, argv};
  FramePace pace;
};

TEST_F(FramePaceTest, AMoveTakesThreeStepsAtMostAndEndsWhereItShould) {
  const std::vector<double> seen = steps();
  EXPECT_LE(seen.size(), 3U);
  ASSERT_FALSE(seen.empty());
  EXPECT_EQ(seen.back(), 1.0);
}

TEST_F(FramePaceTest, RestsWhileNothingMoves) {
  EXPECT_FALSE(pace.isRunning());
  steps();
  QEventLoop loop;
  QObject::connect(&pace, &QAnimationDriver::stopped, &loop, &QEventLoop::quit);
  QTimer::singleShot(5000, &loop, &QEventLoop::quit);
  if (pace.isRunning()) loop.exec();
  EXPECT_FALSE(pace.isRunning());
}

TEST_F(FramePaceTest, MovesAgainAfterARest) {
  steps();
  EXPECT_EQ(steps().back(), 1.0);
}

}  // namespace
}  // namespace corvane
