#include "pitch/difference.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

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

/// What the function makes of x, in an array that holds no number before.
std::vector<double> difference(std::span<const float> x, std::size_t window, std::size_t tauMax) {
  std::vector<double> d(tauMax + 1, std::numeric_limits<double>::quiet_NaN());
  differenceFunction(x, window, d);
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

TEST(DifferenceFunction, EqualsThePlainLoopAtEverySmallWindowAndLag) {
  const signals::Samples x = signals::noise(80, 1);
  for (std::size_t window = 0; window <= 40; ++window) {
    for (std::size_t tauMax = 0; tauMax <= 40; ++tauMax) {
      SCOPED_TRACE(testing::Message() << "window " << window << ", lags to " << tauMax);
      expectSameBits(difference(x, window, tauMax), plainDifference(x, window, tauMax));
    }
  }
}

TEST(DifferenceFunction, EqualsThePlainLoopAtAwkwardLengths) {
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

TEST(DifferenceFunction, EqualsThePlainLoopWhereverTheSamplesStartInMemory) {
  const signals::Samples x = signals::noise(700, 3);
  for (std::size_t start = 0; start < 16; ++start) {
    const signals::Samples moved(x.begin() + static_cast<std::ptrdiff_t>(start), x.end());
    expectSameBits(difference(std::span(x).subspan(start), 301, 299),
                   plainDifference(moved, 301, 299));
  }
}

TEST(DifferenceFunction, EqualsThePlainLoopFromTheFaintestToTheLoudestSamples) {
  signals::Samples x = signals::noise(600, 4);
  const float scales[] = {1.0F, 1e30F, 1e-30F, std::numeric_limits<float>::denorm_min(), 3e38F};
  for (std::size_t i = 0; i < x.size(); ++i) x[i] *= scales[i % std::size(scales)];
  expectSameBits(difference(x, 300, 299), plainDifference(x, 300, 299));
}

TEST(DifferenceFunction, NeverTouchesASampleBeyondTheLastLag) {
  for (std::size_t tauMax = 0; tauMax <= 70; ++tauMax) {
    constexpr std::size_t window = 65;
    signals::Samples x = signals::noise(window + tauMax, 5);
    const std::vector<double> expected = plainDifference(x, window, tauMax);
    x.insert(x.end(), 64, nan);
    expectSameBits(difference(x, window, tauMax), expected);
  }
}

TEST(DifferenceFunction, StaysWithinABlockThatEndsWithItsLastLag) {
  // Exactly as many samples as are needed, so that the address sanitizer sees one too many.
  const signals::Samples x = signals::noise(65 + 70, 6);
  expectSameBits(difference(x, 65, 70), plainDifference(x, 65, 70));
}

TEST(DifferenceFunction, OneSampleThatIsNotANumberSpoilsOnlyTheLagsThatReachIt) {
  signals::Samples x = signals::noise(100, 7);
  x[80] = nan;
  const std::vector<double> d = difference(x, 50, 50);
  for (std::size_t tau = 0; tau <= 50; ++tau) EXPECT_EQ(std::isnan(d[tau]), tau >= 31) << tau;
}

TEST(DifferenceFunction, WidensTheSamplesBeforeItSubtractsThem) {
  // In single precision the difference of these would be rounded to 1.
  const std::vector<float> x = {1.0F, 0x1p-30F};
  const double apart = 1.0 - 0x1p-30;
  EXPECT_EQ(difference(x, 1, 1)[1], apart * apart);
}

TEST(DifferenceFunction, AddsInIndexOrderIntoOneSum) {
  // Each small square alone is lost beside the first one; added up apart, they would not be.
  std::vector<float> x(2049, 0.0F);
  x[0] = 0x1p27F;
  for (std::size_t i = 2; i < x.size(); i += 2) x[i] = 1.0F;
  EXPECT_EQ(difference(x, 2048, 1)[1], 0x1p54);
}

TEST(DifferenceFunctionDeathTest, ALagThatLeavesTheBlockStopsTheProgram) {
  const std::vector<float> x(100, 0.0F);
  std::vector<double> d(52);
  EXPECT_DEATH(differenceFunction(x, 50, d), "broken invariant");
  EXPECT_DEATH(differenceFunction(x, 50, std::span<double>()), "broken invariant");
}

}  // namespace
}  // namespace corvane
