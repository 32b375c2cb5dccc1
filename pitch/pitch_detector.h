#pragma once

#include <optional>
#include <span>

namespace corvane {

class NormalisedDifference;

/// The fundamental frequency of one block of sound, by YIN: difference function, cumulative mean
/// normalised difference, absolute threshold, descent to the local minimum, parabolic refinement
/// (de Cheveigné and Kawahara 2002, J. Acoust. Soc. Am. 111). Unlike the paper's, a block that
/// never dips below the threshold has no pitch.
namespace PitchDetector {

struct Reading {
  double frequency = 0.0;   ///< Hz
  double confidence = 0.0;  ///< 0 to 1: one minus the normalised difference at the chosen lag
  float rms = 0.0F;         ///< level of the block with its mean removed, full scale 1.0

  bool operator==(const Reading&) const = default;
};

/// `samples`: one channel, at least 1024 of them. `sampleRate` in Hz, above 8000. The frequency
/// bounds in Hz, positive and finite, and such that a period is no more than 2^63 samples (else the
/// program stops). `threshold`: the normalised difference, 0 to 1, below which a lag counts as a
/// period.
///
/// Nothing when the block is too short, too slow, too quiet (rms not above 0.003) or holds no pitch
/// between 0.9 x `minFrequency` and 1.05 x `maxFrequency`. The same input gives the same bits on
/// every machine. Keeps nothing between calls; any thread.
std::optional<Reading> detect(std::span<const float> samples, double sampleRate,
                              double minFrequency, double maxFrequency, double threshold);

/// The same in memory that the caller keeps from block to block: once that has held a block of this
/// length, nothing is allocated. What it held before changes nothing.
std::optional<Reading> detect(std::span<const float> samples, double sampleRate,
                              double minFrequency, double maxFrequency, double threshold,
                              NormalisedDifference& memory);

}  // namespace PitchDetector
}  // namespace corvane
