#include "ui/controls/needle.h"

#include <gtest/gtest.h>

#include <ostream>

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

}  // namespace
}  // namespace corvane
