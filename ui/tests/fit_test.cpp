#include "ui/fit.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(Fit, OfTheSmallestWindow) {
  const Fit fit = Fit::forSize(420, 680);
  EXPECT_DOUBLE_EQ(fit.note, 71.4);
  EXPECT_EQ(fit.gap, 6);
  EXPECT_EQ(fit.pad, 8);
  EXPECT_EQ(fit.side, 18);
  EXPECT_EQ(fit.chip, 36);
  EXPECT_EQ(fit.bar, 14);
  EXPECT_TRUE(fit.compact);
  EXPECT_FALSE(fit.showsHint);
  EXPECT_FALSE(fit.showsVersion);
}

TEST(Fit, OfTheIdealWindow) {
  const Fit fit = Fit::forSize(480, 860);
  EXPECT_DOUBLE_EQ(fit.note, 90.3);
  EXPECT_EQ(fit.gap, 8);
  EXPECT_EQ(fit.pad, 12);
  EXPECT_EQ(fit.side, 18);
  EXPECT_DOUBLE_EQ(fit.chip, 376.0 / 9.0);
  EXPECT_EQ(fit.bar, 16);
  EXPECT_TRUE(fit.compact);
  EXPECT_TRUE(fit.showsHint);
  EXPECT_TRUE(fit.showsVersion);
}

TEST(Fit, OfAHeightOf1000HasTheLargestNoteAndRoomyCards) {
  const Fit fit = Fit::forSize(480, 1000);
  EXPECT_EQ(fit.note, 100);
  EXPECT_EQ(fit.gap, 12);
  EXPECT_FALSE(fit.compact);
}

TEST(Fit, OfAVeryLowAreaHasTheSmallestNote) {
  EXPECT_EQ(Fit::forSize(480, 400).note, 52);
}

TEST(Fit, OfAWidthOf2000HasChipsFromA600WideRow) {
  EXPECT_EQ(Fit::forSize(2000, 720).chip, 54);
  EXPECT_EQ(Fit::forSize(2000, 719).chip, 46);
}

TEST(Fit, ChipsGrowContinuouslyAcrossAWidthOf640) {
  // 36 to 54 is reached well before; the uncapped rule is (600 - 64) / 9 = 59.6 on both sides.
  EXPECT_EQ(Fit::forSize(640, 900).chip, Fit::forSize(640.001, 900).chip);
  EXPECT_DOUBLE_EQ(Fit::forSize(500, 900).chip, 396.0 / 9.0);
}

TEST(Fit, SideGutterChangesAtAWidthOf420) {
  EXPECT_EQ(Fit::forSize(419, 860).side, 12);
  EXPECT_EQ(Fit::forSize(420, 860).side, 18);
}

TEST(Fit, AHeightOfExactly720HasTheLargerSizesButNoVersion) {
  const Fit fit = Fit::forSize(480, 720);
  EXPECT_FALSE(fit.showsVersion);
  EXPECT_FALSE(fit.showsHint);
  EXPECT_EQ(fit.gap, 8);
  EXPECT_EQ(fit.pad, 12);
  EXPECT_EQ(fit.bar, 16);
}

TEST(Fit, AHeightOfExactly900IsNotCompact) {
  EXPECT_FALSE(Fit::forSize(480, 900).compact);
  EXPECT_EQ(Fit::forSize(480, 900).gap, 12);
  EXPECT_TRUE(Fit::forSize(480, 899.9).compact);
}

TEST(Fit, HintAndVersionAppearJustAboveTheirHeights) {
  EXPECT_FALSE(Fit::forSize(480, 780).showsHint);
  EXPECT_TRUE(Fit::forSize(480, 780.1).showsHint);
  EXPECT_TRUE(Fit::forSize(480, 720.1).showsVersion);
}

}  // namespace
}  // namespace corvane
