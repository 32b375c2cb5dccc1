// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <optional>
#include <sstream>
#include <string>

#include "pitch/pitch_detector.h"

namespace corvane {

/// Same bits and not NaN.
inline bool sameBits(double actual, double expected) {
  return std::bit_cast<std::uint64_t>(actual) == std::bit_cast<std::uint64_t>(expected) &&
         !std::isnan(actual);
}

/// All values have the same bits, and none is NaN.
inline testing::AssertionResult sameBits(std::span<const double> actual,
                                         std::span<const double> expected) {
  if (actual.size() != expected.size()) return testing::AssertionFailure() << actual.size();
  for (std::size_t i = 0; i < actual.size(); ++i) {
    if (sameBits(actual[i], expected[i])) continue;
    return testing::AssertionFailure() << actual[i] << ", not " << expected[i] << ", at " << i;
  }
  return testing::AssertionSuccess();
}

inline std::string written(const std::optional<PitchDetector::Reading>& reading) {
  if (!reading) return "no pitch";
  std::ostringstream text;
  text << std::setprecision(17) << reading->frequency << " Hz, confidence " << reading->confidence
       << ", rms " << reading->rms;
  return text.str();
}

/// All fields have the same bits and none is NaN, or both readings are absent.
inline testing::AssertionResult sameBits(const std::optional<PitchDetector::Reading>& actual,
                                         const std::optional<PitchDetector::Reading>& expected) {
  const bool equal = actual && expected ? sameBits(actual->frequency, expected->frequency) &&
                                              sameBits(actual->confidence, expected->confidence) &&
                                              sameBits(static_cast<double>(actual->rms),
                                                       static_cast<double>(expected->rms))
                                        : !actual && !expected;
  if (equal) return testing::AssertionSuccess();
  return testing::AssertionFailure() << written(actual) << ", not " << written(expected);
}

/// The interval from `expected` to `actual`, both in Hz.
inline double centsAbove(double actual, double expected) {
  return 1200.0 * std::log2(actual / expected);
}

}  // namespace corvane
