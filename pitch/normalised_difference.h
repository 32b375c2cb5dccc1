// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "pitch/difference.h"

namespace corvane {

/// The cumulative mean normalised difference function (equation 8 of de Cheveigné and Kawahara
/// 2002), computed lazily: lags beyond the dip that gives the pitch cost nothing.
///
/// Reuses its memory; allocates only for a block longer than all before. One thread at a time.
class NormalisedDifference {
 public:
  explicit NormalisedDifference(const DifferencePath& path = fastestDifferencePath());

  /// Drops the last block and returns the buffer for the next one, which the caller must fill
  /// before any other call. At least one sample.
  std::span<double> beginBlock(std::size_t samples);

  /// The values at lags 0 to `tau`, which is at most half the block, the window. The value is 1 at
  /// lag 0 and where the sum of all differences so far is 0.
  std::span<const double> upTo(std::size_t tau);

  /// The value at one lag.
  double at(std::size_t tau) { return upTo(tau)[tau]; }

 private:
  void computeMore();

  DifferencePath path;
  std::vector<double> x;       ///< the block, padded for what the last group of lags reads
  std::vector<double> values;  ///< by lag, padded to whole groups
  std::size_t window = 0;
  std::size_t known = 0;  ///< how many of `values` are computed
  double runningSum = 0.0;
};

}  // namespace corvane
