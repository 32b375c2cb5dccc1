// SPDX-License-Identifier: MIT
#include "pitch/pitch_detector.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "pitch/normalised_difference.h"
#include "pitch/tests/readings.h"
#include "pitch/tests/reference_detector.h"
#include "tests/support/signals.h"

namespace corvane::PitchDetector {
namespace {

/// With the bounds and the threshold of the tuner.
std::optional<Reading> detectAt(double sampleRate, const signals::Samples& samples) {
  return detect(samples, sampleRate, 27.0, 4300.0, 0.15);
}

TEST(PitchDetector, FewerThan1024SamplesGiveNothing) {
  for (const std::size_t length : {std::size_t{0}, std::size_t{1}, std::size_t{1023}}) {
    EXPECT_FALSE(detectAt(44100.0, signals::sine(440.0, 44100.0, length))) << length;
    EXPECT_FALSE(detectAt(44100.0, signals::noise(length, 1))) << length;
    EXPECT_FALSE(detectAt(44100.0, signals::constant(std::nanf(""), length))) << length;
  }
}

TEST(PitchDetector, Analyses1024SamplesUpToLag510) {
  const auto longest = detectAt(44100.0, signals::periodicNoise(510, 1024, 2));
  ASSERT_TRUE(longest);
  EXPECT_EQ(longest->frequency, 44100.0 / 510.0);
  EXPECT_FALSE(detectAt(44100.0, signals::periodicNoise(511, 1024, 2)));
}

TEST(PitchDetector, RateMustBeAbove8000) {
  const signals::Samples samples = signals::sine(440.0, 8000.0, 2048);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const double rate : {8000.0, 7999.0, 0.0, -48000.0, nan}) {
    EXPECT_FALSE(detectAt(rate, samples)) << rate;
  }
  EXPECT_TRUE(detectAt(std::nextafter(8000.0, 9000.0), samples));
  const auto reading = detectAt(8000.5, signals::sine(440.0, 8000.5, 2048));
  ASSERT_TRUE(reading);
  // A parabola through a cosine with only 18 samples to a period is 2.5 cents off.
  EXPECT_LT(std::abs(centsAbove(reading->frequency, 440.0)), 3.0);
}

TEST(PitchDetector, SilenceAndPureDirectCurrentGiveNothing) {
  for (const float value : {0.0F, -0.0F, 0.5F, -1.0F}) {
    EXPECT_FALSE(detectAt(48000.0, signals::constant(value, 8192))) << value;
  }
  // The mean of these is rounded. The remainder is constant, so every difference is 0.
  for (const float value : {0.1F, 0.7F, -0.3F, 1e6F, 1e30F}) {
    EXPECT_FALSE(detectAt(48000.0, signals::constant(value, 8191))) << value;
  }
}

/// The quietest sine whose level, computed in single precision, is `rms`, by bisection.
signals::Samples sineOfLevel(float rms) {
  const auto samples = [](double amplitude) {
    return signals::sine(20.0 * 48000.0 / 2048.0, 48000.0, 2048, {.amplitude = amplitude});
  };
  double below = 1.4 * static_cast<double>(rms);
  double reached = 1.5 * static_cast<double>(rms);
  for (int step = 0; step < 50; ++step) {
    const double amplitude = (below + reached) / 2.0;
    (reference::centre(samples(amplitude)).rms < rms ? below : reached) = amplitude;
  }
  EXPECT_EQ(reference::centre(samples(reached)).rms, rms);
  return samples(reached);
}

TEST(PitchDetector, LevelMustBeAbove0003) {
  EXPECT_FALSE(detectAt(48000.0, sineOfLevel(0.003F)));
  const float above = std::nextafter(0.003F, 1.0F);
  const auto reading = detectAt(48000.0, sineOfLevel(above));
  ASSERT_TRUE(reading);
  EXPECT_EQ(reading->rms, above);
}

// The expected digits are rounded: the tolerance is half a unit of the last one.
TEST(PitchDetector, DirectCurrentDoesNotChangeASinesReading) {
  const auto onDirectCurrent = [](double frequency) {
    return detectAt(48000.0, signals::sum(signals::sine(frequency, 48000.0, 8192),
                                          signals::constant(0.2F, 8192)));
  };
  const auto a4 = onDirectCurrent(440.0);
  ASSERT_TRUE(a4);
  EXPECT_NEAR(a4->frequency, 440.018, 0.0005);
  EXPECT_NEAR(centsAbove(a4->frequency, 440.0), 0.07, 0.005);
  EXPECT_NEAR(a4->confidence, 0.99999, 0.000005);
  EXPECT_NEAR(a4->rms, 0.3534F, 0.00005F);
  const auto lowE = onDirectCurrent(82.41);
  ASSERT_TRUE(lowE);
  EXPECT_LT(std::abs(centsAbove(lowE->frequency, 82.41)), 0.001);
}

TEST(PitchDetector, Sine5000HzIsReadAnOctaveLow) {
  // A period of 9.6 samples is shorter than the shortest lag, 11: the first dip is at two periods.
  const auto reading = detectAt(48000.0, signals::sine(5000.0, 48000.0, 8192));
  ASSERT_TRUE(reading);
  EXPECT_NEAR(reading->frequency, 2504.0, 0.5);
}

/// The portable path, recording the longest lag computed.
std::size_t longestLag = 0;
DifferencePath recording() {
  DifferencePath path = differencePaths().back();
  path.sum = [](const double* x, std::size_t window, std::size_t firstLag, double* d) {
    longestLag = firstLag + differencePaths().back().lags - 1;
    differencePaths().back().sum(x, window, firstLag, d);
  };
  return path;
}

/// The longest lag computed for a block; the last group has four lags.
std::size_t lagsComputed(const signals::Samples& samples) {
  longestLag = 0;
  NormalisedDifference memory(recording());
  detect(samples, 48000.0, 27.0, 4300.0, 0.15, memory);
  return longestLag;
}

TEST(PitchDetector, ComputesNoLagsFarBeyondTheDip) {
  ASSERT_EQ(recording().lags, 4U);
  // The dip is at lag 48000 / f; the next lag ends the descent and is used by the refinement.
  EXPECT_EQ(lagsComputed(signals::sine(48000.0 / 103.0, 48000.0, 8192)), 104U);
  EXPECT_EQ(lagsComputed(signals::sine(48000.0 / 104.0, 48000.0, 8192)), 108U);
  EXPECT_EQ(lagsComputed(signals::constant(0.0F, 8192)), 0U);
  EXPECT_EQ(lagsComputed(signals::noise(8192, 3)), 1780U) << "1778 is the longest";
}

TEST(PitchDetector, DefaultReadingIsZero) {
  EXPECT_EQ(Reading(), (Reading{0.0, 0.0, 0.0F}));
}

}  // namespace
}  // namespace corvane::PitchDetector
