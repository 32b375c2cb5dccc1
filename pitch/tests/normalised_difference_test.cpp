#include "pitch/normalised_difference.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "pitch/tests/difference_paths.h"
#include "pitch/tests/reference_detector.h"
#include "tests/support/signals.h"

namespace corvane {
namespace {

void begin(NormalisedDifference& difference, const signals::Samples& samples) {
  const std::span<double> block = difference.beginBlock(samples.size());
  ASSERT_EQ(block.size(), samples.size());
  std::copy(samples.begin(), samples.end(), block.begin());
}

void expectReference(std::span<const double> actual, const signals::Samples& samples) {
  const auto tauMax = static_cast<std::int64_t>(actual.size()) - 1;
  const std::vector<double> expected = reference::normalisedDifference(samples, tauMax);
  for (std::size_t tau = 0; tau < actual.size(); ++tau) {
    ASSERT_FALSE(std::isnan(actual[tau])) << "lag " << tau;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(actual[tau]),
              std::bit_cast<std::uint64_t>(expected[tau]))
        << "lag " << tau << " of " << samples.size() << " samples";
  }
}

class NormalisedDifferenceOn : public OnEveryPath {};

TEST_P(NormalisedDifferenceOn, EqualsTheReferenceAtEveryLagOfEveryShortBlock) {
  NormalisedDifference difference(GetParam());
  for (std::size_t length = 1; length <= 150; ++length) {
    const signals::Samples samples = signals::noise(length, 1);
    begin(difference, samples);
    const auto all = difference.upTo(length / 2);
    ASSERT_EQ(all.size(), length / 2 + 1);
    expectReference(all, samples);
  }
}

TEST_P(NormalisedDifferenceOn, IsTheSameInWhicheverStepsItIsAskedFor) {
  const signals::Samples samples = signals::noise(401, 2);
  for (std::size_t step = 1; step <= 70; ++step) {
    NormalisedDifference difference(GetParam());
    begin(difference, samples);
    for (std::size_t tau = 0; tau <= 200; tau += step) {
      const auto values = difference.upTo(tau);
      ASSERT_EQ(values.size(), tau + 1);
      ASSERT_EQ(std::bit_cast<std::uint64_t>(difference.at(tau)),
                std::bit_cast<std::uint64_t>(values[tau]));
      expectReference(values, samples);
    }
  }
}

TEST_P(NormalisedDifferenceOn, OwesNothingToALongerBlockBefore) {
  const signals::Samples spoilt(1000, std::numeric_limits<float>::quiet_NaN());
  NormalisedDifference difference(GetParam());
  for (std::size_t length = 64; length <= 200; length += 17) {
    begin(difference, spoilt);
    difference.upTo(500);
    const signals::Samples samples = signals::noise(length, 3);
    begin(difference, samples);
    expectReference(difference.upTo(length / 2), samples);
  }
}

TEST_P(NormalisedDifferenceOn, IsOneWhereNothingHasDifferedYet) {
  NormalisedDifference difference(GetParam());
  begin(difference, signals::constant(0.25F, 300));
  for (const double value : difference.upTo(150)) EXPECT_EQ(value, 1.0);
}

INSTANTIATE_TEST_SUITE_P(Paths, NormalisedDifferenceOn, testing::ValuesIn(differencePaths()),
                         pathTitle);

/// A path of three lags at once that tells how far it was made to go.
std::size_t lagsComputed = 0;
constexpr DifferencePath counting = {
    "counting", 3, [] { return true; },
    [](const double*, std::size_t, std::size_t firstLag, double* d) {
      EXPECT_EQ(firstLag, lagsComputed + 1) << "every lag once, in order";
      lagsComputed += 3;
      std::fill(d, d + 3, 1.0);
    }};

TEST(NormalisedDifference, ComputesNoLagsBeyondThoseAtOnceWithTheLastOneAskedFor) {
  NormalisedDifference difference(counting);
  lagsComputed = 0;
  begin(difference, signals::constant(0.0F, 100));
  EXPECT_EQ(lagsComputed, 0U);
  difference.upTo(0);
  EXPECT_EQ(lagsComputed, 0U);
  difference.upTo(1);
  EXPECT_EQ(lagsComputed, 3U);
  difference.upTo(3);
  difference.at(2);
  EXPECT_EQ(lagsComputed, 3U);
  difference.upTo(4);
  EXPECT_EQ(lagsComputed, 6U);
}

TEST(NormalisedDifferenceDeathTest, ALagThatLeavesTheBlockStopsTheProgram) {
  NormalisedDifference difference;
  EXPECT_DEATH(difference.upTo(1), "broken invariant") << "there is no block yet";
  begin(difference, signals::constant(0.0F, 101));
  difference.upTo(50);
  EXPECT_DEATH(difference.upTo(51), "broken invariant");
  EXPECT_DEATH(difference.beginBlock(0), "broken invariant");
}

}  // namespace
}  // namespace corvane
