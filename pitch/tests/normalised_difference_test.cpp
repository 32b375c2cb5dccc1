// SPDX-License-Identifier: MIT
#include "pitch/normalised_difference.h"

#include <algorithm>
#include <limits>

#include "pitch/tests/difference_paths.h"
#include "pitch/tests/readings.h"
#include "pitch/tests/reference_detector.h"
#include "tests/support/signals.h"

namespace corvane {
namespace {

void begin(NormalisedDifference& difference, const signals::Samples& samples) {
  const std::span<double> block = difference.beginBlock(samples.size());
  ASSERT_EQ(block.size(), samples.size());
  std::copy(samples.begin(), samples.end(), block.begin());
}

std::vector<double> expectedOf(const signals::Samples& samples) {
  return reference::normalisedDifference(samples, static_cast<std::int64_t>(samples.size() / 2));
}

class NormalisedDifferenceOn : public OnEveryPath {};

TEST_P(NormalisedDifferenceOn, EqualsTheReferenceInAnyOrderOfQueries) {
  const signals::Samples spoilt(1000, std::numeric_limits<float>::quiet_NaN());
  NormalisedDifference difference(GetParam());
  for (std::size_t length = 1; length <= 150; ++length) {
    begin(difference, spoilt);
    difference.upTo(length % 7 * 83);
    const signals::Samples samples = signals::noise(length, 1);
    const std::vector<double> expected = expectedOf(samples);
    begin(difference, samples);
    // In steps of 1 to 70 lags, finally up to half the block.
    for (std::size_t tau = 0; tau < length / 2; tau += 1 + length % 70) {
      EXPECT_TRUE(sameBits(difference.upTo(tau), std::span(expected).first(tau + 1))) << length;
      EXPECT_TRUE(sameBits(difference.at(tau), expected[tau])) << length;
    }
    EXPECT_TRUE(sameBits(difference.upTo(length / 2), expected)) << length;
    // With no more memory than this block needs.
    NormalisedDifference fresh(GetParam());
    begin(fresh, samples);
    EXPECT_TRUE(sameBits(fresh.upTo(length / 2), expected)) << length;
  }
  begin(difference, signals::constant(0.25F, 300));
  EXPECT_TRUE(sameBits(difference.upTo(150), std::vector(151, 1.0))) << "nothing has differed";
}

INSTANTIATE_TEST_SUITE_P(Paths, NormalisedDifferenceOn, testing::ValuesIn(differencePaths()),
                         pathTitle);

TEST(NormalisedDifferenceDeathTest, LagBeyondTheBlockStopsTheProgram) {
  NormalisedDifference difference;
  EXPECT_DEATH(difference.upTo(1), "broken invariant") << "there is no block yet";
  begin(difference, signals::constant(0.0F, 101));
  difference.upTo(50);
  EXPECT_DEATH(difference.upTo(51), "broken invariant");
  EXPECT_DEATH(difference.beginBlock(0), "broken invariant");
}

}  // namespace
}  // namespace corvane
