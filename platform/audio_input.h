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

/// The microphone. What happens to devices and servers while it runs stays below it: while no sound
/// comes, the tap is given silence, and sound again when there is some, perhaps in another format;
/// the first buffer after each change is marked `afterGap`. Every member is called on the main
/// thread and returns without waiting for the audio server.
class AudioInput {
 public:
  /// Called with each buffer on the audio system's own thread, between `start` and `stop`.
  using Tap = std::function<void(const AudioBuffer&)>;
  /// Told once how a start ended: true when sound is being delivered.
  using Started = std::function<void(bool)>;

  virtual ~AudioInput() = default;

  /// True from `start` until `stop`, or until the start has failed.
  virtual bool isRunning() const = 0;

  /// When it returns, the tap is not running and will not be called, nor will `Started`.
  virtual void stop() = 0;

  /// Drops whatever sound was collected and not yet delivered. Only while stopped.
  virtual void reset() = 0;

  /// The device's own format; rate and channels are 0 when there is no microphone.
  virtual AudioFormat inputFormat() const = 0;

  /// The format in which sound would be delivered if the device does not tell its own.
  virtual AudioFormat outputFormat() const = 0;

  /// Replaces the tap: buffers of `frames` frames (a shorter one only at the end of a stream), at
  /// first in `format`. Only while stopped.
  virtual void installTap(std::uint32_t frames, const AudioFormat& format, Tap tap) = 0;

  /// Starts delivering to the installed tap. `started` is called on the main thread, within this
  /// call when the outcome is known at once, later otherwise.
  virtual void start(Started started) = 0;

  /// Calls `changed` when another start would end differently, until `watch` is called with null:
  /// unless sound is being delivered, after each change of whether there is a microphone and
  /// whether this program may use it; while sound is being delivered, once there has been none for
  /// 1.5 s, since a device that is being replaced is back sooner.
  virtual void watch(std::function<void()> changed) = 0;
};

}  // namespace corvane
