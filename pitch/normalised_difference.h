#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "pitch/difference.h"

namespace corvane {

/// The cumulative mean normalised difference function of one block after another (equation 8 of de
/// Cheveigné and Kawahara 2002), computed only as far as it is asked for: the lags beyond the dip
/// that a pitch is read from cost nothing.
///
/// Keeps its memory from block to block, and allocates only for a block longer than any before.
/// One thread at a time.
class NormalisedDifference {
 public:
  explicit NormalisedDifference(const DifferencePath& path = fastestDifferencePath());

  /// Forgets the last block and returns the room for the samples of the next, to be filled before
  /// anything is asked. At least one sample.
  std::span<double> beginBlock(std::size_t samples);

  /// The values at the lags from 0 to `tau`, which is at most half the block: 1 at lag 0 and
  /// wherever nothing has differed yet. The window is half the block.
  std::span<const double> upTo(std::size_t tau);

  /// The value at one lag.
  double at(std::size_t tau) { return upTo(tau)[tau]; }

 private:
  void computeMore();

  DifferencePath path;
  std::vector<double> x;  ///< the block, and room for what the last lags at once read beyond it
  std::vector<double>
      values;  ///< room for the lags up to half the block and those at once with them
  std::size_t window = 0;
  std::size_t known = 0;  ///< how many of `values` are computed
  double runningSum = 0.0;
};

}  // namespace corvane
