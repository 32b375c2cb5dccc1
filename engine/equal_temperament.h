// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstdint>

namespace corvane {

/// The frequency (Hz) of a MIDI note when A4 is `a4` (Hz).
inline double targetFrequency(std::int64_t midi, double a4) {
  return a4 * std::pow(2.0, static_cast<double>(midi - 69) / 12.0);
}

/// How far `frequency` lies above `target`, both Hz; exactly 0 when either is not positive.
inline double centsBetween(double frequency, double target) {
  return target > 0.0 && frequency > 0.0 ? 1200.0 * std::log2(frequency / target) : 0.0;
}

}  // namespace corvane
