// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace corvane {

/// DifferencePath::sum for 32 lags. Requires AVX-512.
void sumAvx512(const double* x, std::size_t window, std::size_t firstLag, double* d);

}  // namespace corvane
