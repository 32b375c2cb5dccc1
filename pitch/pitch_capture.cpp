// SPDX-License-Identifier: MIT
#include "pitch/pitch_capture.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "pitch/normalised_difference.h"

namespace corvane {
namespace {

constexpr double lowestPitch = 27.0;
constexpr double highestPitch = 4300.0;
constexpr double threshold = 0.15;

/// The sum of the channels times the reciprocal of their number.
void mix(const AudioBuffer& buffer, std::vector<float>& mono) {
  mono.assign(buffer.frameLength, 0.0F);
  const std::uint32_t channels = std::max(buffer.channelCount, 1U);
  for (std::uint32_t channel = 0; channel < channels; ++channel) {
    const std::span<const float> samples(buffer.channels[channel], buffer.frameLength);
    for (std::size_t i = 0; i < mono.size(); ++i) mono[i] += samples[i];
  }
  if (channels > 1) {
    const float scale = 1.0F / static_cast<float>(channels);
    for (float& sample : mono) sample *= scale;
  }
}

}  // namespace

PitchCapture::Detect PitchCapture::musicalPitchDetector() {
  return [memory = NormalisedDifference()](std::span<const float> block, double rate) mutable {
    return PitchDetector::detect(block, rate, lowestPitch, highestPitch, threshold, memory);
  };
}

std::optional<PitchDetector::Reading> PitchCapture::detectMusicalPitch(std::span<const float> block,
                                                                       double rate) {
  return musicalPitchDetector()(block, rate);
}

std::shared_ptr<PitchCapture> PitchCapture::create(std::unique_ptr<TaskQueue> detectQueue,
                                                   Detect detect) {
  return std::shared_ptr<PitchCapture>(new PitchCapture(std::move(detectQueue), std::move(detect)));
}

PitchCapture::PitchCapture(std::unique_ptr<TaskQueue> queue, Detect detector)
    : detectQueue(std::move(queue)), detect(std::move(detector)) {
  pending.samples.reserve(blockSamples);
  analysed.samples.reserve(blockSamples);
}

void PitchCapture::consume(const AudioBuffer& buffer, const OnReading& onReading) {
  if (buffer.channels == nullptr || buffer.frameLength == 0) return;
  mix(buffer, mono);
  stashMono();
  while (enqueue(buffer.sampleRate, onReading)) continue;
}

void PitchCapture::stashMono() {
  const std::lock_guard held(gate);
  // Reserve the maximum that buffers of this length can need.
  stash.reserve(blockSamples + mono.size());
  stash.insert(stash.end(), mono.begin(), mono.end());
}

/// Cuts the oldest complete block off the stash, if any, and queues it for analysis.
bool PitchCapture::enqueue(double rate, const OnReading& onReading) {
  {
    const std::lock_guard held(gate);
    if (stash.size() < blockSamples) return false;
    const auto first = stash.begin();
    pending.samples.assign(first, first + std::ptrdiff_t{blockSamples});
    pending.rate = rate;
    stash.erase(first, first + std::ptrdiff_t{hopSamples});
    if (std::exchange(draining, true)) return true;
  }
  detectQueue->async([weak = weak_from_this(), callback = onReading] {
    if (const auto self = weak.lock()) self->drain(callback);
  });
  return true;
}

void PitchCapture::drain(const OnReading& onReading) {
  std::unique_lock held(gate);
  while (!pending.samples.empty()) {
    std::swap(pending, analysed);
    pending.samples.clear();
    held.unlock();
    onReading(detect(analysed.samples, analysed.rate));
    held.lock();
  }
  // Under the same lock as the test above; otherwise a block could be left without a drain job.
  draining = false;
}

void PitchCapture::reset() {
  const std::lock_guard held(gate);
  stash.clear();
  pending.samples.clear();
}

}  // namespace corvane
