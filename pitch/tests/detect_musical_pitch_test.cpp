#include <gtest/gtest.h>

#include <algorithm>

#include "pitch/pitch_capture.h"
#include "pitch/tests/readings.h"
#include "tests/support/signals.h"

namespace corvane {
namespace {

/// The frequency found, or 0 for none.
double found(double rate, const signals::Samples& samples) {
  const auto reading = PitchCapture::detectMusicalPitch(samples, rate);
  return reading ? reading->frequency : 0.0;
}

TEST(DetectMusicalPitch, TheLowestPitchIsExactly27Hz) {
  // 27 x 1778 = 48006: at this rate 1778 is the longest lag, at any higher one it is 1779.
  // Periodic noise has no other dip, and one at the longest lag is not refined.
  EXPECT_EQ(found(48006.0, signals::periodicNoise(1778, 8192, 1)), 27.0);
  EXPECT_EQ(found(48006.0, signals::periodicNoise(1779, 8192, 1)), 0.0);
  EXPECT_EQ(found(48006.01, signals::periodicNoise(1779, 8192, 1)), 48006.01 / 1779.0);
}

TEST(DetectMusicalPitch, TheHighestPitchIsExactly4300Hz) {
  // At 43000 Hz the shortest lag is 10: a period of 9 samples is passed over and read at twice its
  // length. At any lower rate it is 9: the period is found, and is a pitch too high to be accepted.
  const signals::Samples samples = signals::periodicNoise(9, 8192, 1);
  EXPECT_NEAR(found(43000.0, samples), 43000.0 / 18.0, 50.0);
  EXPECT_EQ(found(42999.99, samples), 0.0);
}

TEST(DetectMusicalPitch, TheLeastConfidenceIsJustAbove85Hundredths) {
  double least = 1.0;
  for (int step = 0; step < 1000; ++step) {
    const auto samples = signals::sum(signals::sine(330.0, 44100.0, 1024),
                                      signals::noise(1024, 2, 0.2 + 0.0004 * step));
    const auto reading = PitchCapture::detectMusicalPitch(samples, 44100.0);
    if (reading) least = std::min(least, reading->confidence);
  }
  EXPECT_GT(least, 0.85);
  EXPECT_LT(least, 0.851);
}

TEST(DetectMusicalPitch, IsTheDetectorWithThoseBounds) {
  for (const double frequency : {27.5, 82.41, 440.0, 4186.01}) {
    const auto samples = signals::sine(frequency, 48000.0, 8192);
    const auto expected = PitchDetector::detect(samples, 48000.0, 27.0, 4300.0, 0.15);
    ASSERT_TRUE(expected);
    EXPECT_TRUE(sameBits(PitchCapture::detectMusicalPitch(samples, 48000.0), expected));
  }
}

}  // namespace
}  // namespace corvane
