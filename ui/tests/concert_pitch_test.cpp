// SPDX-License-Identifier: MIT
#include "ui/model/concert_pitch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(WholeHertz, RoundsHalvesAwayFromZero) {
  EXPECT_EQ(wholeHertz(432.5), 433);
  EXPECT_EQ(wholeHertz(432.49), 432);
}

TEST(ConcertPitch, ShowsNumberAndNameOfAPreset) {
  EXPECT_EQ(concertPitchTitle(440.0), "440  Modern");
  EXPECT_EQ(concertPitchTitle(414.6), "415  Baroque");
}

TEST(ConcertPitch, Of431Point6IsThePlainNumber432AndThatQuickPitch) {
  EXPECT_EQ(concertPitchTitle(431.6), "432");
  EXPECT_EQ(wholeHertz(431.6), 432);
  EXPECT_THAT(quickPitches, testing::Contains(432));
}

TEST(ConcertPitch, Of441IsCustomAndNoQuickPitch) {
  EXPECT_EQ(concertPitchTitle(441.0), "Custom");
  EXPECT_THAT(quickPitches, testing::Not(testing::Contains(wholeHertz(441.0))));
}

}  // namespace
}  // namespace corvane
