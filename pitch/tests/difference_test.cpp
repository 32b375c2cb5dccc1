#include "pitch/difference.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "pitch/tests/difference_paths.h"
#include "tests/support/signals.h"

namespace corvane {
namespace {

constexpr float nan = std::numeric_limits<float>::quiet_NaN();

std::vector<double> plainDifference(const std::vector<float>& x, std::size_t window,
                                    std::size_t tauMax) {
  std::vector<double> d(tauMax + 1, 0.0);
  for (std::size_t tau = 1; tau <= tauMax; ++tau) {
    for (std::size_t i = 0; i < window; ++i) {
      const double apart = double{x[i]} - double{x[i + tau]};
      d[tau] = d[tau] + apart * apart;
    }
  }
  return d;
}

void expectSameBits(const std::vector<double>& actual, const std::vector<double>& expected) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t tau = 0; tau < actual.size(); ++tau) {
    ASSERT_FALSE(std::isnan(actual[tau])) << "lag " << tau;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(actual[tau]),
              std::bit_cast<std::uint64_t>(expected[tau]))
        << "lag " << tau << ": " << actual[tau] << " instead of " << expected[tau];
  }
}

class DifferenceOn : public OnEveryPath {
 protected:
  /// What the path makes of x at the lags from 1 to tauMax, lags at once after lags at once, with
  /// `beyond` after the last sample that they need and not a place more than the path may read.
  static std::vector<double> difference(const std::vector<float>& x, std::size_t window,
                                        std::size_t tauMax, double beyond = double{nan}) {
    const DifferencePath& path = GetParam();
    const std::size_t lags = (tauMax + path.lags - 1) / path.lags * path.lags;
    std::vector<double> wide(x.begin(), x.begin() + std::ptrdiff_t(window + tauMax));
    wide.resize(window + lags, beyond);
    std::vector<double> d(1 + lags, std::numeric_limits<double>::quiet_NaN());
    d[0] = 0.0;
    for (std::size_t tau = 1; tau <= tauMax; tau += path.lags) {
      path.sum(wide.data(), window, tau, d.data() + tau);
    }
    d.resize(1 + tauMax);
    return d;
  }
};

TEST_P(DifferenceOn, EqualsThePlainLoopAtEverySmallWindowAndLag) {
  const signals::Samples x = signals::noise(110, 1);
  for (std::size_t window = 0; window <= 40; ++window) {
    for (std::size_t tauMax = 0; tauMax <= 70; ++tauMax) {
      SCOPED_TRACE(testing::Message() << "window " << window << ", lags to " << tauMax);
      expectSameBits(difference(x, window, tauMax), plainDifference(x, window, tauMax));
    }
  }
}

TEST_P(DifferenceOn, EqualsThePlainLoopAtAwkwardLengths) {
  struct Lengths {
    std::size_t window;
    std::size_t tauMax;
  };
  for (const auto& [window, tauMax] :
       {Lengths{512, 510}, Lengths{513, 127}, Lengths{1023, 129}, Lengths{1024, 1021},
        Lengths{1031, 67}, Lengths{2047, 1}, Lengths{4096, 333}, Lengths{1, 1023}}) {
    SCOPED_TRACE(testing::Message() << "window " << window << ", lags to " << tauMax);
    const signals::Samples x = signals::noise(window + tauMax, 2);
    expectSameBits(difference(x, window, tauMax), plainDifference(x, window, tauMax));
  }
}

TEST_P(DifferenceOn, EqualsThePlainLoopWhereverSamplesAndSumsLieInMemory) {
  const signals::Samples x = signals::noise(200, 3);
  const std::size_t lags = GetParam().lags;
  const std::vector<double> expected = plainDifference(x, 101, lags);
  for (std::size_t start = 0; start < 8; ++start) {
    std::vector<double> wide(start, double{nan});
    wide.insert(wide.end(), x.begin(), x.end());
    for (std::size_t place = 0; place < 8; ++place) {
      std::vector<double> d(place + lags);
      GetParam().sum(wide.data() + start, 101, 1, d.data() + place);
      d.erase(d.begin(), d.begin() + std::ptrdiff_t(place));
      d.insert(d.begin(), 0.0);
      expectSameBits(d, expected);
    }
  }
}

TEST_P(DifferenceOn, GivesALagTheSameSumWhicheverLagsAreComputedWithIt) {
  const std::size_t lags = GetParam().lags;
  const signals::Samples x = signals::noise(90 + 2 * lags + 90, 4);
  const std::vector<double> wide(x.begin(), x.end());
  const std::vector<double> expected = plainDifference(x, 90, 2 * lags + 2);
  for (std::size_t first = 0; first <= lags + 2; ++first) {
    std::vector<double> d(lags);
    GetParam().sum(wide.data(), 90, first, d.data());
    const auto from = expected.begin() + std::ptrdiff_t(first);
    expectSameBits(d, std::vector<double>(from, from + std::ptrdiff_t(lags)));
  }
}

TEST_P(DifferenceOn, EqualsThePlainLoopFromTheFaintestToTheLoudestSamples) {
  signals::Samples x = signals::noise(600, 4);
  const float scales[] = {1.0F, 1e30F, 1e-30F, std::numeric_limits<float>::denorm_min(), 3e38F};
  for (std::size_t i = 0; i < x.size(); ++i) x[i] *= scales[i % std::size(scales)];
  expectSameBits(difference(x, 300, 299), plainDifference(x, 300, 299));
}

TEST_P(DifferenceOn, WhatLiesBeyondTheLastLagNeverMatters) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const signals::Samples x = signals::noise(65 + 70, 5);
  for (std::size_t tauMax = 0; tauMax <= 70; ++tauMax) {
    const std::vector<double> expected = plainDifference(x, 65, tauMax);
    for (const double beyond : {double{nan}, infinity, -infinity, 1e300, 5e-324}) {
      expectSameBits(difference(x, 65, tauMax, beyond), expected);
    }
  }
}

TEST_P(DifferenceOn, WritesNothingBesideItsLags) {
  const std::vector<double> wide(50 + GetParam().lags, 1.0);
  std::vector<double> d(GetParam().lags + 2, -1.0);
  GetParam().sum(wide.data(), 50, 1, d.data() + 1);
  EXPECT_EQ(d.front(), -1.0);
  EXPECT_EQ(d.back(), -1.0);
  EXPECT_EQ(std::count(d.begin(), d.end(), 0.0), std::ptrdiff_t(GetParam().lags));
}

TEST_P(DifferenceOn, OneSampleThatIsNotANumberSpoilsOnlyTheLagsThatReachIt) {
  signals::Samples x = signals::noise(100, 7);
  x[80] = nan;
  const std::vector<double> d = difference(x, 50, 50);
  for (std::size_t tau = 0; tau <= 50; ++tau) EXPECT_EQ(std::isnan(d[tau]), tau >= 31) << tau;
}

TEST_P(DifferenceOn, SubtractsInDoublePrecision) {
  // In single precision the difference of these would be rounded to 1.
  const double apart = 1.0 - 0x1p-30;
  EXPECT_EQ(difference({1.0F, 0x1p-30F}, 1, 1)[1], apart * apart);
}

TEST_P(DifferenceOn, RoundsEachSquareBeforeItIsAdded) {
  // At lag 3 the squares are 2^-54 twice and 1 + 2^-29 + 2^-60. Rounded, the last one loses its
  // 2^-60 and adding it is a tie, which goes down; one fused operation would still see it, and
  // round up.
  const std::vector<float> x = {0x1p-27F, 0x1p-27F, 1.0F, 0.0F, 0.0F, -0x1p-30F};
  EXPECT_EQ(difference(x, 3, 3)[3], 1.0 + 0x1p-29);
}

TEST_P(DifferenceOn, AddsInIndexOrderIntoOneSum) {
  // Each small square alone is lost beside the first one; added up apart, they would not be.
  std::vector<float> x(2049, 0.0F);
  x[0] = 0x1p27F;
  for (std::size_t i = 2; i < x.size(); i += 2) x[i] = 1.0F;
  EXPECT_EQ(difference(x, 2048, 1)[1], 0x1p54);
}

INSTANTIATE_TEST_SUITE_P(Paths, DifferenceOn, testing::ValuesIn(differencePaths()), pathTitle);

TEST(DifferencePaths, TheLastOneRunsEverywhere) {
  EXPECT_EQ(differencePaths().back().name, "portable");
  EXPECT_TRUE(differencePaths().back().runsHere());
}

TEST(DifferencePaths, TheFirstThatRunsHereIsTheFastest) {
  EXPECT_EQ(fastestDifferencePath().name, pathsOfThisMachine().front().name);
}

}  // namespace
}  // namespace corvane
