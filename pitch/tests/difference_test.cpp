// SPDX-License-Identifier: MIT
#include "pitch/difference.h"

#include <algorithm>
#include <functional>
#include <limits>

#include "pitch/tests/difference_paths.h"
#include "pitch/tests/readings.h"
#include "tests/support/signals.h"

namespace corvane {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// The sums at the lags from `first` to `last`, by a naive loop.
std::vector<double> plainDifference(const signals::Samples& samples, std::size_t window,
                                    std::size_t first, std::size_t last) {
  const float* const x = samples.data();
  std::vector<double> sums;
  for (std::size_t tau = first; tau <= last; ++tau) {
    double sum = 0.0;
    for (std::size_t i = 0; i < window; ++i) {
      const double apart = static_cast<double>(x[i]) - static_cast<double>(x[i + tau]);
      sum = sum + apart * apart;
    }
    sums.push_back(sum);
  }
  return sums;
}

class DifferenceOn : public OnEveryPath {
 protected:
  /// The path's results for x at the lags from 1 to tauMax, in groups. Beyond the last needed
  /// sample there are NaNs, as many as the path may read.
  static std::vector<double> difference(const signals::Samples& x, std::size_t window,
                                        std::size_t tauMax) {
    const DifferencePath& path = GetParam();
    const std::size_t lags = (tauMax + path.lags - 1) / path.lags * path.lags;
    std::vector<double> wide(x.begin(), x.begin() + std::ptrdiff_t(window + tauMax));
    wide.resize(window + lags, nan);
    std::vector<double> d(lags, nan);
    for (std::size_t done = 0; done < tauMax; done += path.lags) {
      path.sum(wide.data(), window, done + 1, d.data() + done);
    }
    d.resize(tauMax);
    return d;
  }

  static void expectPlain(const signals::Samples& x, std::size_t window, std::size_t tauMax) {
    EXPECT_TRUE(sameBits(difference(x, window, tauMax), plainDifference(x, window, 1, tauMax)))
        << "window " << window << ", lags to " << tauMax;
  }
};

TEST_P(DifferenceOn, EqualsThePlainLoopAtEverySmallWindowAndLag) {
  const signals::Samples x = signals::noise(110, 1);
  for (std::size_t window = 0; window <= 40; ++window) {
    for (std::size_t tauMax = 0; tauMax <= 70; ++tauMax) expectPlain(x, window, tauMax);
  }
}

TEST_P(DifferenceOn, EqualsThePlainLoopAtAwkwardLengthsAndLevels) {
  signals::Samples x = signals::noise(2048, 2);
  expectPlain(x, 513, 127);
  expectPlain(x, 1031, 67);
  expectPlain(x, 2047, 1);
  expectPlain(x, 1, 1023);
  const float scales[] = {1.0F, 1e30F, 1e-30F, std::numeric_limits<float>::denorm_min(), 3e38F};
  for (std::size_t i = 0; i < x.size(); ++i) x[i] *= scales[i % std::size(scales)];
  expectPlain(x, 300, 299);
}

TEST_P(DifferenceOn, EqualsThePlainLoopFromAnyLagAndAddress) {
  const std::size_t lags = GetParam().lags;
  const signals::Samples x = signals::noise(101 + 3 * lags, 3);
  for (std::size_t place = 0; place < 8; ++place) {
    std::vector<double> wide(place, nan);
    wide.insert(wide.end(), x.begin(), x.end());
    for (std::size_t first = 0; first <= lags + 2; ++first) {
      const std::size_t start = 1 + (place + first) % 8;
      std::vector<double> d(start + lags + 1, -1.0);
      GetParam().sum(wide.data() + place, 101, first, d.data() + start);
      std::vector<double> expected(start, -1.0);
      for (const double sum : plainDifference(x, 101, first, first + lags - 1)) {
        expected.push_back(sum);
      }
      expected.push_back(-1.0);
      EXPECT_TRUE(sameBits(d, expected)) << "from lag " << first << ", place " << place;
    }
  }
}

TEST_P(DifferenceOn, RoundsEachStepOfOneSumInIndexOrder) {
  // In single precision this difference would be rounded to 1.
  const double apart = 1.0 - 0x1p-30;
  EXPECT_EQ(difference({1.0F, 0x1p-30F}, 1, 1)[0], apart * apart);

  // At lag 3 the squares are 2^-54 twice and 1 + 2^-29 + 2^-60. Rounded, the last one loses its
  // 2^-60, and adding it is a tie, rounded down. A fused operation would keep it and round up.
  const signals::Samples tie = {0x1p-27F, 0x1p-27F, 1.0F, 0.0F, 0.0F, -0x1p-30F};
  EXPECT_EQ(difference(tie, 3, 3)[2], 1.0 + 0x1p-29);

  // Each small square is lost when added to the first one; their separate sum would not be.
  signals::Samples x(2049, 0.0F);
  x[0] = 0x1p27F;
  for (std::size_t i = 2; i < x.size(); i += 2) x[i] = 1.0F;
  EXPECT_EQ(difference(x, 2048, 1)[0], 0x1p54);
}

INSTANTIATE_TEST_SUITE_P(Paths, DifferenceOn, testing::ValuesIn(differencePaths()), pathTitle);

TEST(DifferencePaths, RunWhereverAFasterPathRuns) {
  EXPECT_EQ(fastestDifferencePath().name, pathsOfThisMachine().front().name);
  EXPECT_EQ(differencePaths().back().name, "portable");
  EXPECT_TRUE(differencePaths().back().runsHere());
  const auto runsHere = [](const DifferencePath& path) { return path.runsHere(); };
  EXPECT_TRUE(std::ranges::is_partitioned(differencePaths(), std::not_fn(runsHere)));
}

}  // namespace
}  // namespace corvane
