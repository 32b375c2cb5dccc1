// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include "platform/audio_input.h"

namespace corvane {

/// The loudspeaker. Every member is called on the main thread and returns without waiting for the
/// audio server.
class AudioOutput {
 public:
  /// Called once when a buffer has ended, played or cut off, on a thread of the output.
  using Ended = std::function<void()>;

  virtual ~AudioOutput() = default;

  virtual bool isRunning() const = 0;

  /// Sets the output up, again if it was set up before, and starts it. False without a server or a
  /// device to play on.
  virtual bool start(const AudioFormat& format) = 0;

  /// Plays `samples` (one channel, full scale 1.0, at the rate given to `start`) immediately and
  /// cuts off a buffer that is still playing. Only while running.
  virtual void play(std::vector<float> samples, Ended ended) = 0;
};

}  // namespace corvane
