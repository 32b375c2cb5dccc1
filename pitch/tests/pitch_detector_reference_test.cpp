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

/// Sounds in which there is a pitch to be found, if the block is long enough for it.
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

/// Sounds that hold no pitch, or none that all bounds agree on.
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

/// Whether the detector finds the same as the reference in each of the sounds, on its own and in
/// each of the memories, which have held other blocks before; counts the readings.
int agreements(const std::vector<Named>& sounds, double rate, const Search& search,
               std::vector<NormalisedDifference> memories) {
  const auto& [low, high, threshold] = search;
  int readings = 0;
  for (const auto& [name, samples] : sounds) {
    std::vector found = {PitchDetector::detect(samples, rate, low, high, threshold)};
    for (NormalisedDifference& memory : memories) {
      found.push_back(PitchDetector::detect(samples, rate, low, high, threshold, memory));
    }
    const auto expected = reference::detect(samples, rate, low, high, threshold);
    for (const auto& reading : found) {
      EXPECT_TRUE(sameBits(reading, expected))
          << name << " at " << rate << " Hz, " << samples.size() << " samples, " << low << " to "
          << high << " Hz, threshold " << threshold;
    }
    if (expected) ++readings;
  }
  return readings;
}

/// The same on every path of this machine.
int agreements(const std::vector<Named>& sounds, double rate, const Search& search) {
  std::vector<NormalisedDifference> memories;
  for (const DifferencePath& path : pathsOfThisMachine()) memories.emplace_back(path);
  return agreements(sounds, rate, search, std::move(memories));
}

class DetectorOn : public OnEveryPath {};

TEST_P(DetectorOn, ReadsEverySoundToTheSameBitsAsTheReference) {
  const std::vector memories = {NormalisedDifference(GetParam())};
  EXPECT_GE(agreements(notes(48000.0, 4099), 48000.0, tuner, memories), 8);
  agreements(others(48000.0, 4099), 48000.0, tuner, memories);
}

INSTANTIATE_TEST_SUITE_P(Paths, DetectorOn, testing::ValuesIn(differencePaths()), pathTitle);

struct Block {
  double rate;
  std::size_t length;
  int fewestReadings;  ///< so that not all agreement is about finding nothing
};

class EveryBlock : public testing::TestWithParam<Block> {};

TEST_P(EveryBlock, IsReadToTheSameBitsAsByTheReference) {
  const auto& [rate, length, fewestReadings] = GetParam();
  EXPECT_GE(agreements(notes(rate, length), rate, tuner), fewestReadings);
  agreements(others(rate, length), rate, tuner);
}

INSTANTIATE_TEST_SUITE_P(RatesAndLengths, EveryBlock,
                         testing::Values(Block{8000.5, 1024, 8}, Block{8000.5, 2047, 8},
                                         Block{11025.0, 1025, 8}, Block{16000.0, 3001, 8},
                                         Block{22050.0, 1023, 0}, Block{32000.0, 2500, 8},
                                         Block{44100.0, 1024, 8}, Block{44100.0, 4099, 8},
                                         Block{48000.0, 1777, 8}, Block{96000.0, 2222, 8},
                                         Block{192000.0, 1025, 4}));

// The longest blocks cost the most: a few sounds each.
class LongBlock : public testing::TestWithParam<Block> {};

TEST_P(LongBlock, IsReadToTheSameBitsAsByTheReference) {
  const auto& [rate, length, fewestReadings] = GetParam();
  std::vector<Named> few = notes(rate, length);
  few.resize(3);
  EXPECT_GE(agreements(few, rate, tuner), fewestReadings);
}

INSTANTIATE_TEST_SUITE_P(RatesAndLengths, LongBlock,
                         testing::Values(Block{44100.0, 8192, 3}, Block{48000.0, 8192, 3},
                                         Block{48000.0, 8193, 3}, Block{96000.0, 8191, 3},
                                         Block{192000.0, 16384, 3}));

TEST(EverySearch, IsCarriedOutToTheSameBitsAsByTheReference) {
  const Search searches[] = {{80.0, 1200.0, 0.1},   {200.0, 1000.0, 0.5},  {27.0, 20000.0, 1.5},
                             {50.5, 50000.0, 0.02}, {300.0, 320.0, 0.15},  {430.0, 450.0, 0.9},
                             {1e-3, 1e9, 1e-6},     {100.0, 4300.0, 1e300}};
  for (const Search& search : searches) {
    const int readings = agreements(notes(44100.0, 1501), 44100.0, search);
    EXPECT_GE(readings, 1) << search.minFrequency;
    agreements(others(44100.0, 1501), 44100.0, search);
  }
}

TEST(EveryThreshold, SplitsNoisySinesWhereTheReferenceDoes) {
  std::vector<Named> sounds;
  for (int step = 0; step < 40; ++step) {
    const double level = 0.2 + 0.01 * step;
    sounds.push_back({"sine in noise", signals::sum(signals::sine(330.0, 44100.0, 1501),
                                                    signals::noise(1501, 7, level))});
  }
  const int readings = agreements(sounds, 44100.0, tuner);
  EXPECT_GE(readings, 5) << "or the noise is too strong to test with";
  EXPECT_LE(readings, 35) << "or the noise is too weak to test with";
}

}  // namespace
}  // namespace corvane
