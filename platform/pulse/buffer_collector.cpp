// SPDX-License-Identifier: MIT
#include "platform/pulse/buffer_collector.h"

#include <algorithm>
#include <utility>

#include "base/require.h"

namespace corvane {

BufferCollector::BufferCollector(std::uint32_t frames, const AudioFormat& format,
                                 AudioInput::Tap receiver)
    : tap(std::move(receiver)),
      channelCount(format.channelCount),
      capacity(frames),
      samples(channelCount * capacity) {
  require(capacity > 0 && channelCount > 0, "a buffer has frames and channels");
  for (std::size_t c = 0; c < channelCount; ++c) channels.push_back(samples.data() + c * capacity);
  whole = {channels.data(), frames, format.channelCount, format.sampleRate, true};
}

void BufferCollector::drop() {
  filled = 0;
  whole.afterGap = true;
}

void BufferCollector::append(const float* interleaved, std::size_t frames) {
  while (frames > 0) {
    const std::size_t taken = std::min(frames, capacity - filled);
    copy(interleaved, taken);
    if (interleaved != nullptr) interleaved += taken * channelCount;
    frames -= taken;
    if (filled < capacity) return;
    filled = 0;
    tap(whole);
    whole.afterGap = false;
  }
}

void BufferCollector::copy(const float* interleaved, std::size_t frames) {
  for (std::size_t c = 0; c < channelCount; ++c) {
    float* const channel = samples.data() + c * capacity + filled;
    for (std::size_t i = 0; i < frames; ++i) {
      channel[i] = interleaved == nullptr ? 0.0F : interleaved[i * channelCount + c];
    }
  }
  filled += frames;
}

}  // namespace corvane
