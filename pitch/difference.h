#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace corvane {

/// One way to compute the difference function, equation 6 of de Cheveigné and Kawahara, "YIN, a
/// fundamental frequency estimator for speech and music", J. Acoust. Soc. Am. 111 (2002): the sum
/// of (x[i] - x[i + tau])^2 over i from 0 to `window` - 1, for several lags tau side by side.
///
/// Every sum runs in index order into one accumulator, so all ways give the same bits. Any thread.
struct DifferencePath {
  std::string_view name;  ///< of what it needs of the processor
  std::size_t lags;       ///< how many it computes at once
  bool (*runsHere)();     ///< whether this processor, under this system, has what it needs

  /// Fills d[0] to d[lags - 1] for the lags from `firstLag` on. Reads x[0] to
  /// x[window + firstLag + lags - 2]; a sample that no lag of interest reaches may be anything.
  void (*sum)(const double* x, std::size_t window, std::size_t firstLag, double* d);
};

/// Every path this program was built with, fastest first. The last one runs everywhere.
std::span<const DifferencePath> differencePaths();

/// The first that runs on this machine.
const DifferencePath& fastestDifferencePath();

}  // namespace corvane
