// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>

#include "pitch/pitch_capture.h"
#include "pitch/tests/readings.h"
#include "tests/support/signals.h"

namespace corvane {
namespace {

constexpr std::size_t block = PitchCapture::blockSamples;

/// The frequency found, or 0 for none.
double found(double rate, const signals::Samples& samples) {
  const auto reading = PitchCapture::detectMusicalPitch(samples, rate);
  return reading ? reading->frequency : 0.0;
}

TEST(DetectMusicalPitch, TheLowestPitchIsExactly27Hz) {
  // 27 x 1778 = 48006: at this rate 1778 is the longest lag, at any higher one it is 1779.
  // Periodic noise has no other dip, and a dip at the longest lag is not refined.
  EXPECT_EQ(found(48006.0, signals::periodicNoise(1778, 8192, 1)), 27.0);
  EXPECT_EQ(found(48006.0, signals::periodicNoise(1779, 8192, 1)), 0.0);
  EXPECT_EQ(found(48006.01, signals::periodicNoise(1779, 8192, 1)), 48006.01 / 1779.0);
}

TEST(DetectMusicalPitch, TheHighestPitchIsExactly4300Hz) {
  // At 43000 Hz the shortest lag is 10: a period of 9 samples is skipped and read as two periods.
  // At any lower rate it is 9: the period is found but the pitch is above the accepted band.
  const signals::Samples samples = signals::periodicNoise(9, 8192, 1);
  EXPECT_NEAR(found(43000.0, samples), 43000.0 / 18.0, 50.0);
  EXPECT_EQ(found(42999.99, samples), 0.0);
}

TEST(DetectMusicalPitch, LongestLagIsHalfABlockAtHighRates) {
  EXPECT_EQ(found(192000.0, signals::periodicNoise(4094, 8192, 1)), 192000.0 / 4094.0);
  EXPECT_EQ(found(192000.0, signals::periodicNoise(4095, 8192, 1)), 0.0);
}

TEST(DetectMusicalPitch, TheLeastConfidenceIsJustAbove85Hundredths) {
  // Bisect the largest noise that leaves a pitch: the dip deepens as the noise falls.
  double heard = 0.2;
  double unheard = 0.6;
  double confidence = 0.0;
  for (int step = 0; step < 40; ++step) {
    const double level = (heard + unheard) / 2.0;
    const auto reading = PitchCapture::detectMusicalPitch(
        signals::sum(signals::sine(330.0, 44100.0, 1024), signals::noise(1024, 2, level)), 44100.0);
    (reading ? heard : unheard) = level;
    if (reading) confidence = reading->confidence;
  }
  // The noise is rounded to 2^-25 of full scale, and a dip of 0.15 changes less than tenfold.
  EXPECT_GT(confidence, 0.85);
  EXPECT_LT(confidence, 0.85 + 1e-6);
}

/// The error of the tuner's reading in cents from `expected` (Hz); infinite without a pitch.
double error(std::span<const float> samples, double rate, double expected) {
  const auto reading = PitchCapture::detectMusicalPitch(samples, rate);
  return reading ? std::abs(centsAbove(reading->frequency, expected))
                 : std::numeric_limits<double>::infinity();
}

// The worst error of a sine, in cents, follows from the method. Let r be frequency / rate and
// P = 1 / r the period in samples. Near the dip the difference function of a sine is proportional
// to x^2, x being the distance from P, and
//   - its normalisation, tau / running sum, multiplies it by 1 + x / P: the parabola through three
//     neighbours of x^2 + x^3 / P has its vertex (1.5 t^2 - 0.5) / P away, t being the distance of
//     the middle one: at most 0.5 / P samples, which is 0.5 r^2 of the period;
//   - the window of 4096 samples holds no whole number of periods, which multiplies it by
//     1 + x / 4096 at the worst: in the same way, 0.5 r / 4096 of the period;
//   - it is a cosine and no parabola: w^2 (t / 12 - t^3 / 3) samples with w = 2 pi r, at most
//     0.01604 w^2, which is 0.633 r^3 of the period.
// A period too short by some fraction has a larger error in cents than one too long by it.
double worstCents(double r) {
  return -1200.0 * std::log2(1.0 - (0.5 * r * r + 0.5 * r / 4096.0 + 0.633 * r * r * r));
}

TEST(PitchQuality, SinesAreReadWithinTheErrorOfTheMethod) {
  for (const double rate : {44100.0, 48000.0, 96000.0, 192000.0}) {
    // Half a block is the longest lag, which is not refined.
    const double lowest = std::max(27.5, rate / 4000.0);
    for (int step = 0; step <= 40; ++step) {
      const double frequency = lowest * std::pow(4300.0 / lowest, step / 40.0);
      const auto samples = signals::sine(frequency, rate, block, {.phase = 2.4 * step});
      EXPECT_LE(error(samples, rate, frequency), worstCents(frequency / rate))
          << frequency << " Hz at " << rate;
    }
  }
}

TEST(PitchQuality, TheLowestPitchIsReadToOneLag) {
  // 27 Hz lies between the lags 1777 and 1778, and 1778 is the longest: one lag is 0.97 cents.
  EXPECT_LE(error(signals::sine(27.0, 48000.0, block), 48000.0, 27.0), 0.98);
}

TEST(PitchQuality, PluckedStringsAreReadToATenthOfACent) {
  struct String {
    double frequency;
    double worstCents;
  };
  // Measured and doubled: the sum of a noise burst's partials has no closed form. With other seeds,
  // at 44.1 and 48 kHz, up to two seconds after the attack, the largest errors were 0.006 cents on
  // the bass and 0.054 on the guitar.
  const String strings[] = {{30.868, 0.012}, {41.203, 0.012}, {55.000, 0.012}, {73.416, 0.012},
                            {97.999, 0.012}, {82.407, 0.012}, {110.000, 0.02}, {146.832, 0.04},
                            {195.998, 0.05}, {246.942, 0.05}, {329.628, 0.11}};
  for (const auto& [frequency, worstCents] : strings) {
    for (const double rate : {44100.0, 48000.0}) {
      const std::size_t delay = signals::pluckedDelay(frequency, rate);
      for (const std::size_t start : {0U, 8192U, 65536U}) {
        const auto string = signals::pluckedString(delay, start + block, 11);
        EXPECT_LE(error(std::span(string).subspan(start), rate, signals::pluckedPitch(delay, rate)),
                  worstCents)
            << frequency << " at " << rate << " Hz, " << start << " samples after the attack";
      }
    }
  }
}

}  // namespace
}  // namespace corvane
