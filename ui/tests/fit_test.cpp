// SPDX-License-Identifier: MIT
#include "ui/screen/fit.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

/// Exact except for the last bits of the two computed sizes.
void expectFit(double width, double height, const Fit& expected) {
  Fit fit = Fit::forSize(width, height);
  EXPECT_DOUBLE_EQ(fit.note, expected.note);
  EXPECT_DOUBLE_EQ(fit.chip, expected.chip);
  fit.note = expected.note;
  fit.chip = expected.chip;
  EXPECT_TRUE(fit == expected) << width << " x " << height;
}

// The sizes are note, gap, pad, side, chip and bar.

TEST(Fit, OfTheSmallestWindow) {
  expectFit(420, 680, {71.4, 6, 8, 18, 36, 14, true, false, false});
}

TEST(Fit, OfTheIdealWindow) {
  expectFit(480, 860, {90.3, 8, 12, 18, 376.0 / 9.0, 16, true, true, true});
}

TEST(Fit, OfAHeightOf1000HasTheLargestNoteAndRoomyCards) {
  expectFit(480, 1000, {100, 12, 12, 18, 376.0 / 9.0, 16, false, true, true});
}

TEST(Fit, OfAHeightOfExactly720HasTheLargerSizesButNoVersion) {
  expectFit(480, 720, {75.6, 8, 12, 18, 376.0 / 9.0, 16, true, false, false});
}

TEST(Fit, OfAWidthOf2000HasChipsFromA600WideRow) {
  EXPECT_EQ(Fit::forSize(2000, 720).chip, 54);
  EXPECT_EQ(Fit::forSize(2000, 719).chip, 46);
}

TEST(Fit, OfAWidthOf419HasNarrowerSidesThanOf420) {
  EXPECT_EQ(Fit::forSize(419, 860).side, 12);
  EXPECT_EQ(Fit::forSize(420, 860).side, 18);
}

TEST(Fit, ChangesWithTheHeightAtItsBounds) {
  expectFit(480, 400, {52, 6, 8, 18, 376.0 / 9.0, 14, true, false, false});
  EXPECT_TRUE(Fit::forSize(480, 720.1).showsVersion);
  EXPECT_FALSE(Fit::forSize(480, 780).showsHint);
  EXPECT_TRUE(Fit::forSize(480, 780.1).showsHint);
  EXPECT_TRUE(Fit::forSize(480, 899.9).compact);
  EXPECT_EQ(Fit::forSize(480, 899.9).gap, 8);
  EXPECT_FALSE(Fit::forSize(480, 900).compact);
  EXPECT_EQ(Fit::forSize(480, 900).gap, 12);
}

}  // namespace
}  // namespace corvane
