// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace corvane {

inline constexpr double toneSampleRate = 44100.0;  ///< Hz

/// A sine of `frequency` Hz, 1.05 s at `sampleRate` Hz, with a peak of 0.22, a linear fade-in of
/// 20 ms and a linear fade-out of 60 ms; the fade-out wins where both would apply. Any thread.
std::vector<float> toneBuffer(double frequency, double sampleRate);

}  // namespace corvane
