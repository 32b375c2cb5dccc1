// SPDX-License-Identifier: MIT
#include "tools/diagnose/counted_detector.h"

#include <cmath>

namespace corvane::diagnose {
namespace {

/// Rms in dBFS with the mean removed, as the detector measures it; at least -120.
double level(std::span<const float> block) {
  double sum = 0.0;
  double squares = 0.0;
  for (const float single : block) {
    const auto sample = static_cast<double>(single);
    sum += sample;
    squares += sample * sample;
  }
  const double count = static_cast<double>(block.size());
  const double variance = squares / count - (sum / count) * (sum / count);
  return 10.0 * std::log10(std::max(variance, 1e-12));
}

}  // namespace

std::optional<PitchDetector::Reading> CountedDetector::detect(std::span<const float> block,
                                                              double rate) {
  const auto reading = detector(block, rate);
  const double loudness = level(block);
  const std::scoped_lock guard(lock);
  ++counted.blocks;
  if (reading) ++counted.readings;
  counted.softest = std::min(counted.softest, loudness);
  counted.loudest = std::max(counted.loudest, loudness);
  return reading;
}

Counts CountedDetector::counts() const {
  const std::scoped_lock guard(lock);
  return counted;
}

}  // namespace corvane::diagnose
