// SPDX-License-Identifier: MIT
#include "platform/pulse/microphone_feed.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {
namespace {

/// A detector that analyses two buffers at a time finds no pitch immediately.
constexpr std::size_t firstSilentBuffers = 2;
/// PipeWire delivers the first quantum of a device and drops the second without notice.
constexpr double secondsToSettle = 0.05;
/// A PipeWire that was suspended keeps dropping some quanta after it resumes, for 0.4 s on a busy
/// machine.
constexpr double secondsToSettleAfterAStall = 0.5;
/// A busy PulseAudio sends sound of the old device after the move callback, even between sound of
/// the new one. Each lasts `silenceTimeout` at most, or there would have been silence.
constexpr double secondsToSettleAfterAMove =
    2.0 * std::chrono::duration<double>(MicrophoneFeed::silenceTimeout).count();

}  // namespace

MicrophoneFeed::MicrophoneFeed(std::uint32_t frames, AudioInput::Tap receiver,
                               std::function<void(std::chrono::milliseconds)> watching)
    : bufferFrames(frames), silent(std::move(watching)), tap(std::move(receiver)) {}

void MicrophoneFeed::begin(const AudioFormat& format) {
  pause = std::chrono::milliseconds(std::lround(1000.0 * bufferFrames / format.sampleRate));
  rate = format.sampleRate;
  unsettled = framesIn(secondsToSettle);
  const std::lock_guard held(gate);
  if (tap) collector.emplace(bufferFrames, format, tap);
}

void MicrophoneFeed::expectSound(Timers& timers) {
  if (timer) return;
  timer.emplace(timers);
  timer->arm(silenceTimeout, [this] { quiet(); });
}

void MicrophoneFeed::append(const float* interleaved, std::size_t frames) {
  if (std::exchange(silence, {}) > silence.zero()) {
    interrupt();
    settle(secondsToSettleAfterAStall);
  }
  if (timer) timer->arm(silenceTimeout, [this] { quiet(); });
  if (unsettled > 0) {
    unsettled -= std::min(unsettled, frames);
    return;
  }
  const std::lock_guard held(gate);
  if (collector) collector->append(interleaved, frames);
}

void MicrophoneFeed::moved() {
  interrupt();
  settle(secondsToSettleAfterAMove);
}

void MicrophoneFeed::interrupt() {
  settle(secondsToSettle);
  const std::lock_guard held(gate);
  if (collector) collector->drop();
}

/// In whole buffers, so that the next one still ends with a fragment of the server and need not
/// wait for another.
std::size_t MicrophoneFeed::framesIn(double seconds) const {
  return bufferFrames * static_cast<std::size_t>(std::ceil(seconds * rate / bufferFrames));
}

void MicrophoneFeed::settle(double seconds) {
  unsettled = std::max(unsettled, framesIn(seconds));
}

void MicrophoneFeed::end() {
  timer.reset();
}

void MicrophoneFeed::quiet() {
  interrupt();
  silence = silenceTimeout;
  keepSilence(firstSilentBuffers * bufferFrames);
}

void MicrophoneFeed::keepSilence(std::size_t frames) {
  timer->arm(pause, [this] {
    silence += pause;
    keepSilence(bufferFrames);
  });
  {
    const std::lock_guard held(gate);
    if (collector) collector->append(nullptr, frames);
  }
  silent(silence);
}

void MicrophoneFeed::mute() {
  std::optional<BufferCollector> last;
  AudioInput::Tap tapToo;
  const std::lock_guard held(gate);
  last.swap(collector);
  tapToo.swap(tap);
}

}  // namespace corvane
