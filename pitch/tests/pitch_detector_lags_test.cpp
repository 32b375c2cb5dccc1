// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "pitch/pitch_detector.h"
#include "tests/support/signals.h"

namespace corvane::PitchDetector {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// The frequency found, or 0 for none.
double found(const std::optional<Reading>& reading) {
  return reading ? reading->frequency : 0.0;
}

/// A click at the first sample. Every difference is exactly 1, so the normalised difference is 1
/// everywhere and only the scan decides the lag.
const signals::Samples click = signals::impulses(1.0F, 1024, 1024);

/// Accepts every lag of the click.
constexpr double aboveOne = 1.5;

TEST(PitchDetectorLags, LagsOnAStraightLineGiveTheIntegerLag) {
  EXPECT_EQ(found(detect(click, 48000.0, 100.0, 4800.0, aboveOne)), 48000.0 / 10.0);
}

TEST(PitchDetectorLags, SearchesUpwardsForTheFirstBelowTheThreshold) {
  struct Row {
    const char* name;
    const signals::Samples& samples;
    double minFrequency;
    double maxFrequency;
    double threshold;
    double lag;  ///< of the frequency found at 48 kHz, or 0 for none
  };
  const signals::Samples period201 = signals::periodicNoise(201, 1024, 3);
  const signals::Samples slowSine = signals::sine(100.0, 48000.0, 2048);
  // A second click makes lag 20 a dip; every lag before it is exactly 1.
  signals::Samples clicks = click;
  clicks[20] = 1.0F;
  const Row rows[] = {
      // 48000 / 475.2 is 101.01 and 48000 / 475.3 is 100.99.
      {"the shortest is rounded down", click, 100.0, 475.2, aboveOne, 101.0},
      {"and down again", click, 100.0, 475.3, aboveOne, 100.0},
      {"the shortest is at least 2", click, 100.0, 48000.0, aboveOne, 2.0},
      {"however high the bound", click, 100.0, 1e300, aboveOne, 2.0},
      {"the longest is a whole number", period201, 240.0, 4300.0, 0.15, 0.0},
      {"or rounded up", period201, std::nextafter(240.0, 0.0), 4300.0, 0.15, 201.0},
      {"10 and 11 are too few", click, 4400.0, 4800.0, aboveOne, 0.0},
      {"10, 11 and 12 are enough", click, 4100.0, 4800.0, aboveOne, 10.0},
      {"bounds the wrong way round", click, 4800.0, 100.0, aboveOne, 0.0},
      {"on the threshold", click, 100.0, 4800.0, 1.0, 0.0},
      {"just below the threshold", click, 100.0, 4800.0, std::nextafter(1.0, 2.0), 10.0},
      {"a threshold that is no number", click, 100.0, 4800.0, nan, 0.0},
      {"equal neighbours stop the descent", clicks, 100.0, 4800.0, aboveOne, 10.0},
      // The dip of 100 Hz is at lag 480; the longest lag, 462, lies on the slope before it.
      {"the descent ends at the longest", slowSine, 104.0, 4300.0, 0.15, 462.0},
  };
  for (const Row& row : rows) {
    const auto reading =
        detect(row.samples, 48000.0, row.minFrequency, row.maxFrequency, row.threshold);
    EXPECT_EQ(found(reading), row.lag == 0.0 ? 0.0 : 48000.0 / row.lag) << row.name;
  }
}

TEST(PitchDetectorLags, NoDipBelowTheThresholdGivesNothing) {
  const signals::Samples samples =
      signals::sum(signals::sine(440.0, 48000.0, 8192), signals::noise(8192, 6, 1.0));
  EXPECT_FALSE(detect(samples, 48000.0, 27.0, 4300.0, 0.15));
  EXPECT_TRUE(detect(samples, 48000.0, 27.0, 4300.0, 0.9));
}

TEST(PitchDetectorLags, DipAtTheLongestLagIsNotRefined) {
  // 48000 / 240 = 200 is the longest lag, and periodic noise has no dip before it.
  const auto reading = detect(signals::periodicNoise(200, 1024, 3), 48000.0, 240.0, 4300.0, 0.15);
  EXPECT_EQ(found(reading), 240.0);
  EXPECT_EQ(reading->confidence, 1.0);
}

TEST(PitchDetectorLags, DipBeforeTheLongestLagIsRefined) {
  // The period of 199.7 samples lies nearest to lag 199 or 200; the longest lag is 201, then 200.
  const signals::Samples samples = signals::sine(48000.0 / 199.7, 48000.0, 2048);
  const double refined = found(detect(samples, 48000.0, 48000.0 / 201.0, 4300.0, 0.15));
  EXPECT_NEAR(refined, 48000.0 / 199.7, 0.05);
  EXPECT_EQ(found(detect(samples, 48000.0, 48000.0 / 200.0, 4300.0, 0.15)), 48000.0 / 200.0);
}

TEST(PitchDetectorLags, ConfidenceIsNeverBelowZero) {
  // A slow sine: the difference grows with the lag, far above the average of the lags before.
  const auto reading =
      detect(signals::sine(200.0, 48000.0, 1024), 48000.0, 100.0, 48000.0, infinity);
  ASSERT_TRUE(reading);
  EXPECT_EQ(reading->confidence, 0.0);
  EXPECT_FALSE(std::signbit(reading->confidence));
}

TEST(PitchDetectorBand, ReachesDownToNineTenthsOfTheLowerBoundInclusive) {
  // A lag of 9 samples at 16200 Hz is 1800 Hz, exactly nine tenths of 2000 Hz.
  const signals::Samples samples = signals::periodicNoise(9, 1024, 7);
  ASSERT_EQ(2000.0 * 0.9, 1800.0);
  EXPECT_EQ(found(detect(samples, 16200.0, 2000.0, 8100.0, 0.1)), 1800.0);
  const double next = std::nextafter(2000.0, infinity);
  ASSERT_GT(next * 0.9, 1800.0);
  EXPECT_FALSE(detect(samples, 16200.0, next, 8100.0, 0.1));
}

TEST(PitchDetectorBand, ReachesUpToOneTwentiethAboveTheUpperBoundInclusive) {
  const signals::Samples samples = signals::sine(4000.0, 48000.0, 4096, {.phase = 0.1});
  const double frequency = found(detect(samples, 48000.0, 100.0, 4300.0, 0.15));
  ASSERT_GT(frequency, 0.0);
  double bound = frequency / 1.05 * (1.0 - 1e-14);
  while (bound * 1.05 < frequency) bound = std::nextafter(bound, infinity);
  ASSERT_EQ(bound * 1.05, frequency);
  EXPECT_EQ(found(detect(samples, 48000.0, 100.0, bound, 0.15)), frequency);
  EXPECT_FALSE(detect(samples, 48000.0, 100.0, std::nextafter(bound, 0.0), 0.15));
}

constexpr double brokenBounds[] = {0.0, -0.0, -27.0, nan, infinity, -infinity};

TEST(PitchDetectorDeathTest, InvalidBoundOrLagStopsTheProgram) {
  for (const double bound : brokenBounds) {
    EXPECT_DEATH(detect(click, 48000.0, bound, 4800.0, 0.15), "broken invariant") << bound;
    EXPECT_DEATH(detect(click, 48000.0, 100.0, bound, 0.15), "broken invariant") << bound;
  }
  EXPECT_DEATH(detect(click, infinity, 100.0, 4800.0, 0.15), "broken invariant");
  EXPECT_DEATH(detect(click, 48000.0, 1e-300, 4800.0, 0.15), "broken invariant");
}

TEST(PitchDetectorLags, InvalidBoundsOfARejectedBlockAreIgnored) {
  for (const double bound : brokenBounds) {
    EXPECT_FALSE(detect(signals::noise(1023, 8), 48000.0, bound, bound, 0.15)) << bound;
    EXPECT_FALSE(detect(signals::constant(0.0F, 1024), 48000.0, bound, bound, 0.15)) << bound;
    EXPECT_FALSE(detect(click, 8000.0, bound, bound, 0.15)) << bound;
  }
}

}  // namespace
}  // namespace corvane::PitchDetector
