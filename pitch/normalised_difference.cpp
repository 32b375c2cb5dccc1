// SPDX-License-Identifier: MIT
#include "pitch/normalised_difference.h"

#include <algorithm>

#include "base/require.h"

namespace corvane {

NormalisedDifference::NormalisedDifference(const DifferencePath& chosen) : path(chosen) {}

std::span<double> NormalisedDifference::beginBlock(std::size_t samples) {
  require(samples > 0, "the block is not empty");
  window = samples / 2;
  x.resize(std::max(x.size(), samples + path.lags));
  values.resize(std::max(values.size(), window + 1 + path.lags));
  values[0] = 1.0;
  known = 1;
  runningSum = 0.0;
  return std::span(x).first(samples);
}

std::span<const double> NormalisedDifference::upTo(std::size_t tau) {
  require(tau <= window, "the lag is at most half the block");
  while (known <= tau) computeMore();
  return std::span(values).first(tau + 1);
}

void NormalisedDifference::computeMore() {
  double* const d = values.data() + known;
  path.sum(x.data(), window, known, d);
  for (std::size_t i = 0; i < path.lags; ++i) {
    runningSum += d[i];
    d[i] = runningSum > 0.0 ? d[i] * static_cast<double>(known + i) / runningSum : 1.0;
  }
  known += path.lags;
}

}  // namespace corvane
