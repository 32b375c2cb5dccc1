// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>

#include "platform/audio_input.h"
#include "platform/pulse/buffer_collector.h"
#include "platform/pulse/timer.h"

namespace corvane {

/// Feeds the tap across all recordings of a run: sound while there is some, otherwise silence.
/// Every buffer is continuous. On the loop's thread, except where noted.
class MicrophoneFeed {
 public:
  /// Silence begins after this time without sound: longer than any device takes for a fragment,
  /// short enough that a note that has ended is not shown for a second.
  static constexpr std::chrono::milliseconds silenceTimeout{500};

  /// `frames` is the length of each buffer. `silent` is called with the duration of the silence,
  /// after `silenceTimeout` without sound and then with each silent buffer. Any thread.
  MicrophoneFeed(std::uint32_t frames, AudioInput::Tap tap,
                 std::function<void(std::chrono::milliseconds)> silent);

  /// The next frames are in `format`.
  void begin(const AudioFormat& format);
  /// Sound is expected from now on; without it silence begins.
  void expectSound(Timers& timers);
  /// Frames in the format given to `begin`; silence if `interleaved` is null.
  void append(const float* interleaved, std::size_t frames);
  /// The next frames do not follow the previous ones.
  void interrupt();
  /// The next frames are from another device.
  void moved();
  /// Ends the silence too. Must be called before the feed is destroyed.
  void end();

  /// When this returns, the tap is not running, will not be called, and is destroyed. Any thread;
  /// waits only for a running tap.
  void mute();

 private:
  std::size_t framesIn(double seconds) const;
  void settle(double seconds);
  void quiet();
  void keepSilence(std::size_t frames);

  const std::uint32_t bufferFrames;
  const std::function<void(std::chrono::milliseconds)> silent;
  std::optional<Timer> timer;                ///< from `expectSound` to `end`
  std::chrono::milliseconds pause{0};        ///< of one buffer
  double rate = 0.0;                         ///< in Hz; 0 before `begin`
  std::size_t unsettled = 0;                 ///< frames still to be dropped after a gap
  std::chrono::milliseconds silence{0};      ///< duration so far; 0 while there is sound
  std::mutex gate;                           ///< held while the tap runs
  AudioInput::Tap tap;                       ///< under `gate`; none once muted
  std::optional<BufferCollector> collector;  ///< under `gate`; none before `begin` or once muted
};

}  // namespace corvane
