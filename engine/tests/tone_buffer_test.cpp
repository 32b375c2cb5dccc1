// SPDX-License-Identifier: MIT
#include "engine/tone_buffer.h"

#include <gtest/gtest.h>

#include <cmath>

namespace corvane {
namespace {

/// Sample i of a tone of 440 Hz at this level of its envelope.
float expected(std::size_t i, float envelope) {
  return std::sin(440.0F * 6.283185F * static_cast<float>(i) / 44100.0F) * (envelope * 0.22F);
}

TEST(ToneBuffer, FadesInOver882FramesAndOutOver2646) {
  const std::vector<float> tone = toneBuffer(440.0, 44100.0);
  ASSERT_EQ(tone.size(), 46305U);
  EXPECT_EQ(tone[0], 0.0F);
  for (std::size_t i = 0; i < 882; ++i) {
    ASSERT_EQ(tone[i], expected(i, static_cast<float>(i) / 882.0F)) << i;
  }
  for (std::size_t i = 882; i <= 43659; ++i) ASSERT_EQ(tone[i], expected(i, 1.0F)) << i;
  for (std::size_t i = 43660; i < 46305; ++i) {
    ASSERT_EQ(tone[i], expected(i, static_cast<float>(46305 - i) / 2646.0F)) << i;
  }
  EXPECT_EQ(tone[46304], expected(46304, 1.0F / 2646.0F)) << "ends one step above zero";
}

TEST(ToneBuffer, FadeOutWinsWhereTheTwoOverlap) {
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
