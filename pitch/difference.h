// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace corvane {

/// An implementation of the difference function, equation 6 of de Cheveigné and Kawahara, "YIN, a
/// fundamental frequency estimator for speech and music", J. Acoust. Soc. Am. 111 (2002): the sum
/// of (x[i] - x[i + tau])^2 over i from 0 to `window` - 1, for several lags tau in parallel.
///
/// Every sum runs in index order into one accumulator, so all paths give the same bits. Any thread.
struct DifferencePath {
  std::string_view name;  ///< the instruction set
  std::size_t lags;       ///< computed per call
  bool (*runsHere)();     ///< whether processor and system support it

  /// Fills d[0] to d[lags - 1] for the lags from `firstLag`. Reads x[0] to
  /// x[window + firstLag + lags - 2]; samples beyond those of the needed lags may have any value.
  void (*sum)(const double* x, std::size_t window, std::size_t firstLag, double* d);
};

/// All paths in this build, fastest first. The last runs everywhere.
std::span<const DifferencePath> differencePaths();

/// The first path that runs on this machine.
const DifferencePath& fastestDifferencePath();

}  // namespace corvane
