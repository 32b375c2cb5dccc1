// SPDX-License-Identifier: MIT
#include "pitch/tests/reference_detector.h"

#include <cmath>

namespace corvane::reference {
namespace {

std::vector<double> difference(const std::vector<float>& samples, std::int64_t tauMax) {
  const std::size_t window = samples.size() / 2;
  const float* x = samples.data();
  std::vector<double> d = {0};
  for (std::int64_t tau = 1; tau <= tauMax; tau++) {
    double sum = 0;
    for (std::size_t i = 0; i < window; i++) {
      const double left = static_cast<double>(x[i]);
      const double right = static_cast<double>(x[i + static_cast<std::size_t>(tau)]);
      sum += (left - right) * (left - right);
    }
    d.push_back(sum);
  }
  return d;
}

std::vector<double> normalised(const std::vector<double>& d) {
  std::vector<double> cmnd(d.size(), 1.0);
  double runningSum = 0;
  for (std::size_t tau = 1; tau < d.size(); tau++) {
    runningSum = runningSum + d[tau];
    if (runningSum > 0) {
      const double product = d[tau] * static_cast<double>(tau);
      cmnd[tau] = product / runningSum;
    }
  }
  return cmnd;
}

double refined(const std::vector<double>& cmnd, std::size_t tau) {
  if (tau == 0 || tau == cmnd.size() - 1) return static_cast<double>(tau);
  const double before = cmnd[tau - 1];
  const double at = cmnd[tau];
  const double after = cmnd[tau + 1];
  const double twice = at + at;
  const double a = after + (before - twice);
  if (std::isnan(a) || std::fabs(a) <= 1e-12) return static_cast<double>(tau);
  return static_cast<double>(tau) + (before - after) / (a + a);
}

}  // namespace

Centred centre(const std::vector<float>& samples) {
  const float n = static_cast<float>(samples.size());
  float total = 0;
  for (std::size_t i = 0; i < samples.size(); i++) total = total + samples[i];
  const float mean = total / n;

  std::vector<float> x;
  for (std::size_t i = 0; i < samples.size(); i++) x.push_back(samples[i] - mean);
  float squares = 0;
  for (std::size_t i = 0; i < x.size(); i++) {
    const float square = x[i] * x[i];
    squares = squares + square;
  }
  return {x, sqrtf(squares / n)};
}

std::vector<double> normalisedDifference(const std::vector<float>& x, std::int64_t tauMax) {
  return normalised(difference(x, tauMax));
}

std::optional<PitchDetector::Reading> detect(const std::vector<float>& samples, double sampleRate,
                                             double minFrequency, double maxFrequency,
                                             double threshold) {
  if (samples.size() < 1024) return {};
  if (std::isnan(sampleRate) || sampleRate <= 8000) return {};

  const Centred centred = centre(samples);
  if (std::isnan(centred.rms) || centred.rms <= 0.003f) return {};

  std::int64_t tauMin = static_cast<std::int64_t>(std::floor(sampleRate / maxFrequency));
  if (tauMin < 2) tauMin = 2;
  std::int64_t tauMax = static_cast<std::int64_t>(std::ceil(sampleRate / minFrequency));
  const std::int64_t halfBlock = static_cast<std::int64_t>(samples.size()) / 2 - 2;
  if (tauMax > halfBlock) tauMax = halfBlock;
  if (tauMax - tauMin < 2) return {};

  const std::vector<double> cmnd = normalisedDifference(centred.x, tauMax);

  std::optional<std::size_t> dip;
  for (std::int64_t tau = tauMin; tau <= tauMax && !dip; tau++) {
    if (cmnd[static_cast<std::size_t>(tau)] < threshold) dip = static_cast<std::size_t>(tau);
  }
  if (!dip) return {};
  std::size_t tau = *dip;
  while (tau + 1 < cmnd.size() && cmnd[tau + 1] < cmnd[tau]) tau++;

  const double betterTau = refined(cmnd, tau);
  if (betterTau <= 0) return {};
  const double frequency = sampleRate / betterTau;
  if (std::isnan(frequency) || std::isinf(frequency)) return {};
  if (frequency < minFrequency * 0.9 || frequency > maxFrequency * 1.05) return {};

  double confidence = 1.0 - cmnd[tau];
  if (confidence > 1.0) confidence = 1.0;
  if (confidence < 0.0) confidence = 0.0;
  return PitchDetector::Reading{frequency, confidence, centred.rms};
}

}  // namespace corvane::reference
