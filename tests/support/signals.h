// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Synthesised sound, one channel, full scale 1.0. Deterministic: noise depends only on its seed
/// and is the same on every machine. Any thread.
namespace corvane::signals {

using Samples = std::vector<float>;

struct SineShape {
  double amplitude = 0.5;
  double phase = 0.0;  ///< radians, at the first sample
};

/// `frequency` and `rate` in Hz.
Samples sine(double frequency, double rate, std::size_t length, SineShape shape = {});

/// A sine whose frequency changes linearly from `first` to `last` (Hz).
Samples chirp(double first, double last, double rate, std::size_t length);

/// Uniform between -amplitude and +amplitude.
Samples noise(std::size_t length, std::uint32_t seed, double amplitude = 0.5);

/// `period` samples of noise, repeated: exactly periodic, and uncorrelated at shorter lags.
Samples periodicNoise(std::size_t period, std::size_t length, std::uint32_t seed);

/// A plucked string after Karplus and Strong ("Digital Synthesis of Plucked-String and Drum
/// Timbres", Computer Music Journal 7, 1983): a delay line of `delay` samples, filled with noise,
/// whose output is averaged with the sample before it and fed back. The average delays every
/// frequency by half a sample, so all partials are exact multiples of `pluckedPitch`.
Samples pluckedString(std::size_t delay, std::size_t length, std::uint32_t seed);

/// The fundamental in Hz of a plucked string of this delay.
double pluckedPitch(std::size_t delay, double rate);

/// The delay whose string is nearest to `frequency` (Hz).
std::size_t pluckedDelay(double frequency, double rate);

Samples constant(float value, std::size_t length);

/// Zero before `start`, then `value`.
Samples step(float value, std::size_t start, std::size_t length);

/// `value` at every multiple of `period`, otherwise zero.
Samples impulses(float value, std::size_t period, std::size_t length);

/// `first`, `first` + 1, ..., each exact (below 2^24), so that a sample identifies its position.
Samples ramp(std::size_t first, std::size_t length);

/// The sum, sample by sample.
Samples sum(Samples a, const Samples& b);

Samples scaled(Samples samples, float factor);

}  // namespace corvane::signals
