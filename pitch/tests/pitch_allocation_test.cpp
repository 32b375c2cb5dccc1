// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>

#include "pitch/tests/capture_probe.h"
#include "pitch/tests/threads.h"
#include "tests/support/allocation_count.h"

namespace corvane {
namespace {

TEST(AllocationCount, CountsAllocationsAndReleasesOfItsThread) {
  struct alignas(128) Wide {
    char bytes[128];
  };
  const std::size_t before = allocationsOfThisThread();
  auto wide = std::make_unique<Wide[]>(2);
  EXPECT_EQ(allocationsOfThisThread(), before + 1);
  std::size_t other = 0;
  std::jthread([&other] { other = allocationsOfThisThread(); }).join();
  EXPECT_LT(other, before + 1);
  const std::size_t between = allocationsOfThisThread();
  wide.reset();
  EXPECT_EQ(allocationsOfThisThread(), between + 1);
}

/// The detection thread's allocations at each reading, in preallocated memory.
struct Counts {
  std::array<std::size_t, 1000> allocations{};
  std::size_t pitches = 0;
  std::atomic<std::size_t> told = 0;

  void tell(bool pitch) {
    allocations.at(told) = allocationsOfThisThread();
    pitches += pitch ? 1U : 0U;
    ++told;
    told.notify_all();
  }

  /// Allocates nothing, unlike a wait with a deadline; the test has its own deadline.
  void waitFor(std::size_t count) {
    for (std::size_t now = told; now < count; now = told) told.wait(now);
  }
};

/// A callback that owns something, like the engine's.
PitchCapture::OnReading tellAllocations(const std::shared_ptr<Counts>& counts) {
  return [counts](const auto& reading) { counts->tell(reading.has_value()); };
}

signals::Samples music() {
  const auto low = signals::pluckedString(signals::pluckedDelay(41.2, 48000.0), 20000, 1);
  const auto high = signals::pluckedString(signals::pluckedDelay(329.6, 48000.0), 20000, 2);
  signals::Samples all = signals::constant(0.0F, 12000);
  for (const auto& part : {low, signals::noise(12000, 3), high, signals::constant(0.0F, 12000)}) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}

/// Feeds `samples` in buffers of `frames` to two channels and calls `afterBuffer` with the number
/// of complete blocks. Returns this thread's allocations since the first block.
template <class AfterBuffer>
std::size_t allocationsOfTheTap(PitchCapture& capture, const signals::Samples& samples,
                                std::uint32_t frames, const PitchCapture::OnReading& onReading,
                                AfterBuffer afterBuffer) {
  std::size_t before = 0;
  for (std::size_t first = 0; first + frames <= samples.size(); first += frames) {
    const float* channels[] = {samples.data() + first, samples.data() + first};
    const double rate = first < samples.size() / 2 ? 48000.0 : 96000.0;
    capture.consume({channels, frames, 2, rate}, onReading);
    const std::size_t fed = first + frames;
    afterBuffer(fed < blockSamples ? 0 : (fed - blockSamples) / hopSamples + 1);
    if (fed < blockSamples + frames) before = allocationsOfThisThread();
  }
  return allocationsOfThisThread() - before;
}

TEST(PitchAllocation, NeitherThreadAllocatesAfterTheFirstBlock) {
  const signals::Samples samples = music();
  for (const std::uint32_t frames : {4096U, 441U, 4097U}) {
    const auto capture = PitchCapture::create();
    const auto detections = std::make_shared<Counts>();
    const auto onReading = tellAllocations(detections);
    EXPECT_EQ(allocationsOfTheTap(*capture, samples, frames, onReading,
                                  [&](std::size_t blocks) { detections->waitFor(blocks); }),
              0U)
        << frames << " frames at once";
    const std::size_t count = detections->told;
    EXPECT_GT(detections->pitches, 5U) << "some detections find a pitch";
    EXPECT_LT(detections->pitches, count) << "some detections find none";
    EXPECT_EQ(detections->allocations[count - 1], detections->allocations[0])
        << "on the detection thread, with " << frames << " frames at once";
  }
}

TEST(PitchAllocation, TapThatRunsAheadAllocatesNothing) {
  Door started;
  Door finish;
  bool held = false;
  auto detector = PitchCapture::musicalPitchDetector();
  const auto capture = PitchCapture::create(std::make_unique<SerialQueue>("corvane.pitch"),
                                            [&](auto block, double rate) {
                                              if (!std::exchange(held, true)) {
                                                started.open();
                                                finish.pass();
                                              }
                                              return detector(block, rate);
                                            });
  const auto detections = std::make_shared<Counts>();
  const auto waitForTheFirst = [&](std::size_t blocks) {
    if (blocks == 1) started.pass();
  };
  EXPECT_EQ(
      allocationsOfTheTap(*capture, music(), 4096, tellAllocations(detections), waitForTheFirst),
      0U);
  EXPECT_EQ(detections->told, 0U);
  finish.open();
  detections->waitFor(2);
  EXPECT_EQ(detections->allocations[1], detections->allocations[0]);
}

}  // namespace
}  // namespace corvane
