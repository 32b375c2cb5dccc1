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

/// Carries recorded sound to the detector without ever making the recording wait: mixes to mono,
/// cuts a block of 8192 samples every 4096, and has the newest block analysed on `detectQueue`. A
/// block that is still waiting when the next one comes is dropped unanalysed, so that a slow
/// machine shows fewer readings, never late ones. After the first block nothing on its way
/// allocates, as long as no buffer is longer than those before.
class PitchCapture : public std::enable_shared_from_this<PitchCapture> {
 public:
  static constexpr std::size_t blockSamples = 8192;
  static constexpr std::size_t hopSamples = 4096;

  /// Called on `detectQueue` once for every analysed block, with nothing when it holds no pitch.
  using OnReading = InPlaceFunction<void(const std::optional<PitchDetector::Reading>&), 32>;
  using Detect =
      std::function<std::optional<PitchDetector::Reading>(std::span<const float>, double rate)>;

  /// The program's detector: 27 to 4300 Hz (below the lowest and above the highest piano key),
  /// threshold 0.15. Keeps its memory from block to block. One thread at a time.
  static Detect musicalPitchDetector();

  /// One call of a new `musicalPitchDetector`. Any thread.
  static std::optional<PitchDetector::Reading> detectMusicalPitch(std::span<const float> block,
                                                                  double rate);

  /// `detectQueue` runs the detection and must be serial; `detect` is what runs there.
  static std::shared_ptr<PitchCapture> create(
      std::unique_ptr<TaskQueue> detectQueue = std::make_unique<SerialQueue>("corvane.pitch"),
      Detect detect = musicalPitchDetector());

  /// Takes a buffer of any length and channel count; ignores one without frames or float samples.
  /// On the audio thread; waits for nothing but a short lock.
  void consume(const AudioBuffer& buffer, const OnReading& onReading);

  /// Forgets the samples and the block that wait for analysis, so that what comes next is never
  /// joined to what came before. An analysis that is running ends normally. Any thread.
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
  std::vector<float> mono;   ///< of the audio thread: the last buffer, mixed
  std::vector<float> stash;  ///< shorter than a block whenever `consume` has returned
  Block pending;             ///< the newest block that no analysis has taken yet, or no samples
  Block analysed;            ///< belongs to the drain job
  bool draining = false;     ///< a drain job is queued or running
};

}  // namespace corvane
