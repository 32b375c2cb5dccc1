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

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// With the bounds and the threshold of the tuner.
std::optional<Reading> detectAt(double sampleRate, const signals::Samples& samples) {
  return detect(samples, sampleRate, 27.0, 4300.0, 0.15);
}

TEST(PitchDetector, TooFewSamplesGiveNothingWhateverTheyHold) {
  for (const std::size_t length : {std::size_t{0}, std::size_t{1}, std::size_t{1023}}) {
    EXPECT_FALSE(detectAt(44100.0, signals::sine(440.0, 44100.0, length))) << length;
    EXPECT_FALSE(detectAt(44100.0, signals::noise(length, 1))) << length;
    EXPECT_FALSE(detectAt(44100.0, signals::constant(std::nanf(""), length))) << length;
  }
}

TEST(PitchDetector, TheShortestBlockIsAnalysedUpToALagOf510) {
  const auto longest = detectAt(44100.0, signals::periodicNoise(510, 1024, 2));
  ASSERT_TRUE(longest);
  EXPECT_EQ(longest->frequency, 44100.0 / 510.0);
  EXPECT_FALSE(detectAt(44100.0, signals::periodicNoise(511, 1024, 2)));
}

TEST(PitchDetector, ARateOf8000OrLessGivesNothing) {
  for (const double rate : {8000.0, 7999.0, 0.0, -48000.0}) {
    EXPECT_FALSE(detectAt(rate, signals::sine(440.0, 8000.0, 2048))) << rate;
  }
}

TEST(PitchDetector, ARateJustAbove8000IsAnalysed) {
  const auto reading = detectAt(8000.5, signals::sine(440.0, 8000.5, 2048));
  ASSERT_TRUE(reading);
  // A parabola through a cosine with only 18 samples to a period is 2.5 cents off.
  EXPECT_LT(std::abs(centsBetween(reading->frequency, 440.0)), 3.0);
  const double next = std::nextafter(8000.0, 9000.0);
  EXPECT_TRUE(detectAt(next, signals::sine(440.0, 8000.0, 2048)));
}

TEST(PitchDetector, ARateThatIsNotANumberGivesNothing) {
  EXPECT_FALSE(detectAt(nan, signals::sine(440.0, 48000.0, 8192)));
}

TEST(PitchDetector, SilenceAndPureDirectCurrentGiveNothing) {
  EXPECT_FALSE(detectAt(48000.0, signals::constant(0.0F, 8192)));
  EXPECT_FALSE(detectAt(48000.0, signals::constant(-0.0F, 8192)));
  // The mean of these is exact, so that nothing is left of them.
  EXPECT_FALSE(detectAt(48000.0, signals::constant(0.5F, 8192)));
  EXPECT_FALSE(detectAt(48000.0, signals::constant(-1.0F, 8192)));
}

TEST(PitchDetector, DirectCurrentWhoseMeanIsRoundedGivesNothingEither) {
  // What is left is one constant value, however large: nothing ever differs.
  for (const float value : {0.1F, 0.7F, -0.3F, 1e6F, 1e30F}) {
    EXPECT_FALSE(detectAt(48000.0, signals::constant(value, 8191))) << value;
  }
}

/// A sine whose level, computed in single precision, is `rms`: raised in steps far finer than
/// single precision until it is there.
signals::Samples sineOfLevel(float rms) {
  const double frequency = 20.0 * 48000.0 / 2048.0;
  double amplitude = double{rms} * std::sqrt(2.0) * (1.0 - 1e-5);
  signals::Samples samples;
  do {
    amplitude *= 1.0 + 1e-8;
    samples = signals::sine(frequency, 48000.0, 2048, {.amplitude = amplitude});
  } while (reference::centre(samples).rms < rms);
  return samples;
}

TEST(PitchDetector, ALevelOfExactlyTheLimitGivesNothing) {
  const signals::Samples samples = sineOfLevel(0.003F);
  ASSERT_EQ(reference::centre(samples).rms, 0.003F);
  EXPECT_FALSE(detectAt(48000.0, samples));
}

TEST(PitchDetector, TheNextLevelAboveTheLimitIsAnalysedAndReported) {
  const float above = std::nextafter(0.003F, 1.0F);
  const signals::Samples samples = sineOfLevel(above);
  ASSERT_EQ(reference::centre(samples).rms, above);
  const auto reading = detectAt(48000.0, samples);
  ASSERT_TRUE(reading);
  EXPECT_EQ(reading->rms, above);
}

// The digits given are rounded: half a unit of the last one is the tolerance.
TEST(PitchDetector, ASineOnTopOfDirectCurrentIsReadAsTheSineAlone) {
  const auto reading = detectAt(
      48000.0, signals::sum(signals::sine(440.0, 48000.0, 8192), signals::constant(0.2F, 8192)));
  ASSERT_TRUE(reading);
  EXPECT_NEAR(reading->frequency, 440.018, 0.0005);
  EXPECT_NEAR(centsBetween(reading->frequency, 440.0), 0.07, 0.005);
  EXPECT_NEAR(reading->confidence, 0.99999, 0.000005);
  EXPECT_NEAR(reading->rms, 0.3534F, 0.00005F);
}

TEST(PitchDetector, TheLowEOfAGuitarIsReadToAThousandthOfACent) {
  const auto reading = detectAt(
      48000.0, signals::sum(signals::sine(82.41, 48000.0, 8192), signals::constant(0.2F, 8192)));
  ASSERT_TRUE(reading);
  EXPECT_LT(std::abs(centsBetween(reading->frequency, 82.41)), 0.001);
}

TEST(PitchDetector, ASineAboveTheBandIsReadAnOctaveTooLow) {
  // A period of 9.6 samples is shorter than the shortest lag, 11: the first dip is two periods.
  const auto reading = detectAt(48000.0, signals::sine(5000.0, 48000.0, 8192));
  ASSERT_TRUE(reading);
  EXPECT_NEAR(reading->frequency, 2504.0, 0.5);
}

TEST(PitchDetector, SamplesThatAreNotNumbersGiveNothing) {
  const float infinity = std::numeric_limits<float>::infinity();
  for (const float odd : {std::nanf(""), infinity, -infinity}) {
    signals::Samples samples = signals::sine(440.0, 48000.0, 8192);
    samples[4000] = odd;
    EXPECT_FALSE(detectAt(48000.0, samples)) << odd;
  }
}

/// The portable path, telling how far it was made to go.
std::size_t longestLag = 0;
DifferencePath recording() {
  DifferencePath path = differencePaths().back();
  path.sum = [](const double* x, std::size_t window, std::size_t firstLag, double* d) {
    longestLag = firstLag + differencePaths().back().lags - 1;
    differencePaths().back().sum(x, window, firstLag, d);
  };
  return path;
}

/// The longest lag computed for a block, which comes with the three before it.
std::size_t lagsComputed(const signals::Samples& samples) {
  longestLag = 0;
  NormalisedDifference memory(recording());
  detect(samples, 48000.0, 27.0, 4300.0, 0.15, memory);
  return longestLag;
}

TEST(PitchDetector, ComputesTheLagsOnlyUpToTheOneBehindTheDip) {
  ASSERT_EQ(recording().lags, 4U);
  // The dip is at lag 48000 / f; the one behind it ends the descent and serves the refinement.
  EXPECT_EQ(lagsComputed(signals::sine(48000.0 / 103.0, 48000.0, 8192)), 104U);
  EXPECT_EQ(lagsComputed(signals::sine(48000.0 / 104.0, 48000.0, 8192)), 108U);
  EXPECT_EQ(lagsComputed(signals::sine(48000.0 / 600.0, 48000.0, 8192)), 604U);
}

TEST(PitchDetector, ComputesNoLagOfSilenceAndEveryLagOfNoise) {
  EXPECT_EQ(lagsComputed(signals::constant(0.0F, 8192)), 0U);
  EXPECT_EQ(lagsComputed(signals::noise(8192, 3)), 1780U) << "1778 is the longest";
}

TEST(PitchDetector, KeepsNothingBetweenCalls) {
  const signals::Samples loud = signals::sine(440.0, 48000.0, 8192);
  const signals::Samples low = signals::sine(82.41, 48000.0, 4096);
  const auto first = detectAt(48000.0, loud);
  ASSERT_TRUE(first);
  ASSERT_TRUE(detectAt(48000.0, low));
  ASSERT_FALSE(detectAt(48000.0, signals::constant(0.0F, 2048)));
  EXPECT_TRUE(sameBits(detectAt(48000.0, loud), first));
}

}  // namespace
}  // namespace corvane::PitchDetector
