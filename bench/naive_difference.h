// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>

namespace corvane {

/// Fills d[tau], for tau from 1 to d.size() - 1, with the sum of (x[i] - x[i + tau])^2 over i from
/// 0 to `window` - 1, with two plain loops.
void naiveDifference(std::span<const float> x, std::size_t window, std::span<double> d);

}  // namespace corvane
