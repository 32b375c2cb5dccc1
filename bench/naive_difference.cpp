// SPDX-License-Identifier: MIT
#include "bench/naive_difference.h"

namespace corvane {

void naiveDifference(std::span<const float> x, std::size_t window, std::span<double> d) {
  for (std::size_t tau = 1; tau < d.size(); ++tau) {
    double sum = 0.0;
    for (std::size_t i = 0; i < window; ++i) {
      const double apart = static_cast<double>(x[i]) - static_cast<double>(x[i + tau]);
      sum += apart * apart;
    }
    d[tau] = sum;
  }
}

}  // namespace corvane
