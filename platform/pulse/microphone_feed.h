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

/// What the tap is given from first to last, whatever becomes of the recordings meanwhile: sound
/// while there is some, and silence while it stays away. No buffer holds the sound of two moments.
/// On the loop's thread, unless it says otherwise.
class MicrophoneFeed {
 public:
  /// How long we wait for sound before there is silence: longer than any device takes for a
  /// fragment, short enough that a note that has gone is not shown for a second.
  static constexpr std::chrono::milliseconds silenceTimeout{500};

  /// `frames` is the length of every buffer. `silent` is told after `silenceTimeout` without sound,
  /// and then with every silent buffer, how long that has lasted. Any thread.
  MicrophoneFeed(std::uint32_t frames, AudioInput::Tap tap,
                 std::function<void(std::chrono::milliseconds)> silent);

  /// What comes from now on is in `format`.
  void begin(const AudioFormat& format);
  /// Sound should come from now on, so that its absence counts.
  void expectSound(Timers& timers);
  /// `interleaved` frames of the format of `begin`, or silence when it is null.
  void append(const float* interleaved, std::size_t frames);
  /// What comes next does not follow what has come.
  void interrupt();
  /// What comes next is from another device.
  void moved();
  /// No more silence either. Must be called before the feed is destroyed.
  void end();

  /// When it returns, the tap is not running, will not be called, and is destroyed. Any thread;
  /// waits for nothing but a tap that is running.
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
  std::size_t unsettled = 0;                 ///< frames that are still left out after a gap
  std::chrono::milliseconds silence{0};      ///< so far; 0 while there is sound
  std::mutex gate;                           ///< held while the tap runs
  AudioInput::Tap tap;                       ///< under `gate`; none once muted
  std::optional<BufferCollector> collector;  ///< under `gate`; none before `begin` or once muted
};

}  // namespace corvane
