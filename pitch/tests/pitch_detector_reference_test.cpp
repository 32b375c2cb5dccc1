// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "pitch/normalised_difference.h"
#include "pitch/tests/difference_paths.h"
#include "pitch/tests/readings.h"
#include "pitch/tests/reference_detector.h"
#include "tests/support/signals.h"

namespace corvane {
namespace {

struct Named {
  const char* name;
  signals::Samples samples;
};

/// The samples with one of them replaced.
signals::Samples with(float odd, signals::Samples samples) {
  samples[samples.size() / 3] = odd;
  return samples;
}

/// Sounds with a pitch, if the block is long enough for it.
std::vector<Named> notes(double rate, std::size_t length) {
  using namespace signals;
  return {
      {"sine of 440 Hz", sine(440.0, rate, length, {.phase = 1.0})},
      {"plucked string of 110 Hz", pluckedString(pluckedDelay(110.0, rate), length, 1)},
      {"sine of 1 kHz on direct current", sum(sine(1000.0, rate, length), constant(0.3F, length))},
      {"sine of 82.41 Hz", sine(82.41, rate, length)},
      {"sine of 3.7 kHz", sine(3700.0, rate, length)},
      {"sine above the band", sine(5000.0, rate, length)},
      {"sine in a little noise", sum(sine(330.0, rate, length), noise(length, 2, 0.1))},
      {"plucked string of 247 Hz", pluckedString(pluckedDelay(247.0, rate), length, 3)},
      {"rising chirp", chirp(300.0, 330.0, rate, length)},
      {"clicks", impulses(0.9F, 100, length)},
      {"periodic noise", periodicNoise(77, length, 4)},
      {"faint sine", scaled(sine(523.0, rate, length), 0.01F)},
      {"sine that dies into denormals",
       sum(scaled(sine(440.0, rate, length), 1e-42F), step(0.5F, length - 40, length))},
      {"loud sine", scaled(sine(440.0, rate, length), 1e17F)},
      {"sine so loud that its level overflows", scaled(sine(440.0, rate, length), 1e30F)},
  };
}

/// Sounds without a pitch, or with one that depends on the bounds.
std::vector<Named> others(double rate, std::size_t length) {
  using namespace signals;
  const float infinity = std::numeric_limits<float>::infinity();
  return {
      {"silence", constant(0.0F, length)},
      {"direct current", constant(0.1F, length)},
      {"loudest direct current", constant(3e38F, length)},
      {"noise", noise(length, 5)},
      {"sine in much noise", sum(sine(330.0, rate, length), noise(length, 6, 0.3))},
      {"wide chirp", chirp(40.0, rate / 3.0, rate, length)},
      {"denormals", scaled(sine(440.0, rate, length), 1e-40F)},
      {"not a number", with(std::nanf(""), sine(440.0, rate, length))},
      {"infinity", with(infinity, sine(440.0, rate, length))},
      {"minus infinity", with(-infinity, sine(440.0, rate, length))},
      {"step", step(0.8F, length / 3, length)},
      {"one click", impulses(1.0F, length, length)},
  };
}

struct Search {
  double minFrequency;
  double maxFrequency;
  double threshold;
};

constexpr Search tuner = {27.0, 4300.0, 0.15};

/// Expects the reference's result for each sound, with new memory and, on every path of this
/// machine, with memory used before. Returns the number of readings.
int agreements(const std::vector<Named>& sounds, double rate, const Search& search = tuner) {
  const auto& [low, high, threshold] = search;
  std::vector<NormalisedDifference> memories;
  for (const DifferencePath& path : pathsOfThisMachine()) memories.emplace_back(path);
  int readings = 0;
  for (const auto& [name, samples] : sounds) {
    SCOPED_TRACE(testing::Message()
                 << name << " at " << rate << " Hz, " << samples.size() << " samples, " << low
                 << " to " << high << " Hz, threshold " << threshold);
    const auto expected = reference::detect(samples, rate, low, high, threshold);
    EXPECT_TRUE(sameBits(PitchDetector::detect(samples, rate, low, high, threshold), expected));
    for (NormalisedDifference& memory : memories) {
      EXPECT_TRUE(
          sameBits(PitchDetector::detect(samples, rate, low, high, threshold, memory), expected));
    }
    if (expected) ++readings;
  }
  return readings;
}

TEST(DetectorAndReference, AgreeToTheBitAtEveryRateAndLength) {
  struct Block {
    double rate;
    std::size_t length;
    int fewestReadings;  ///< so that not every result is empty
  };
  for (const auto& [rate, length, fewestReadings] :
       {Block{8000.5, 1024, 8}, Block{11025.0, 1025, 8}, Block{16000.0, 1501, 8},
        Block{22050.0, 1023, 0}, Block{44100.0, 1501, 8}, Block{48000.0, 1777, 8},
        Block{96000.0, 1111, 8}, Block{192000.0, 1025, 4}}) {
    EXPECT_GE(agreements(notes(rate, length), rate), fewestReadings);
    agreements(others(rate, length), rate);
  }
  // The longest blocks are the slowest: one sound each.
  for (const auto& [rate, length, readings] : {Block{48000.0, 8192, 1}, Block{96000.0, 8191, 1}}) {
    EXPECT_EQ(agreements({notes(rate, length)[0]}, rate), readings);
  }
}

TEST(DetectorAndReference, AgreeToTheBitInEverySearch) {
  const Search searches[] = {{80.0, 1200.0, 0.1},   {200.0, 1000.0, 0.5},  {27.0, 20000.0, 1.5},
                             {50.5, 50000.0, 0.02}, {300.0, 320.0, 0.15},  {430.0, 450.0, 0.9},
                             {1e-3, 1e9, 1e-6},     {100.0, 4300.0, 1e300}};
  for (const Search& search : searches) {
    EXPECT_GE(agreements(notes(44100.0, 1101), 44100.0, search), 1) << search.minFrequency;
    agreements(others(44100.0, 1101), 44100.0, search);
  }
}

}  // namespace
}  // namespace corvane
