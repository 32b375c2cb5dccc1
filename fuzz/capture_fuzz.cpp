// SPDX-License-Identifier: MIT
// Buffers, resets and detections in any order, also nested: the capture pipeline behaves like a
// simple model of it.

#include <bit>
#include <cmath>
#include <vector>

#include "base/require.h"
#include "fuzz/bytes.h"
#include "fuzz/capture_model.h"
#include "pitch/pitch_capture.h"
#include "pitch/tests/manual_queue.h"

namespace corvane::fuzz {
namespace {

constexpr double usualRates[] = {8000.0, 44100.0, 48000.0, 192000.0};
constexpr float oddSamples[] = {0.0F, -0.0F, 1.0F, -1.0F, 3e38F, 1e-45F, INFINITY, NAN};

/// Sound that never repeats, with one arbitrary sample.
std::vector<float> sound(Bytes& input, std::size_t frames) {
  std::uint32_t state = input.take<std::uint16_t>();
  std::vector<float> samples(frames);
  for (float& sample : samples) {
    state = state * 1664525U + 1013904223U;
    sample = static_cast<float>(state >> 8U) * 0x1p-24F;
  }
  if (frames > 0) samples[state % frames] = oddSamples[input.below(std::size(oddSamples))];
  return samples;
}

class Session {
 public:
  explicit Session(Bytes bytes) : input(bytes) {}

  void run() {
    for (int steps = 0; steps < 48 && !input.empty(); ++steps) {
      step();
      require(waiting->jobs.size() == (model.draining ? 1U : 0U), "a job waits only if needed");
      require(analysed == reported, "every detection is reported once");
    }
  }

 private:
  /// One action of the tap thread, the engine or the detection queue.
  void step() {
    const std::size_t action = input.below(8);
    if (action < 5) return feed();
    if (action < 6) return reset();
    if (!detecting && !waiting->jobs.empty()) detect();
  }

  void feed() {
    const std::uint32_t channels = static_cast<std::uint32_t>(input.below(9));
    const std::size_t frames = input.below(3) == 0 ? input.below(20000) : 4096;
    const double rate = input.usualOrAny(usualRates);
    std::vector<std::vector<float>> all(std::max(channels, 1U));
    for (auto& channel : all) channel = sound(input, frames);
    std::vector<const float*> pointers;
    for (const auto& channel : all) pointers.push_back(channel.data());

    const bool present = input.below(16) != 0;
    capture->consume({.channels = present ? pointers.data() : nullptr,
                      .frameLength = static_cast<std::uint32_t>(frames),
                      .channelCount = channels,
                      .sampleRate = rate},
                     [this](const auto& reading) { report(reading); });
    if (present) model.consume(all, rate);
  }

  void reset() {
    capture->reset();
    model.reset();
  }

  void detect() {
    detecting = true;
    waiting->runOne();
    detecting = false;
    require(!model.pending, "every block has a job");
    model.draining = false;
  }

  std::optional<PitchDetector::Reading> detected(std::span<const float> block, double rate) {
    require(model.pending.has_value(), "there is a block to analyse");
    require(sameSound(model.pending->samples, block), "the newest block is analysed");
    require(std::bit_cast<std::uint64_t>(model.pending->rate) == std::bit_cast<std::uint64_t>(rate),
            "the rate is that of the newest samples");
    model.pending.reset();
    ++analysed;
    if (input.flag() && !input.empty()) step();  // sound comes while a detection runs
    if (input.flag()) return std::nullopt;
    return PitchDetector::Reading{.frequency = static_cast<double>(analysed)};
  }

  void report(const std::optional<PitchDetector::Reading>& reading) {
    ++reported;
    require(reported == analysed, "a detection is reported before the next begins");
    require(!reading || reading->frequency == static_cast<double>(analysed),
            "the reading is that of its block");
  }

  Bytes input;
  CaptureModel model;
  bool detecting = false;
  int analysed = 0;
  int reported = 0;
  std::shared_ptr<WaitingJobs> waiting = std::make_shared<WaitingJobs>();
  std::shared_ptr<PitchCapture> capture =
      PitchCapture::create(std::make_unique<ManualQueue>(waiting),
                           [this](auto block, double rate) { return detected(block, rate); });
};

}  // namespace
}  // namespace corvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvane::fuzz;
  Session(Bytes(data, size)).run();
  return 0;
}
