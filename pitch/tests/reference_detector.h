// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "pitch/pitch_detector.h"

/// A second implementation of the detector, written to be obviously correct: one loop per step, one
/// array per quantity, nothing skipped. Shares only the result type with the detector.
namespace corvane::reference {

struct Centred {
  std::vector<float> x;
  float rms;
};

/// The samples minus their mean, and the resulting level, in single precision.
Centred centre(const std::vector<float>& samples);

/// The cumulative mean normalised difference at lags 0 to tauMax, over half of x.
std::vector<double> normalisedDifference(const std::vector<float>& x, std::int64_t tauMax);

/// As PitchDetector::detect; the bounds must be valid.
std::optional<PitchDetector::Reading> detect(const std::vector<float>& samples, double sampleRate,
                                             double minFrequency, double maxFrequency,
                                             double threshold);

}  // namespace corvane::reference
