// SPDX-License-Identifier: MIT
#include "pitch/parabolic_tau.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace corvane {
namespace {

double vertex(double before, double at, double after) {
  return parabolicTau(std::array{before, at, after}, 1);
}

TEST(ParabolicTau, FindsTheVertexOfAParabola) {
  // (x - 1.25)^2 at 0, 1 and 2; every step is exact in binary.
  EXPECT_EQ(vertex(1.5625, 0.0625, 0.5625), 1.25);
  EXPECT_EQ(vertex(0.5625, 0.0625, 1.5625), 0.75);
  EXPECT_EQ(vertex(1.0, 0.0, 1.0), 1.0);
  EXPECT_EQ(vertex(0.0, 1.0, 0.5), 1.0 + 1.0 / 6.0) << "opens downwards";
  EXPECT_EQ(parabolicTau(std::vector{9.0, 9.0, 9.0, 1.5625, 0.0625, 0.5625, 9.0}, 4), 4.25);
}

TEST(ParabolicTau, RefinesNeitherTheFirstLagNorTheLast) {
  EXPECT_EQ(parabolicTau(std::array{0.5, 0.25, 1.0}, 0), 0.0);
  EXPECT_EQ(parabolicTau(std::array{1.0, 0.5, 0.25}, 2), 2.0);
  EXPECT_EQ(parabolicTau(std::array{1.0, 0.5}, 1), 1.0);
  EXPECT_EQ(parabolicTau(std::array{9.0, 1.5625, 0.0625, 0.5625}, 2), 2.25) << "the last but one";
}

TEST(ParabolicTau, PointsOnAStraightLineGiveTheIntegerLag) {
  EXPECT_EQ(vertex(0.75, 0.5, 0.25), 1.0);
  EXPECT_EQ(vertex(0.25, 0.5, 0.75), 1.0);
  EXPECT_EQ(vertex(0.5, 0.5, 0.5), 1.0);
  // With at = 0 the curvature is the sum of the outer two, here one of them. At the limit it counts
  // as zero.
  EXPECT_EQ(vertex(1e-12, 0.0, 0.0), 1.0);
  EXPECT_EQ(vertex(-1e-12, 0.0, 0.0), 1.0);
  EXPECT_EQ(vertex(std::nextafter(1e-12, 1.0), 0.0, 0.0), 1.5);
  EXPECT_EQ(vertex(0.0, 0.0, std::nextafter(1e-12, 1.0)), 0.5);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(vertex(nan, 0.0, 1.0), 1.0);
  EXPECT_EQ(vertex(1.0, nan, 1.0), 1.0);
  EXPECT_EQ(vertex(1.0, 0.0, nan), 1.0);
}

TEST(ParabolicTau, RoundsInTheOrderOfTheFormula) {
  // after + (before - (at + at)): with these values every other grouping rounds differently.
  const double before = 0.1, at = 0.0123456789, after = 0.3;
  const double twice = at + at;
  const double inner = before - twice;
  const double curvature = after + inner;
  EXPECT_NE(curvature, (after - twice) + before);
  EXPECT_NE(curvature, (after + before) - twice);
  EXPECT_EQ(vertex(before, at, after), 1.0 + (before - after) / (curvature + curvature));
}

}  // namespace
}  // namespace corvane
