// SPDX-License-Identifier: MIT
#include "tests/support/signals.h"

#include <cmath>
#include <numbers>
#include <random>

namespace corvane::signals {
namespace {

/// The element i of a signal is f(i).
template <typename F>
Samples generate(std::size_t length, F f) {
  Samples samples(length);
  for (std::size_t i = 0; i < length; ++i) samples[i] = static_cast<float>(f(i));
  return samples;
}

}  // namespace

Samples sine(double frequency, double rate, std::size_t length, SineShape shape) {
  const double step = 2.0 * std::numbers::pi * frequency / rate;
  return generate(length, [=](std::size_t i) {
    return shape.amplitude * std::sin(step * static_cast<double>(i) + shape.phase);
  });
}

Samples chirp(double first, double last, double rate, std::size_t length) {
  const double glide = (last - first) / static_cast<double>(length);
  return generate(length, [=](std::size_t i) {
    const auto n = static_cast<double>(i);
    const double cycles = (first + glide * n / 2.0) * n / rate;
    return 0.5 * std::sin(2.0 * std::numbers::pi * cycles);
  });
}

Samples noise(std::size_t length, std::uint32_t seed, double amplitude) {
  // The standard specifies the engine's output, but not that of distributions.
  std::mt19937 engine(seed);
  return generate(length, [&](std::size_t) {
    return amplitude * (static_cast<double>(engine()) / 0x1p31 - 1.0);
  });
}

Samples periodicNoise(std::size_t period, std::size_t length, std::uint32_t seed) {
  const Samples once = noise(period, seed);
  return generate(length, [&](std::size_t i) { return once[i % period]; });
}

Samples pluckedString(std::size_t delay, std::size_t length, std::uint32_t seed) {
  Samples string = noise(delay + 1, seed);
  while (string.size() < delay + 1 + length) {
    const std::size_t now = string.size();
    string.push_back(0.5F * (string[now - delay] + string[now - delay - 1]));
  }
  return Samples(string.end() - static_cast<std::ptrdiff_t>(length), string.end());
}

double pluckedPitch(std::size_t delay, double rate) {
  return rate / (static_cast<double>(delay) + 0.5);
}

std::size_t pluckedDelay(double frequency, double rate) {
  return static_cast<std::size_t>(std::lround(rate / frequency - 0.5));
}

Samples constant(float value, std::size_t length) {
  return Samples(length, value);
}

Samples step(float value, std::size_t start, std::size_t length) {
  return generate(length, [=](std::size_t i) { return i < start ? 0.0F : value; });
}

Samples impulses(float value, std::size_t period, std::size_t length) {
  return generate(length, [=](std::size_t i) { return i % period == 0 ? value : 0.0F; });
}

Samples ramp(std::size_t first, std::size_t length) {
  return generate(length, [=](std::size_t i) { return static_cast<double>(first + i); });
}

Samples sum(Samples a, const Samples& b) {
  for (std::size_t i = 0; i < a.size(); ++i) a[i] += b[i];
  return a;
}

Samples scaled(Samples samples, float factor) {
  for (float& sample : samples) sample *= factor;
  return samples;
}

}  // namespace corvane::signals
