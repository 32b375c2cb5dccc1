#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "pitch/pitch_detector.h"

/// The detector once more, written for nothing but to be obviously right: one plain loop a step,
/// one array a quantity, nothing skipped, nothing shared with the real one but the record it fills.
namespace corvane::reference {

struct Centred {
  std::vector<float> x;
  float rms;
};

/// The samples less their mean, and the level of what is left, all in single precision.
Centred centre(const std::vector<float>& samples);

/// The cumulative mean normalised difference at the lags from 0 to tauMax, over half of x.
std::vector<double> normalisedDifference(const std::vector<float>& x, std::int64_t tauMax);

/// As PitchDetector::detect; the bounds must be valid.
std::optional<PitchDetector::Reading> detect(const std::vector<float>& samples, double sampleRate,
                                             double minFrequency, double maxFrequency,
                                             double threshold);

}  // namespace corvane::reference
