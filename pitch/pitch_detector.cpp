// SPDX-License-Identifier: MIT
#include "pitch/pitch_detector.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>

#include "base/require.h"
#include "pitch/normalised_difference.h"
#include "pitch/parabolic_tau.h"

namespace corvane::PitchDetector {
namespace {

static_assert(FLT_EVAL_METHOD == 0, "wider intermediates would change the last bit");

constexpr std::size_t minimumSamples = 1024;
constexpr double minimumRate = 8000.0;
constexpr float silence = 0.003F;

struct LagRange {
  std::size_t min;
  std::size_t max;
};

/// Writes the samples minus their mean, so that a DC offset affects neither level nor difference
/// function, and returns their level. Computes in single precision and widens last.
float centre(std::span<const float> samples, std::span<double> centred) {
  const auto count = static_cast<float>(samples.size());
  float sum = 0.0F;
  for (const float sample : samples) sum += sample;
  const float mean = sum / count;

  float squares = 0.0F;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const float x = samples[i] - mean;
    squares += x * x;
    centred[i] = static_cast<double>(x);
  }
  return std::sqrt(squares / count);
}

std::int64_t lag(double rounded) {
  require(rounded >= 0.0 && rounded < 0x1p63, "the lag fits a 64-bit integer");
  return static_cast<std::int64_t>(rounded);
}

/// Returns nothing if the range has fewer than three lags.
std::optional<LagRange> lagRange(std::size_t samples, double sampleRate, double minFrequency,
                                 double maxFrequency) {
  require(minFrequency > 0.0 && std::isfinite(minFrequency) && maxFrequency > 0.0 &&
              std::isfinite(maxFrequency),
          "the frequency bounds are positive and finite");
  const std::int64_t tauMin = std::max<std::int64_t>(2, lag(std::floor(sampleRate / maxFrequency)));
  const std::int64_t tauMax = std::min(static_cast<std::int64_t>(samples / 2) - 2,
                                       lag(std::ceil(sampleRate / minFrequency)));
  if (tauMin + 1 >= tauMax) return std::nullopt;
  return LagRange{static_cast<std::size_t>(tauMin), static_cast<std::size_t>(tauMax)};
}

/// The minimum of the first dip below the threshold, or nothing.
std::optional<std::size_t> firstDip(NormalisedDifference& cmnd, const LagRange& range,
                                    double threshold) {
  std::size_t tau = range.min;
  while (!(cmnd.at(tau) < threshold)) {
    if (++tau > range.max) return std::nullopt;
  }
  while (tau + 1 <= range.max && cmnd.at(tau + 1) < cmnd.at(tau)) ++tau;
  return tau;
}

double clampedConfidence(double cmnd) {
  const double confidence = std::min(1.0 - cmnd, 1.0);
  return confidence < 0.0 ? 0.0 : confidence;
}

}  // namespace

std::optional<Reading> detect(std::span<const float> samples, double sampleRate,
                              double minFrequency, double maxFrequency, double threshold,
                              NormalisedDifference& cmnd) {
  if (samples.size() < minimumSamples || !(sampleRate > minimumRate)) return std::nullopt;

  const float rms = centre(samples, cmnd.beginBlock(samples.size()));
  if (!(rms > silence)) return std::nullopt;

  const auto range = lagRange(samples.size(), sampleRate, minFrequency, maxFrequency);
  if (!range) return std::nullopt;

  const auto tau = firstDip(cmnd, *range, threshold);
  if (!tau) return std::nullopt;
  const double betterTau = parabolicTau(cmnd.upTo(std::min(*tau + 1, range->max)), *tau);
  if (betterTau <= 0.0) return std::nullopt;

  const double frequency = sampleRate / betterTau;
  const bool plausible = std::isfinite(frequency) && minFrequency * 0.9 <= frequency &&
                         frequency <= maxFrequency * 1.05;
  if (!plausible) return std::nullopt;
  return Reading{frequency, clampedConfidence(cmnd.at(*tau)), rms};
}

std::optional<Reading> detect(std::span<const float> samples, double sampleRate,
                              double minFrequency, double maxFrequency, double threshold) {
  NormalisedDifference cmnd;
  return detect(samples, sampleRate, minFrequency, maxFrequency, threshold, cmnd);
}

}  // namespace corvane::PitchDetector
