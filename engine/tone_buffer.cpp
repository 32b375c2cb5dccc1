// SPDX-License-Identifier: MIT
#include "engine/tone_buffer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "base/require.h"

namespace corvane {
namespace {

constexpr double toneSeconds = 1.05;
constexpr double attackSeconds = 0.02;
constexpr double releaseSeconds = 0.06;
constexpr float peak = 0.22F;
constexpr float twoPi = 6.283185F;

struct Envelope {
  std::int64_t frames;
  std::int64_t attack;
  std::int64_t release;

  /// Starts at 0 and ends at one step above it.
  float at(std::int64_t i) const {
    if (i > frames - release) {
      return static_cast<float>(frames - i) /
             static_cast<float>(std::max<std::int64_t>(release, 1));
    }
    if (i < attack) return static_cast<float>(i) / static_cast<float>(attack);
    return 1.0F;
  }
};

std::uint32_t frameCount(double sampleRate) {
  const double frames = sampleRate * toneSeconds;
  require(frames >= 0.0 && frames < 0x1p32, "a tone's length fits 32 bits");
  return static_cast<std::uint32_t>(frames);
}

}  // namespace

std::vector<float> toneBuffer(double frequency, double sampleRate) {
  const Envelope envelope{frameCount(sampleRate),
                          static_cast<std::int64_t>(sampleRate * attackSeconds),
                          static_cast<std::int64_t>(sampleRate * releaseSeconds)};
  const auto hertz = static_cast<float>(frequency);
  const auto rate = static_cast<float>(sampleRate);
  std::vector<float> samples(static_cast<std::size_t>(envelope.frames));
  for (std::int64_t i = 0; i < envelope.frames; ++i) {
    const float phase = hertz * twoPi * static_cast<float>(i) / rate;
    samples[static_cast<std::size_t>(i)] = std::sin(phase) * (envelope.at(i) * peak);
  }
  return samples;
}

}  // namespace corvane
