#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <optional>
#include <sstream>
#include <string>

#include "pitch/pitch_detector.h"

namespace corvane {

inline std::string written(const std::optional<PitchDetector::Reading>& reading) {
  if (!reading) return "no pitch";
  std::ostringstream text;
  text << std::setprecision(17) << reading->frequency << " Hz, confidence " << reading->confidence
       << ", rms " << reading->rms;
  return text.str();
}

/// Every field the same to the last bit and none of them "not a number", or both absent.
inline testing::AssertionResult sameBits(const std::optional<PitchDetector::Reading>& actual,
                                         const std::optional<PitchDetector::Reading>& expected) {
  const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value); };
  const auto same = [&](double a, double b) { return bits(a) == bits(b) && !std::isnan(a); };
  const bool equal = actual && expected ? same(actual->frequency, expected->frequency) &&
                                              same(actual->confidence, expected->confidence) &&
                                              same(static_cast<double>(actual->rms),
                                                   static_cast<double>(expected->rms))
                                        : !actual && !expected;
  if (equal) return testing::AssertionSuccess();
  return testing::AssertionFailure() << written(actual) << " instead of " << written(expected);
}

/// How far `actual` is above `expected`, both in Hz.
inline double centsBetween(double actual, double expected) {
  return 1200.0 * std::log2(actual / expected);
}

}  // namespace corvane
