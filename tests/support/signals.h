#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Sound made by arithmetic, one channel, full scale 1.0. Nothing here is random: what looks like
/// noise comes from its seed alone and is the same on every machine. Any thread.
namespace corvane::signals {

using Samples = std::vector<float>;

struct SineShape {
  double amplitude = 0.5;
  double phase = 0.0;  ///< radians, at the first sample
};

/// `frequency` and `rate` in Hz.
Samples sine(double frequency, double rate, std::size_t length, SineShape shape = {});

/// A sine whose frequency glides evenly from `first` to `last` (Hz) over the whole length.
Samples chirp(double first, double last, double rate, std::size_t length);

/// Uniform between -amplitude and +amplitude.
Samples noise(std::size_t length, std::uint32_t seed, double amplitude = 0.5);

/// One stretch of `period` samples of noise, repeated: exactly periodic, and like nothing else at
/// any shorter lag.
Samples periodicNoise(std::size_t period, std::size_t length, std::uint32_t seed);

/// A plucked string after Karplus and Strong ("Digital Synthesis of Plucked-String and Drum
/// Timbres", Computer Music Journal 7, 1983): a delay line of `delay` samples, filled with noise,
/// whose output is averaged with the sample before it and fed back. The average delays every
/// frequency by half a sample, so all partials are exact multiples of `pluckedPitch`.
Samples pluckedString(std::size_t delay, std::size_t length, std::uint32_t seed);

/// The fundamental in Hz of a plucked string of this delay.
double pluckedPitch(std::size_t delay, double rate);

/// The delay whose string comes nearest to `frequency` (Hz).
std::size_t pluckedDelay(double frequency, double rate);

Samples constant(float value, std::size_t length);

/// Zero up to `start`, `value` from there on.
Samples step(float value, std::size_t start, std::size_t length);

/// Zero but for `value` at every multiple of `period`.
Samples impulses(float value, std::size_t period, std::size_t length);

/// 0, 1, 2 ... from `first` on, each exact (below 2^24), so that a sample tells its own position.
Samples ramp(std::size_t first, std::size_t length);

/// The two sample by sample.
Samples sum(Samples a, const Samples& b);

Samples scaled(Samples samples, float factor);

}  // namespace corvane::signals
