// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "base/audio_buffer.h"

namespace corvane {

struct AudioFormat {
  double sampleRate = 0.0;  ///< Hz; 0 when there is no device
  std::uint32_t channelCount = 0;

  bool operator==(const AudioFormat&) const = default;
};

/// The microphone. While it runs, it handles every change of devices and servers itself: the tap
/// gets silence while there is no sound, then sound again, perhaps in another format. The first
/// buffer after each change is marked `afterGap`. Every member is called on the main thread and
/// returns without waiting for the audio server.
class AudioInput {
 public:
  /// Called with each buffer on the audio system's own thread, between `start` and `stop`.
  using Tap = std::function<void(const AudioBuffer&)>;
  /// Called once with the outcome of a start: true when sound is being delivered.
  using Started = std::function<void(bool)>;

  virtual ~AudioInput() = default;

  /// True from `start` until `stop`, or until the start has failed.
  virtual bool isRunning() const = 0;

  /// When this returns, the tap is not running. Neither it nor `Started` will be called.
  virtual void stop() = 0;

  /// Drops sound that was collected and not yet delivered. Only while stopped.
  virtual void reset() = 0;

  /// The device's own format; rate and channels are 0 when there is no microphone.
  virtual AudioFormat inputFormat() const = 0;

  /// The format in which sound is delivered if the device does not report its own.
  virtual AudioFormat outputFormat() const = 0;

  /// Replaces the tap, which gets buffers of `frames` frames (a shorter one only at the end of a
  /// stream), initially in `format`. Only while stopped.
  virtual void installTap(std::uint32_t frames, const AudioFormat& format, Tap tap) = 0;

  /// Starts delivery to the installed tap. `started` is called on the main thread, within this call
  /// if the outcome is known immediately, otherwise later.
  virtual void start(Started started) = 0;

  /// Calls `changed` when another start would end differently, until `watch` is called with null:
  /// unless sound is being delivered, after each change of whether there is a microphone and
  /// whether this program may use it; while sound is being delivered, once there has been none for
  /// 1.5 s, since a device that is being replaced is back sooner.
  virtual void watch(std::function<void()> changed) = 0;
};

}  // namespace corvane
