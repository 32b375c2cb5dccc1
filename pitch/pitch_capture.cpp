#include "pitch/pitch_capture.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace corvane {
namespace {

/// The average of the channels, as the sum times the reciprocal of their number.
std::vector<float> mixToMono(const AudioBuffer& buffer) {
  const std::uint32_t channels = std::max(buffer.channelCount, 1U);
  std::vector<float> mono(buffer.frameLength, 0.0F);
  for (std::uint32_t channel = 0; channel < channels; ++channel) {
    const std::span<const float> samples(buffer.channels[channel], buffer.frameLength);
    for (std::size_t i = 0; i < mono.size(); ++i) mono[i] += samples[i];
  }
  if (channels > 1) {
    const float scale = 1.0F / static_cast<float>(channels);
    for (float& sample : mono) sample *= scale;
  }
  return mono;
}

}  // namespace

std::optional<PitchDetector::Reading> PitchCapture::detectMusicalPitch(std::span<const float> block,
                                                                       double rate) {
  return PitchDetector::detect(block, rate, 27.0, 4300.0, 0.15);
}

std::shared_ptr<PitchCapture> PitchCapture::create(std::unique_ptr<TaskQueue> detectQueue,
                                                   Detect detect) {
  return std::shared_ptr<PitchCapture>(new PitchCapture(std::move(detectQueue), std::move(detect)));
}

PitchCapture::PitchCapture(std::unique_ptr<TaskQueue> queue, Detect detector)
    : detectQueue(std::move(queue)), detect(std::move(detector)) {}

void PitchCapture::consume(const AudioBuffer& buffer, const OnReading& onReading) {
  if (buffer.channels == nullptr || buffer.frameLength == 0) return;
  for (std::vector<float>& block : stashAndCut(mixToMono(buffer))) {
    enqueue(std::move(block), buffer.sampleRate, onReading);
  }
}

std::vector<std::vector<float>> PitchCapture::stashAndCut(std::span<const float> mono) {
  std::vector<std::vector<float>> blocks;
  const std::lock_guard held(gate);
  stash.insert(stash.end(), mono.begin(), mono.end());
  while (stash.size() >= blockSamples) {
    const auto first = stash.begin();
    blocks.emplace_back(first, first + std::ptrdiff_t{blockSamples});
    stash.erase(first, first + std::ptrdiff_t{hopSamples});
  }
  return blocks;
}

void PitchCapture::enqueue(std::vector<float> block, double rate, const OnReading& onReading) {
  {
    const std::lock_guard held(gate);
    pending = PendingBlock{std::move(block), rate};
    if (std::exchange(draining, true)) return;
  }
  detectQueue->async([weak = weak_from_this(), onReading] {
    if (const auto self = weak.lock()) self->drain(onReading);
  });
}

void PitchCapture::drain(const OnReading& onReading) {
  std::unique_lock held(gate);
  while (auto block = std::exchange(pending, std::nullopt)) {
    held.unlock();
    onReading(detect(block->samples, block->rate));
    held.lock();
  }
  // Under the same lock as the test above, so that no block can be left with nobody to take it.
  draining = false;
}

void PitchCapture::reset() {
  const std::lock_guard held(gate);
  stash.clear();
  pending.reset();
}

}  // namespace corvane
