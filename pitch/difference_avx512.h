#pragma once

#include <cstddef>

namespace corvane {

/// DifferencePath::sum for 32 lags at once, on a processor that has AVX-512.
void sumAvx512(const double* x, std::size_t window, std::size_t firstLag, double* d);

}  // namespace corvane
