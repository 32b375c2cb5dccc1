#include "engine/tone_buffer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

/// The same tone with the envelope divided out is compared with a full-level sine of the same
/// arithmetic: what is left is the envelope.
float sineAt(float hertz, float i) {
  return std::sin(hertz * 6.283185F * i / 44100.0F);
}

class ToneAt440 : public testing::Test {
 protected:
  float expected(std::size_t i, float envelope) {
    return sineAt(440.0F, static_cast<float>(i)) * (envelope * 0.22F);
  }

  std::vector<float> tone = toneBuffer(440.0, 44100.0);
};

TEST_F(ToneAt440, Lasts46305Frames) {
  EXPECT_EQ(tone.size(), 46305U);
}

TEST_F(ToneAt440, StartsAtExactlyZero) {
  EXPECT_EQ(tone[0], 0.0F);
}

TEST_F(ToneAt440, FadesInOver882Frames) {
  EXPECT_EQ(tone[1], expected(1, 1.0F / 882.0F));
  EXPECT_EQ(tone[441], expected(441, 441.0F / 882.0F));
  EXPECT_EQ(tone[881], expected(881, 881.0F / 882.0F));
}

TEST_F(ToneAt440, IsAtFullLevelFromFrame882To43659) {
  for (std::size_t i = 882; i <= 43659; ++i) ASSERT_EQ(tone[i], expected(i, 1.0F)) << i;
}

TEST_F(ToneAt440, FadesOutOver2646FramesAndEndsOneStepAboveZero) {
  EXPECT_EQ(tone[43660], expected(43660, 2645.0F / 2646.0F));
  EXPECT_EQ(tone[46304], expected(46304, 1.0F / 2646.0F));
}

TEST_F(ToneAt440, PeaksAt022) {
  const auto [low, high] = std::ranges::minmax(tone);
  EXPECT_LE(high, 0.22F);
  EXPECT_GE(low, -0.22F);
  // The crest of 440 Hz lies at most half a sample, 0.03 rad, from the nearest one.
  EXPECT_GT(high, 0.22F * 0.9995F);
}

TEST(ToneBuffer, TheFadeOutWinsWhereTheTwoOverlap) {
  // At 20 Hz a tone of 21 frames fades out over one frame and in over none.
  const auto tone = toneBuffer(3.0, 20.0);
  ASSERT_EQ(tone.size(), 21U);
  EXPECT_EQ(tone[1], std::sin(3.0F * 6.283185F * 1.0F / 20.0F) * (1.0F * 0.22F));
}

TEST(ToneBuffer, ARateTooLowForASingleFrameGivesAnEmptyTone) {
  EXPECT_TRUE(toneBuffer(440.0, 0.5).empty());
}

TEST(ToneBufferDeathTest, ALengthBeyond32BitsStopsTheProgram) {
  EXPECT_DEATH(toneBuffer(440.0, 1e10), "a tone's length fits 32 bits");
}

}  // namespace
}  // namespace corvane
