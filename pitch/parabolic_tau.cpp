// SPDX-License-Identifier: MIT
#include "pitch/parabolic_tau.h"

#include <cmath>

namespace corvane {

double parabolicTau(std::span<const double> cmnd, std::size_t tau) {
  const auto integerLag = static_cast<double>(tau);
  if (tau < 1 || tau + 1 >= cmnd.size()) return integerLag;

  const double s0 = cmnd[tau - 1];
  const double s1 = cmnd[tau];
  const double s2 = cmnd[tau + 1];
  const double curvature = s2 + (s0 - (s1 + s1));
  if (!(std::abs(curvature) > 1e-12)) return integerLag;
  return integerLag + (s0 - s2) / (curvature + curvature);
}

}  // namespace corvane
