// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "pitch/pitch_capture.h"
#include "pitch/tests/manual_queue.h"
#include "tests/support/signals.h"

namespace corvane {

constexpr std::size_t blockSamples = PitchCapture::blockSamples;
constexpr std::size_t hopSamples = PitchCapture::hopSamples;

/// Passes a buffer of these channels, all of the same length, to the capture.
inline void feed(PitchCapture& capture, const std::vector<signals::Samples>& channels, double rate,
                 const PitchCapture::OnReading& onReading) {
  std::vector<const float*> pointers;
  for (const signals::Samples& channel : channels) pointers.push_back(channel.data());
  capture.consume({.channels = pointers.data(),
                   .frameLength = static_cast<std::uint32_t>(channels.front().size()),
                   .channelCount = static_cast<std::uint32_t>(channels.size()),
                   .sampleRate = rate},
                  onReading);
}

/// A capture whose detection the test runs, and its blocks and readings.
class CaptureProbe {
 public:
  struct Analysed {
    signals::Samples block;
    double rate;
  };

  CaptureProbe() { useQueue(std::make_unique<ManualQueue>(waiting)); }
  explicit CaptureProbe(std::unique_ptr<TaskQueue> queue) { useQueue(std::move(queue)); }
  CaptureProbe(const CaptureProbe&) = delete;
  CaptureProbe& operator=(const CaptureProbe&) = delete;

  void consume(const std::vector<signals::Samples>& channels, double rate = 48000.0) {
    feed(*capture, channels, rate, onReading);
  }

  /// Continues a signal in which each sample is its own position.
  void consumeRamp(std::size_t frames, double rate = 48000.0) {
    consume({signals::ramp(position, frames)}, rate);
    position += frames;
  }

  std::shared_ptr<WaitingJobs> waiting = std::make_shared<WaitingJobs>();
  std::vector<Analysed> analysed;
  std::vector<std::optional<PitchDetector::Reading>> readings;
  /// The detector's result; by default a reading with the number of previous blocks.
  std::function<std::optional<PitchDetector::Reading>()> answer = [this] {
    return PitchDetector::Reading{.frequency = static_cast<double>(analysed.size())};
  };
  PitchCapture::OnReading onReading = [this](const auto& reading) { readings.push_back(reading); };
  std::shared_ptr<PitchCapture> capture;

 private:
  void useQueue(std::unique_ptr<TaskQueue> queue) {
    capture = PitchCapture::create(std::move(queue), [this](auto block, double rate) {
      analysed.push_back({{block.begin(), block.end()}, rate});
      return answer();
    });
  }

  std::size_t position = 0;
};

}  // namespace corvane
