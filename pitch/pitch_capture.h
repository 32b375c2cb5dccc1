// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "base/audio_buffer.h"
#include "base/in_place_function.h"
#include "pitch/pitch_detector.h"
#include "pitch/serial_queue.h"

namespace corvane {

/// Passes recorded sound to the detector without blocking the recording: mixes to mono, cuts a
/// block of 8192 samples every 4096, and analyses the newest block on `detectQueue`. A block still
/// waiting when the next one arrives is dropped, so a slow machine shows fewer readings, never late
/// ones. After the first block nothing allocates unless a buffer is longer than all before.
class PitchCapture : public std::enable_shared_from_this<PitchCapture> {
 public:
  static constexpr std::size_t blockSamples = 8192;
  static constexpr std::size_t hopSamples = 4096;

  /// Called on `detectQueue` once per analysed block, with an empty value if it has no pitch.
  using OnReading = InPlaceFunction<void(const std::optional<PitchDetector::Reading>&), 32>;
  using Detect =
      std::function<std::optional<PitchDetector::Reading>(std::span<const float>, double rate)>;

  /// The program's detector: 27 to 4300 Hz (below the lowest and above the highest piano key),
  /// threshold 0.15. Reuses its memory. One thread at a time.
  static Detect musicalPitchDetector();

  /// Calls a new `musicalPitchDetector` once. Any thread.
  static std::optional<PitchDetector::Reading> detectMusicalPitch(std::span<const float> block,
                                                                  double rate);

  /// `detect` runs on `detectQueue`, which must be serial.
  static std::shared_ptr<PitchCapture> create(
      std::unique_ptr<TaskQueue> detectQueue = std::make_unique<SerialQueue>("corvane.pitch"),
      Detect detect = musicalPitchDetector());

  /// Adds a buffer of any length and channel count; ignores one without frames or float samples.
  /// Audio thread; takes one short lock.
  void consume(const AudioBuffer& buffer, const OnReading& onReading);

  /// Drops the buffered samples and the waiting block, so that later sound is never joined to
  /// earlier sound. A running analysis ends normally. Any thread.
  void reset();

 private:
  struct Block {
    std::vector<float> samples;
    double rate = 0.0;
  };

  PitchCapture(std::unique_ptr<TaskQueue> detectQueue, Detect detect);

  void stashMono();
  bool enqueue(double rate, const OnReading& onReading);
  void drain(const OnReading& onReading);

  /// Guards `stash`, `pending` and `draining`; held only to change them, never while detecting,
  /// submitting or calling back.
  std::mutex gate;
  std::unique_ptr<TaskQueue> detectQueue;
  Detect detect;
  std::vector<float> mono;   ///< audio thread only: the last buffer, mixed
  std::vector<float> stash;  ///< shorter than a block whenever `consume` has returned
  Block pending;             ///< the newest block not yet taken for analysis, or no samples
  Block analysed;            ///< drain job only
  bool draining = false;     ///< a drain job is queued or running
};

}  // namespace corvane
