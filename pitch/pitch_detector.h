// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>

namespace corvane {

class NormalisedDifference;

/// The fundamental frequency of one block of sound by the YIN algorithm (de Cheveigné and Kawahara
/// 2002, J. Acoust. Soc. Am. 111): difference function, cumulative mean normalised difference,
/// absolute threshold, descent to the local minimum, parabolic refinement. Unlike in the paper, a
/// block that never dips below the threshold has no pitch.
namespace PitchDetector {

struct Reading {
  double frequency = 0.0;   ///< Hz
  double confidence = 0.0;  ///< 0 to 1: one minus the normalised difference at the chosen lag
  float rms = 0.0F;         ///< level of the block with its mean removed, full scale 1.0

  bool operator==(const Reading&) const = default;
};

/// `samples`: one channel, at least 1024. `sampleRate` in Hz, above 8000. The frequency bounds in
/// Hz must be positive and finite, and a period at most 2^63 samples (else the program stops).
/// `threshold`: the normalised difference, 0 to 1, below which a lag counts as a period.
///
/// Returns nothing if the block is too short, the rate too low, the level too low (rms not above
/// 0.003) or there is no pitch between 0.9 x `minFrequency` and 1.05 x `maxFrequency`. The same
/// input gives the same bits on every machine. Stateless; any thread.
std::optional<Reading> detect(std::span<const float> samples, double sampleRate,
                              double minFrequency, double maxFrequency, double threshold);

/// The same, with memory that the caller keeps: no allocation once it has held a block of this
/// length. Its previous content has no effect.
std::optional<Reading> detect(std::span<const float> samples, double sampleRate,
                              double minFrequency, double maxFrequency, double threshold,
                              NormalisedDifference& memory);

}  // namespace PitchDetector
}  // namespace corvane
