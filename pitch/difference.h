#pragma once

#include <cstddef>
#include <span>

namespace corvane {

/// Fills d[tau], for tau from 1 to d.size() - 1, with the sum of (x[i] - x[i + tau])^2 over i from
/// 0 to `window` - 1, and d[0] with 0: equation 6 of de Cheveigné and Kawahara, "YIN, a fundamental
/// frequency estimator for speech and music", J. Acoust. Soc. Am. 111 (2002).
///
/// Samples are widened to double before the subtraction and every sum runs in index order into one
/// accumulator, so the result is the same to the last bit on every machine. Needs
/// window + d.size() - 1 <= x.size() and a non-empty `d`. Any thread.
void differenceFunction(std::span<const float> x, std::size_t window, std::span<double> d);

}  // namespace corvane
