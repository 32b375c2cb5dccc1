// SPDX-License-Identifier: MIT
#include "ui/paint/needle.h"

#include <gtest/gtest.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <memory>
#include <ostream>

#include "ui/paint/frame_pace.h"

namespace corvane {
namespace {

TEST(NeedleCentre, Of12Point34CentsFlatIsOnTheCentsBarAndPinnedOnTheFineBar) {
  EXPECT_DOUBLE_EQ(needleCentre(500, 16, 50, -12.34), 0.3766 * 500);
  EXPECT_DOUBLE_EQ(needleCentre(500, 16, 10, -12.34), 8);
}

TEST(NeedleCentre, RestsInTheMiddleAndStaysWhollyInsideTheBar) {
  EXPECT_DOUBLE_EQ(needleCentre(300, 16, 50, 0), 150);
  for (const double beyond : {50.0, 2400.0}) {
    EXPECT_DOUBLE_EQ(needleCentre(300, 14, 50, -beyond), 7);
    EXPECT_DOUBLE_EQ(needleCentre(300, 14, 50, beyond), 293);
  }
}

TEST(NeedleMoves, ByATenthOfAPointOnItsBar) {
  // On 500 points for 20 cents a cent is 25 points.
  for (const double side : {1.0, -1.0}) {
    EXPECT_TRUE(needleMoves(500, 16, 10, 1.0, 1.0 + side * 0.005));
    EXPECT_FALSE(needleMoves(500, 16, 10, 1.0, 1.0 + side * 0.003));
    EXPECT_FALSE(needleMoves(500, 16, 10, side * 12, side * 40));  // beyond the end
  }
  // Not laid out yet.
  EXPECT_TRUE(needleMoves(0, 16, 10, 1.0, 1.001));
  EXPECT_FALSE(needleMoves(0, 16, 10, 1.0, 1.0));
}

/// A needle on a bar of 500 points that spans 50 cents.
class NeedleTest : public testing::Test {
 protected:
  NeedleTest() {
    QQmlEngine qml;
    QQmlComponent component(&qml);
    component.setData(
        "import Corvane\nNeedle { track: 500; span: 50; cents: 0; width: 16; height: 16 }", {});
    needle.reset(qobject_cast<Needle*>(component.create()));
  }

  /// The part of the way that the needle is moved at once.
  double firstStep(double cents) {
    const double from = needle->shownCents();
    needle->setCents(cents);
    return (needle->shownCents() - from) / (cents - from);
  }

  FramePace pace;
  std::unique_ptr<Needle> needle;
};

TEST_F(NeedleTest, MakesTheFirstStepOfANearMoveAndOfAFarOneAtOnce) {
  ASSERT_NE(needle, nullptr);
  const auto usual = pace.interval();
  EXPECT_NEAR(firstStep(1.0), 5.0 / 9.0, 1e-9);
  EXPECT_EQ(pace.interval(), usual);
  EXPECT_NEAR(firstStep(-40.0), 9.0 / 25.0, 1e-9);
  EXPECT_NEAR(firstStep(-15.0), 5.0 / 9.0, 1e-9) << "during a move";
}

TEST_F(NeedleTest, DrawsAFarMoveAtTheDisplaysRate) {
  QQuickWindow window;
  needle->setParentItem(window.contentItem());
  const auto usual = pace.interval();
  needle->setCents(-40.0);
  EXPECT_LT(pace.interval(), usual);
}

}  // namespace
}  // namespace corvane
